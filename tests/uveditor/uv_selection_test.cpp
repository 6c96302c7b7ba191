// Selecting texture vertices, and the modes and axes that the buttons set.
#include "uv_fixture.h"

namespace corvane {
namespace {

using Numbers = std::vector<int>;

class UVSelectionTest : public UVTest {
protected:
    /// Five vertices on the view's diagonal, at pixels (40, 20), (120, 60), (200, 100), (280, 140)
    /// and (360, 180).
    void SetUp() override {
        edit({{0.1, 0.1}, {0.3, 0.3}, {0.5, 0.5}, {0.7, 0.7}, {0.9, 0.9}}, {});
    }

    void box(double x1, double y1, double x2, double y2) {
        drag(MouseButton::Left, x1, y1, x2, y2);
    }
};

TEST_F(UVSelectionTest, ABoxSelectsWhatIsInsideAndNothingElse) {
    box(100, 40, 300, 150);
    EXPECT_EQ(selected(), (Numbers{2, 3, 4}));
    box(0, 0, 50, 30);
    EXPECT_EQ(selected(), Numbers{1});
}

TEST_F(UVSelectionTest, TheDirectionOfTheDragDoesNotMatter) {
    for (const auto& [x1, y1, x2, y2] :
         {std::array<double, 4>{100, 40, 300, 150}, std::array<double, 4>{300, 150, 100, 40},
          std::array<double, 4>{300, 40, 100, 150}, std::array<double, 4>{100, 150, 300, 40}}) {
        box(0, 0, 1, 1);
        box(x1, y1, x2, y2);
        EXPECT_EQ(selected(), (Numbers{2, 3, 4})) << x1 << ' ' << y1;
    }
}

TEST_F(UVSelectionTest, BothCoordinatesMustLieInside) {
    box(100, 0, 300, 90);
    EXPECT_EQ(selected(), Numbers{2});
    box(0, 40, 190, 200);
    EXPECT_EQ(selected(), Numbers{2});
}

TEST_F(UVSelectionTest, AVertexOnTheBordersIsOutside) {
    edit({{0.25, 0.25}, {0.5, 0.5}, {0.75, 0.75}}, {});
    box(100, 50, 300, 150);  // from the first to the third
    EXPECT_EQ(selected(), Numbers{2});
    box(200, 50, 300, 151);  // the second on the left border
    EXPECT_EQ(selected(), Numbers{});
    box(99, 49, 301, 151);
    EXPECT_EQ(selected(), (Numbers{1, 2, 3}));
}

TEST_F(UVSelectionTest, EachOfTheFourBordersIsOutside) {
    // From (0.25, 0.25) to (0.75, 0.75): in the middle of each border, and beside it inside.
    edit({{0.25, 0.5},
          {0.75, 0.5},
          {0.5, 0.25},
          {0.5, 0.75},
          {0.26, 0.5},
          {0.74, 0.5},
          {0.5, 0.26},
          {0.5, 0.74}},
         {});
    box(100, 50, 300, 150);
    EXPECT_EQ(selected(), (Numbers{5, 6, 7, 8}));
}

TEST_F(UVSelectionTest, AClickSelectsNothing) {
    uvSelectAll(uv);
    box(200, 100, 200, 100);
    EXPECT_EQ(selected(), Numbers{});
}

TEST_F(UVSelectionTest, AClickWhileAddingOrDeselectingChangesNothing) {
    uvSelectAll(uv);
    uvSetSelectMode(uv, SelectMode::Deselect);
    box(200, 100, 200, 100);
    uvSetSelectMode(uv, SelectMode::Add);
    box(200, 100, 200, 100);
    EXPECT_EQ(selected(), (Numbers{1, 2, 3, 4, 5}));
}

TEST_F(UVSelectionTest, AddingKeepsWhatIsOutside) {
    box(100, 40, 300, 150);
    uvSetSelectMode(uv, SelectMode::Add);
    box(0, 0, 130, 70);
    EXPECT_EQ(selected(), (Numbers{1, 2, 3, 4}));
}

TEST_F(UVSelectionTest, DeselectingTakesAwayWhatIsInside) {
    uvSelectAll(uv);
    uvSetSelectMode(uv, SelectMode::Deselect);
    box(300, 150, 100, 40);
    EXPECT_EQ(selected(), (Numbers{1, 5}));
}

TEST_F(UVSelectionTest, ABoxSelectsDeletedVerticesToo) {
    uv.data.deleted[2] = true;
    box(100, 40, 300, 150);
    EXPECT_EQ(selected(), (Numbers{2, 3, 4}));
}

TEST_F(UVSelectionTest, SelectAllAndInvertTakeDeletedVerticesToo) {
    uv.data.deleted[2] = true;
    EXPECT_TRUE(redraws([&] { uvSelectAll(uv); }));
    EXPECT_EQ(selected(), (Numbers{1, 2, 3, 4, 5}));
    uv.data.selected[0] = false;
    EXPECT_TRUE(redraws([&] { uvInvertSelection(uv); }));
    EXPECT_EQ(selected(), Numbers{1});
}

TEST_F(UVSelectionTest, PositionsAreCutToWholePixels) {
    edit({{0.25, 0.25}}, {});
    // A hundred pixels across and fifty down is where the vertex is, and so is what is cut to it.
    box(100.9, 40, 300, 150);
    EXPECT_EQ(selected(), Numbers{});
    box(99.9, 40, 300, 150);
    EXPECT_EQ(selected(), Numbers{1});
}

TEST_F(UVSelectionTest, TheBoxFollowsZoomAndPan) {
    uv.zoom = 2;
    uv.panX = 30;
    uv.panY = -10;
    // The second vertex is at ((120 - 200) * 2 + 230, (60 - 100) * 2 + 90), that is (70, 10).
    box(69, 9, 71, 11);
    EXPECT_EQ(selected(), Numbers{2});
}

TEST_F(UVSelectionTest, SelectingChangesNoCoordinate) {
    box(100, 40, 300, 150);
    uvInvertSelection(uv);
    EXPECT_EQ(uv.data.u, (Values{0.1, 0.3, 0.5, 0.7, 0.9}));
    EXPECT_FALSE(uv.unsaved);
}

TEST_F(UVSelectionTest, EveryReleaseRedraws) {
    for (const MouseButton button : {MouseButton::Left, MouseButton::Other}) {
        EXPECT_TRUE(redraws([&] { drag(button, 10, 10, 10, 10); }));
    }
    EXPECT_FALSE(redraws([&] { uvMouseDown(uv, 10, 10); }));
}

TEST_F(UVSelectionTest, TheButtonsSetTheirModeAndRefreshTheButtons) {
    EXPECT_EQ(uv.selectMode, SelectMode::Select);
    EXPECT_EQ(uv.transformMode, TransformMode::Move);
    EXPECT_TRUE(uv.xEnabled);
    EXPECT_TRUE(uv.yEnabled);
    int updates = uvWindow.buttonUpdates;
    const auto expectRefresh = [&] { EXPECT_EQ(uvWindow.buttonUpdates, ++updates); };
    for (const SelectMode mode : {SelectMode::Add, SelectMode::Deselect, SelectMode::Select}) {
        uvSetSelectMode(uv, mode);
        EXPECT_EQ(uv.selectMode, mode);
        expectRefresh();
    }
    for (const TransformMode mode :
         {TransformMode::Rotate, TransformMode::Scale, TransformMode::Move}) {
        uvSetTransformMode(uv, mode);
        EXPECT_EQ(uv.transformMode, mode);
        expectRefresh();
    }
    uvToggleX(uv);
    EXPECT_FALSE(uv.xEnabled);
    EXPECT_TRUE(uv.yEnabled);
    expectRefresh();
    uvToggleY(uv);
    uvToggleX(uv);
    EXPECT_TRUE(uv.xEnabled);
    EXPECT_FALSE(uv.yEnabled);
}

}  // namespace
}  // namespace corvane
