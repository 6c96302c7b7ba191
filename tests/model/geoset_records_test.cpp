// Which records count as the same. Most tests compare geosets so, and would be blind to what this
// passes over.
#include <gtest/gtest.h>

#include "base/geoset.h"

namespace corvane {
namespace {

// Two triangles in two groups.
Geoset twoTriangles() {
    Geoset geoset;
    geoset.Vertices.resize(4);
    geoset.Faces = {FaceRecord{.corner = {0, 1, 2}}, FaceRecord{.corner = {0, 2, 3}}};
    geoset.matrixGroups.assign(2, kSoleMatrixGroup);
    return geoset;
}

bool isTheSameAfter(void (*change)(Geoset&)) {
    const Geoset geoset = twoTriangles();
    Geoset changed = geoset;
    change(changed);
    EXPECT_EQ(geoset == changed, changed == geoset);
    return changed == geoset;
}

TEST(SameGeosets, DifferInNothingThatIsEdited) {
    EXPECT_TRUE(isTheSameAfter([](Geoset&) {}));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices.pop_back(); }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Faces.pop_back(); }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Faces[1].corner[2] = 1; }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Faces[1].deleted = true; }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.matrixGroups.pop_back(); }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.matrixGroups[1][6] = 5; }));
}

TEST(SameGeosets, DifferInNoVertex) {
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].pos[2] = 1; }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].normal[0] = 1; }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].tu = 1; }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].tv = 1; }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].group = 1; }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].selected = true; }));
    EXPECT_FALSE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].deleted = true; }));
}

TEST(SameGeosets, MayComeFromElsewhere) {
    EXPECT_TRUE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].fileRow = 7; }));
    EXPECT_TRUE(isTheSameAfter([](Geoset& geoset) { geoset.Vertices[3].regrouped = true; }));
    EXPECT_TRUE(isTheSameAfter([](Geoset& geoset) { geoset.sectionsRead = {"Vertices"}; }));
    EXPECT_TRUE(isTheSameAfter([](Geoset& geoset) { geoset.groupsRead.groups = "Groups"; }));
}

}  // namespace
}  // namespace corvane
