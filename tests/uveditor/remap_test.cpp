// Texture coordinates from a projection of the vertices.
#include <cmath>
#include <limits>

#include "model/commands/open_model.h"
#include "uv_fixture.h"

namespace corvane {
namespace {

class RemapTest : public UVTest {
protected:
    /// Hands over vertices at these positions (slot order), all of them selected, with texture
    /// coordinates that no remap gives.
    void editAt(const std::vector<Triple>& positions) {
        loadVertices(positions);
        for (VertexRecord& each : store().Vertices) {
            each.tu = 50;
            each.tv = 60;
        }
        handOver();
        uvSelectAll(uv);
    }

    void remapFrom(RemapPlane plane) { remapSelection(uv, editor, plane); }

    void expectUnchanged() {
        EXPECT_EQ(uv.data.u, Values(uv.data.u.size(), 50));
        EXPECT_EQ(uv.data.v, Values(uv.data.v.size(), 60));
        EXPECT_FALSE(uv.unsaved);
    }

    static constexpr const char* kFlat = " coordinate, so they cannot be stretched on the ";
    void expectFlat(const std::string& axis) {
        ASSERT_EQ(dialogs.asked.size(), 1U);
        EXPECT_EQ(dialogs.last().title, "Error");
        EXPECT_EQ(dialogs.last().text,
                  "All selected vertices have the same " + axis + kFlat + axis +
                      " axis. Nothing was changed; select more vertices, or remap from another "
                      "view.");
        expectUnchanged();
    }
};

TEST_F(RemapTest, FromTheTopSlotsNoughtAndTwoAreUsed) {
    editAt({{-1, 900, 10}, {0, 901, 14}, {3, 902, 12}});
    EXPECT_TRUE(redraws([&] { remapFrom(RemapPlane::Top); }));
    EXPECT_EQ(uv.data.u, (Values{0, 0.25, 1}));
    EXPECT_EQ(uv.data.v, (Values{1, 0, 0.5}));
    EXPECT_TRUE(uv.unsaved);
}

TEST_F(RemapTest, FromTheFrontSlotsNoughtAndOneAreUsed) {
    editAt({{-1, 20, 900}, {0, 50, 901}, {3, 60, 902}});
    remapFrom(RemapPlane::Front);
    EXPECT_EQ(uv.data.u, (Values{0, 0.25, 1}));
    EXPECT_EQ(uv.data.v, (Values{1, 0.25, 0})) << "what is highest comes to the upper edge";
}

TEST_F(RemapTest, FromTheLeftSlotsTwoAndOneAreUsed) {
    editAt({{900, 20, -1}, {901, 50, 0}, {902, 60, 3}});
    remapFrom(RemapPlane::Left);
    EXPECT_EQ(uv.data.u, (Values{0, 0.25, 1}));
    EXPECT_EQ(uv.data.v, (Values{1, 0.25, 0}));
}

TEST_F(RemapTest, TheGeosetGetsNothingUntilTheChangesAreSaved) {
    editAt({{-1, 20, 0}, {3, 60, 0}});
    remapFrom(RemapPlane::Front);
    EXPECT_EQ(tu(), (Values{50, 50}));
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{0, 1}));
    EXPECT_EQ(tv(), (Values{1, 0}));
}

TEST_F(RemapTest, VerticesThatAreNotSelectedKeepTheirsAndDoNotCount) {
    editAt({{-1, 20, 0}, {-100, 500, 0}, {3, 60, 0}});
    uv.data.selected[1] = false;
    remapFrom(RemapPlane::Front);
    EXPECT_EQ(uv.data.u, (Values{0, 50, 1}));
    EXPECT_EQ(uv.data.v, (Values{1, 60, 0}));
}

TEST_F(RemapTest, DeletedVerticesThatAreSelectedCount) {
    loadVertices({{0, 0, 0}, {1, 1, 0}, {4, 4, 0}});
    vertex(3).deleted = true;
    handOver();
    uvSelectAll(uv);
    remapFrom(RemapPlane::Front);
    EXPECT_EQ(uv.data.u, (Values{0, 0.25, 1}));
}

TEST_F(RemapTest, ThePositionsAreThoseOfTheGeosetNow) {
    editAt({{0, 0, 0}, {1, 1, 0}, {4, 4, 0}});
    vertex(3).pos = {2, 5, 0};
    remapFrom(RemapPlane::Front);
    EXPECT_EQ(uv.data.u, (Values{0, 0.5, 1}));
    EXPECT_EQ(uv.data.v, (Values{1, 0.8, 0}));
}

TEST_F(RemapTest, BeyondSixtyFourHundredTheLowerEndStaysThere) {
    editAt({{7000, 0, 0}, {7600, 1, 0}, {8000, 2, 0}});
    remapFrom(RemapPlane::Front);
    // Of the 1600 from 6400 on.
    EXPECT_EQ(uv.data.u, (Values{0.375, 0.75, 1}));
}

TEST_F(RemapTest, BelowMinusSixtyFourHundredTheUpperEndStaysThere) {
    editAt({{-7000, 0, 0}, {-7600, 1, 0}, {-8000, 2, 0}});
    remapFrom(RemapPlane::Front);
    EXPECT_EQ(uv.data.u, (Values{0.625, 0.25, 0}));
}

TEST_F(RemapTest, OneVertexBeyondTheStartingExtremesHasAnExtent) {
    Geoset geoset;
    geoset.Vertices.push_back({.pos = {7000, 0, 0}});
    EXPECT_EQ(remap(geoset, {true}, Axis::X), Values{1});
}

TEST_F(RemapTest, TheProjectionIsNoughtForWhatIsNotSelected) {
    editAt({{2, 0, 0}, {4, 0, 0}, {6, 0, 0}});
    EXPECT_EQ(remap(store(), {true, false, true}, Axis::X), (Values{0, 0, 1}));
    EXPECT_EQ(remap(store(), {false, true, true}, Axis::X), (Values{0, 0, 1}));
    EXPECT_EQ(remap(store(), {false, false, false}, Axis::X), (Values{0, 0, 0}));
}

TEST_F(RemapTest, TheProjectionIsNoughtWhereTheSelectionHasNoExtent) {
    editAt({{2, 0, 0}, {2, 1, 0}, {6, 2, 0}});
    EXPECT_EQ(remap(store(), {true, true, false}, Axis::X), (Values{0, 0, 0}));
}

TEST_F(RemapTest, TheSelectionMayBeShorterOrLongerThanTheGeoset) {
    editAt({{2, 0, 0}, {4, 0, 0}, {6, 0, 0}});
    EXPECT_EQ(remap(store(), {true, true}, Axis::X), (Values{0, 1, 0}));
    EXPECT_EQ(remap(store(), {true, true, true, true}, Axis::X), (Values{0, 0.5, 1}));
}

TEST_F(RemapTest, AGeosetThatShrankLeavesTheCoordinatesOfWhatIsGone) {
    editAt({{0, 0, 0}, {1, 1, 0}, {4, 4, 0}});
    store().Vertices.pop_back();
    remapFrom(RemapPlane::Front);
    EXPECT_EQ(uv.data.u, (Values{0, 1, 50}));
    EXPECT_EQ(uv.data.v, (Values{1, 0, 60}));
}

TEST_F(RemapTest, ASingleVertexIsRefusedWithTheAxis) {
    editAt({{1, 2, 3}});
    remapFrom(RemapPlane::Top);
    expectFlat("X");
}

TEST_F(RemapTest, ASelectionThatIsFlatOnTheSecondAxisIsRefusedWithThatOne) {
    editAt({{1, 5, 3}, {2, 5, 3}});
    remapFrom(RemapPlane::Front);
    expectFlat("Y");
    dialogs.asked.clear();
    remapFrom(RemapPlane::Top);
    expectFlat("Z");
}

TEST_F(RemapTest, WithNothingSelectedNothingHappens) {
    editAt({{1, 5, 3}, {2, 5, 3}});
    uvInvertSelection(uv);
    EXPECT_TRUE(redraws([&] { remapFrom(RemapPlane::Front); }));
    EXPECT_TRUE(dialogs.asked.empty());
    expectUnchanged();
}

TEST_F(RemapTest, PositionsOfAnotherGeosetAreNotUsed) {
    editAt({{1, 5, 3}, {2, 6, 4}});
    Geoset other = store();
    takeIntoStore(editor, std::move(other), 2);
    remapFrom(RemapPlane::Front);
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(
        dialogs.last().text,
        "The vertices in memory are not those that these texture coordinates were taken from: "
        "a geoset was read since, or vertices were taken away and others added. Nothing was "
        "changed. Choose UV Mapping in the main window to take the coordinates of those in "
        "memory.");
    expectUnchanged();
}

TEST_F(RemapTest, PositionsTooFarApartForANumberChangeNothing) {
    constexpr double kHuge = std::numeric_limits<double>::max();
    editAt({{-kHuge, 0, 0}, {kHuge, 1, 0}});
    remapFrom(RemapPlane::Front);
    for (const double u : uv.data.u) EXPECT_TRUE(std::isfinite(u)) << u;
    EXPECT_EQ(uv.data.v, (Values{1, 0}));
}

}  // namespace
}  // namespace corvane
