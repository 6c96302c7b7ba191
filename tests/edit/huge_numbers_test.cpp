// Coordinates so far out that sums and squares of them are no numbers any more: a tool gives what a
// number can hold, or leaves what it would have changed.
#include <limits>

#include "edit/commands/drag_transforms.h"
#include "edit/normals.h"
#include "edit/selection.h"
#include "edit/transforms.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

constexpr double kHuge = 1.5e308;  // the sum of two of these is no number
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class HugeNumbersTest : public ToolTest {
protected:
    std::vector<Triple> positions() const {
        std::vector<Triple> all;
        for (const VertexRecord& vertex : editor.store.Vertices) all.push_back(vertex.pos);
        return all;
    }
};

using Positions = std::vector<Triple>;

TEST_F(HugeNumbersTest, TheCentreOfWhatCannotBeAddedUpIsItsMean) {
    loadVertices({{kHuge, -kHuge, 2}, {kHuge, -kHuge, 4}, {7, 7, 7}, {8, 8, 8}});
    select({1, 2, 4});
    flagDeleted({4});
    EXPECT_EQ(selectionCentre(store()), (Triple{kHuge, -kHuge, 3}));
    snapSelection(editor);
    EXPECT_EQ(positions(),
              (Positions{{kHuge, -kHuge, 3}, {kHuge, -kHuge, 3}, {7, 7, 7}, {kHuge, -kHuge, 3}}));
}

TEST_F(HugeNumbersTest, TheMeanCountsSelectedVerticesThatAreNotDeletedOnly) {
    loadVertices({{kHuge, 0, 0}, {kHuge, 0, 0}, {-kHuge, 0, 0}, {-kHuge, 0, 0}});
    select({1, 2, 4});
    flagDeleted({4});
    EXPECT_EQ(selectionCentre(store(), Axis::X), kHuge);
}

TEST_F(HugeNumbersTest, MirrorLeavesACoordinateWhoseMirrorImageIsNoNumber) {
    // The centre is 5e307; the mirror image of the third would be 2.5e308.
    loadVertices({{kHuge, 0, 0}, {kHuge, 0, 0}, {-kHuge, 0, 0}});
    for (int i = 1; i <= 3; ++i) vertex(i).normal = {1, 2, 3};
    select({1, 2, 3});
    mirrorSelection(editor, Axis::X);
    EXPECT_DOUBLE_EQ(vertex(1).pos[0], -5e307);
    EXPECT_DOUBLE_EQ(vertex(2).pos[0], -5e307);
    EXPECT_EQ(vertex(3).pos[0], -kHuge);
    EXPECT_EQ(vertex(3).normal, (Triple{-1, 2, 3}));
}

TEST_F(HugeNumbersTest, RotateLeavesAPositionWhoseDistanceIsNoNumber) {
    loadVertices({{kHuge, 2, -kHuge}, {kHuge, 3, kHuge}});
    select({1, 2});
    const Positions before = positions();
    double angle = 45;
    rotateSelection(editor, angle, Axis::Y);
    EXPECT_EQ(positions(), before);
    EXPECT_EQ(newest().name, "Rotate y");
}

TEST_F(HugeNumbersTest, RotateLeavesAPositionThatTheCentreTakesBeyondAllNumbers) {
    // The centre's X is -7.5e307, so the first vertex is 2.25e308 from it.
    loadVertices({{kHuge, 1, 0}, {-kHuge, 1, 0}, {-kHuge, 1, 0}, {-kHuge, 1, 0}});
    select({1, 2, 3, 4});
    const Positions before = positions();
    double angle = 45;
    rotateSelection(editor, angle, Axis::Z);
    EXPECT_EQ(positions(), before);
}

TEST_F(HugeNumbersTest, RotateLeavesANormalWhoseLengthIsNoNumber) {
    loadVertices({{1, 2, 3}});
    vertex(1).normal = {kHuge, kHuge, 5};
    select({1});
    double angle = 90;
    rotateSelection(editor, angle, Axis::Z);
    EXPECT_EQ(vertex(1).normal, (Triple{kHuge, kHuge, 5}));
}

TEST_F(HugeNumbersTest, MoveLeavesACoordinateAloneWhereTheOthersMove) {
    loadVertices({{kHuge, 1, -kHuge}, {0, 2, kHuge}});
    select({1, 2});
    moveSelection(editor, {kHuge, 1, 0});
    EXPECT_EQ(positions(), (Positions{{kHuge, 2, -kHuge}, {kHuge, 3, kHuge}}));
}

TEST_F(HugeNumbersTest, AScaleWhoseFactorIsNoNumberOrNothingChangesNothing) {
    loadVertices({{1, 2, 3}, {5, 7, 9}});
    select({1, 2});
    const Positions before = positions();
    // The square of 1e200 is no number: the factor would be infinite or, shrinking, zero.
    for (const auto& [a, b] : {std::pair(1e200, 0.0), std::pair(0.0, 1e200),
                               std::pair(kInfinity, 0.0), std::pair(0.0, kInfinity)}) {
        scaleSelection(editor, a, b);
        EXPECT_EQ(positions(), before) << a << ' ' << b;
    }
}

TEST_F(HugeNumbersTest, AScaleLeavesACoordinateThatItWouldTakeBeyondAllNumbers) {
    loadVertices({{kHuge, 0, 0}, {-kHuge, 34, 0}});
    select({1, 2});
    scaleSelection(editor, 100, 0);  // by 17/12 about (0, 17, 0)
    EXPECT_EQ(vertex(1).pos[0], kHuge);
    EXPECT_EQ(vertex(2).pos[0], -kHuge);
    EXPECT_NEAR(vertex(1).pos[1], -7.083333, 5e-7);
    EXPECT_NEAR(vertex(2).pos[1], 41.083333, 5e-7);
}

TEST_F(HugeNumbersTest, ADirectionWhoseLengthIsNoNumberPointsAlongX) {
    EXPECT_EQ(normalise({kHuge, 0, 0}), (Triple{1, 0, 0}));
    EXPECT_EQ(normalise({0, -1e200, 0}), (Triple{1, 0, 0}));
    EXPECT_EQ(normalise({0, -1e100, 0}), (Triple{0, -1, 0}));
    EXPECT_EQ(normalise({0, 0, 0}), (Triple{1, 0, 0}));
}

}  // namespace
}  // namespace corvane
