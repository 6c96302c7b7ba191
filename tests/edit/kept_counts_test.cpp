#include "edit/kept_counts.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

Geoset twoTriangles() {
    Geoset geoset;
    geoset.Vertices.resize(4);
    geoset.Faces = {{.corner = {0, 1, 2}}, {.corner = {0, 2, 3}}};
    return geoset;
}

TEST(KeptCountsTest, AnEmptyGeosetHasNothing) { EXPECT_EQ(countKept({}), KeptCounts{}); }

TEST(KeptCountsTest, WhatIsSelectedCountsTwice) {
    Geoset geoset = twoTriangles();
    EXPECT_EQ(countKept(geoset), (KeptCounts{4, 2, 0, 0}));
    for (const std::size_t i : {0U, 1U, 2U}) geoset.Vertices[i].selected = true;
    EXPECT_EQ(countKept(geoset), (KeptCounts{4, 2, 3, 1}));
    geoset.Vertices[3].selected = true;
    EXPECT_EQ(countKept(geoset), (KeptCounts{4, 2, 4, 2}));
}

TEST(KeptCountsTest, WhatIsDeletedDoesNotCount) {
    Geoset geoset = twoTriangles();
    for (VertexRecord& vertex : geoset.Vertices) vertex.selected = true;
    geoset.Faces[0].deleted = true;
    EXPECT_EQ(countKept(geoset), (KeptCounts{4, 1, 4, 1}));
    geoset.Faces[0].deleted = false;
    geoset.Vertices[1].deleted = true;
    EXPECT_EQ(countKept(geoset), (KeptCounts{3, 1, 3, 1}));
    geoset.Vertices[0].deleted = true;
    EXPECT_EQ(countKept(geoset), (KeptCounts{2, 0, 2, 0}));
}

}  // namespace
}  // namespace corvane
