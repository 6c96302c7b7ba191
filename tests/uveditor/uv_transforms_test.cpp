// Moving, rotating and scaling texture vertices. A view of 400 by 200 pixels: a drag of 100 pixels
// across is 0.25, one of 100 pixels down is 0.5.
#include <limits>

#include "uv_fixture.h"

namespace corvane {
namespace {

constexpr double kHalfTurn = 3.1415926;
constexpr double kQuarterTurn = kHalfTurn / 2;

class UVTransformsTest : public UVTest {
protected:
    void dragRight(double x1, double y1, double x2, double y2) {
        drag(MouseButton::Other, x1, y1, x2, y2);
    }
};

TEST_F(UVTransformsTest, ADragMovesTheSelectionByWhatTheMouseWent) {
    edit({{0.25, 0.5}, {0.5, 0.5}, {2, -1}}, {1, 3});
    dragRight(50, 50, 150, 150);
    EXPECT_EQ(uv.data.u, (Values{0.5, 0.5, 2.25}));
    EXPECT_EQ(uv.data.v, (Values{1, 0.5, -0.5}));
    EXPECT_TRUE(uv.unsaved);
}

TEST_F(UVTransformsTest, AMoveIsTheSmallerTheMoreTheViewIsZoomed) {
    edit({{0.25, 0.5}}, {1});
    uv.zoom = 4;
    uv.panX = 1000;
    dragRight(50, 50, 150, 150);
    EXPECT_EQ(uv.data.u, Values{0.3125});
    EXPECT_EQ(uv.data.v, Values{0.625});
}

TEST_F(UVTransformsTest, DeletedVerticesThatAreSelectedMoveToo) {
    edit({{0.25, 0.5}}, {1});
    uv.data.deleted[0] = true;
    uvMove(uv, 0.5, 0.25);
    EXPECT_EQ(uv.data.u, Values{0.75});
    EXPECT_EQ(uv.data.v, Values{0.75});
}

TEST_F(UVTransformsTest, WithOneAxisEnabledAMoveChangesThatCoordinateOnly) {
    edit({{0.25, 0.5}}, {1});
    uvToggleY(uv);
    dragRight(50, 50, 150, 150);
    EXPECT_EQ(uv.data.u, Values{0.5});
    EXPECT_EQ(uv.data.v, Values{0.5});
    uvToggleY(uv);
    uvToggleX(uv);
    dragRight(50, 50, 150, 150);
    EXPECT_EQ(uv.data.u, Values{0.5});
    EXPECT_EQ(uv.data.v, Values{1});
}

TEST_F(UVTransformsTest, WithNoAxisEnabledOnlyARotationChangesAnything) {
    edit({{0, 0.5}, {1, 0.5}}, {1, 2});
    uvToggleX(uv);
    uvToggleY(uv);
    uvMove(uv, 1, 1);
    uvScale(uv, 3);
    EXPECT_EQ(uv.data.u, (Values{0, 1}));
    EXPECT_FALSE(uv.unsaved);
    uvRotate(uv, kQuarterTurn);
    expectNear(uv.data.u, {0.5, 0.5}, 1e-7);
    expectNear(uv.data.v, {0, 1}, 1e-7);
}

TEST_F(UVTransformsTest, ARotationTakesItsAngleFromTheVerticalDragOnly) {
    edit({{0, 0.5}, {1, 0.5}}, {1, 2});
    uvSetTransformMode(uv, TransformMode::Rotate);
    dragRight(10, 0, 350, 200);  // 1 down: 1.5 radians
    // 0.5 * cos 1.5 = 0.0353686008, 0.5 * sin 1.5 = 0.4987474933, turned clockwise.
    expectNear(uv.data.u, {0.4646313992, 0.5353686008}, 1e-7);
    expectNear(uv.data.v, {0.0012525067, 0.9987474933}, 1e-7);
}

TEST_F(UVTransformsTest, ARotationTurnsAboutTheMeanOfTheSelection) {
    edit({{0.8, 0.9}, {0.2, 0.1}, {0.3, 0.3}}, {1, 2});
    // About (0.5, 0.5): (0.3, 0.4) becomes (-0.4, 0.3), (-0.3, -0.4) becomes (0.4, -0.3).
    uvRotate(uv, kQuarterTurn);
    expectNear(uv.data.u, {0.1, 0.9, 0.3}, 1e-7);
    expectNear(uv.data.v, {0.8, 0.2, 0.3}, 1e-7);
    // The other way round, and from the other two quadrants.
    uvRotate(uv, -kQuarterTurn);
    expectNear(uv.data.u, {0.8, 0.2, 0.3}, 1e-6);
    expectNear(uv.data.v, {0.9, 0.1, 0.3}, 1e-6);
}

TEST_F(UVTransformsTest, DeletedVerticesCountForTheMean) {
    edit({{0, 0}, {1, 1}, {2, 5}}, {1, 2, 3});
    uv.data.deleted[2] = true;
    uvScale(uv, 2);
    EXPECT_EQ(uv.data.u, (Values{-1, 1, 3}));
    EXPECT_EQ(uv.data.v, (Values{-2, 0, 8}));
}

TEST_F(UVTransformsTest, WithOnlyXEnabledARotationStillChangesBothCoordinates) {
    edit({{0, 0.5}, {1, 0.5}}, {1, 2});
    uvToggleY(uv);
    uvRotate(uv, kQuarterTurn);
    expectNear(uv.data.u, {0.5, 0.5}, 1e-7);
    expectNear(uv.data.v, {0, 1}, 1e-7);
}

TEST_F(UVTransformsTest, HalfATurnIsTheShortenedNumber) {
    edit({{0, 0.5}, {1, 0.5}}, {1, 2});
    uvRotate(uv, 0);
    // The left vertex lies at 3.1415926, which is short of half a turn by 5.358979e-8; half of
    // that is how far it comes to lie from the middle.
    EXPECT_NEAR(uv.data.v[0] - 0.5, 2.679490e-8, 1e-13);
    EXPECT_EQ(uv.data.v[1], 0.5);
}

TEST_F(UVTransformsTest, AVertexStraightAboveTheCentreIsMirroredByARotation) {
    edit({{0.5, 0.25}, {0.5, 0.75}}, {1, 2});
    uvRotate(uv, 0);
    expectNear(uv.data.u, {0.5, 0.5}, 1e-7);
    expectNear(uv.data.v, {0.75, 0.75});
    // By half of the shortened number: 0.25 * cos 1.5707963.
    EXPECT_NEAR(uv.data.u[0] - 0.5, 6.69872e-9, 1e-13);
}

TEST_F(UVTransformsTest, AVertexStraightAboveTheCentreTurnsAsIfItLayBelow) {
    edit({{0.5, 0.25}, {0.5, 0.75}}, {1, 2});
    uvRotate(uv, kQuarterTurn);
    expectNear(uv.data.u, {0.25, 0.25}, 1e-7);
    expectNear(uv.data.v, {0.5, 0.5}, 1e-7);
}

TEST_F(UVTransformsTest, ASingleVertexIsItsOwnCentre) {
    edit({{0.3, 0.7}, {0.9, 0.1}}, {1});
    uvRotate(uv, 1);
    uvScale(uv, 5);
    EXPECT_EQ(uv.data.u, (Values{0.3, 0.9}));
    EXPECT_EQ(uv.data.v, (Values{0.7, 0.1}));
}

TEST_F(UVTransformsTest, ADragToTheLowerRightGrowsByOneMoreThanItsLength) {
    edit({{0, 0}, {1, 1}, {4, 4}}, {1, 2});
    uvSetTransformMode(uv, TransformMode::Scale);
    dragRight(0, 0, 200, 100);  // 0.5 + 0.5: doubles
    EXPECT_EQ(uv.data.u, (Values{-0.5, 1.5, 4}));
    EXPECT_EQ(uv.data.v, (Values{-0.5, 1.5, 4}));
}

TEST_F(UVTransformsTest, ADragToTheUpperLeftShrinksByTheReciprocal) {
    edit({{0, 0}, {1, 1}, {4, 4}}, {1, 2});
    uvSetTransformMode(uv, TransformMode::Scale);
    dragRight(200, 100, 0, 0);  // -1: halves
    EXPECT_EQ(uv.data.u, (Values{0.25, 0.75, 4}));
    EXPECT_EQ(uv.data.v, (Values{0.25, 0.75, 4}));
    dragRight(0, 0, 200, 100);
    EXPECT_EQ(uv.data.u, (Values{0, 1, 4}));
}

TEST_F(UVTransformsTest, OppositeExtentsOfEqualLengthScaleByNothing) {
    edit({{0, 0}, {1, 0.5}}, {1, 2});
    uvSetTransformMode(uv, TransformMode::Scale);
    dragRight(100, 100, 200, 50);  // 0.25 to the right, 0.25 up
    EXPECT_EQ(uv.data.u, (Values{0, 1}));
    EXPECT_EQ(uv.data.v, (Values{0, 0.5}));
    EXPECT_FALSE(uv.unsaved);
}

TEST_F(UVTransformsTest, AScaleKeepsToTheEnabledAxes) {
    edit({{0, 0}, {1, 1}}, {1, 2});
    uvToggleX(uv);
    uvScale(uv, 2);
    EXPECT_EQ(uv.data.u, (Values{0, 1}));
    EXPECT_EQ(uv.data.v, (Values{-0.5, 1.5}));
    uvToggleX(uv);
    uvToggleY(uv);
    uvScale(uv, 2);
    EXPECT_EQ(uv.data.u, (Values{-0.5, 1.5}));
    EXPECT_EQ(uv.data.v, (Values{-0.5, 1.5}));
}

TEST_F(UVTransformsTest, WithNothingSelectedNothingChanges) {
    edit({{0, 0.25}, {1, 0.75}}, {});
    for (const TransformMode mode :
         {TransformMode::Move, TransformMode::Rotate, TransformMode::Scale}) {
        uvSetTransformMode(uv, mode);
        dragRight(10, 10, 390, 190);
    }
    EXPECT_EQ(uv.data.u, (Values{0, 1}));
    EXPECT_EQ(uv.data.v, (Values{0.25, 0.75}));
    EXPECT_FALSE(uv.unsaved);
}

TEST_F(UVTransformsTest, ATransformLeavesTheSelection) {
    edit({{0, 0.25}, {1, 0.75}}, {2});
    dragRight(10, 10, 390, 190);
    EXPECT_EQ(selected(), std::vector<int>{2});
}

TEST_F(UVTransformsTest, ACoordinateThatWouldBeNoNumberStaysAsItWas) {
    constexpr double kHuge = std::numeric_limits<double>::max();
    edit({{kHuge, -kHuge}, {-kHuge, kHuge}}, {1, 2});
    uvMove(uv, kHuge, -kHuge);
    EXPECT_EQ(uv.data.u, (Values{kHuge, 0}));
    EXPECT_EQ(uv.data.v, (Values{-kHuge, 0}));
    edit({{kHuge, 0}, {-kHuge, 0}}, {1, 2});
    uvScale(uv, 10);
    EXPECT_EQ(uv.data.u, (Values{kHuge, -kHuge}));
    uvRotate(uv, 1);
    EXPECT_EQ(uv.data.u, (Values{kHuge, -kHuge}));
    EXPECT_EQ(uv.data.v, (Values{0, 0}));
}

TEST_F(UVTransformsTest, InNoModeOfItsOwnADragChangesNothing) {
    edit({{0.25, 0.5}}, {1});
    uv.transformMode = TransformMode::Extrude;
    dragRight(50, 50, 150, 150);
    EXPECT_EQ(uv.data.u, Values{0.25});
    EXPECT_EQ(uv.data.v, Values{0.5});
    EXPECT_FALSE(uv.unsaved);
}

TEST_F(UVTransformsTest, TheWholeOfTheLargestGeosetIsCounted) {
    std::vector<std::pair<double, double>> all(32767, {0.25, 0.5});
    all[0] = {0.25 + 32767, 0.5};  // moves the mean by 1
    edit(all, {});
    uvSelectAll(uv);
    uvScale(uv, 0);
    EXPECT_NEAR(uv.data.u[32766], 1.25, 1e-9);
    EXPECT_NEAR(uv.data.u[0], 1.25, 1e-9);
}

}  // namespace
}  // namespace corvane
