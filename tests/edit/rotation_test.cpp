// Rotating the selection.
#include <cmath>

#include "edit/commands/drag_transforms.h"
#include "edit/transforms.h"
#include "edit/undo_history.h"
#include "editor_fixture.h"
#include "test_commands.h"

namespace corvane {
namespace {

constexpr double kTolerance = 1e-9;

class RotationTest : public EditorTest {
protected:
    void rotate(double angle, Axis axis) { rotateSelection(editor, angle, axis); }

    static void expectNear(const Triple& actual, const Triple& expected) {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(actual[i], expected[i], kTolerance) << "slot " << i;
        }
    }

    /// Two vertices at `offset` on both sides of (10, 20, 30), both selected.
    void loadPair(const Triple& offset) {
        loadVertices({{10 + offset[0], 20 + offset[1], 30 + offset[2]},
                      {10 - offset[0], 20 - offset[1], 30 - offset[2]}});
        select({1, 2});
    }
};

TEST_F(RotationTest, AboutZTurnsFromXTowardsY) {
    loadPair({3, 4, 5});
    rotate(180, Axis::Z);  // a quarter turn: half of what is handed in
    expectNear(vertex(1).pos, {6, 23, 35});
    expectNear(vertex(2).pos, {14, 17, 25});
}

TEST_F(RotationTest, AboutXTurnsFromZTowardsY) {
    loadPair({3, 4, 5});
    rotate(180, Axis::X);
    expectNear(vertex(1).pos, {13, 25, 26});
    expectNear(vertex(2).pos, {7, 15, 34});
}

TEST_F(RotationTest, AboutYTurnsFromXTowardsZ) {
    loadPair({3, 4, 5});
    rotate(180, Axis::Y);
    expectNear(vertex(1).pos, {5, 24, 33});
    expectNear(vertex(2).pos, {15, 16, 27});
}

TEST_F(RotationTest, OtherAnglesByHand) {
    loadPair({1, 1, 0});
    rotate(90, Axis::Z);  // 45 degrees: onto the Y axis, at the distance sqrt(2)
    expectNear(vertex(1).pos, {10, 21.414213562373, 30});
    loadPair({2, 0, 0});
    rotate(-120, Axis::Z);  // 60 degrees backwards: (cos, sin) = (0.5, -0.866025...)
    expectNear(vertex(1).pos, {11, 18.267949192431, 30});
}

TEST_F(RotationTest, TheAngleIsHalvedInPlace) {
    loadPair({1, 0, 0});
    double angle = 90;
    rotateSelection(editor, angle, Axis::Z);
    EXPECT_EQ(angle, 45);
    rotateSelected(store(), angle, Axis::Z);
    EXPECT_EQ(angle, 22.5);
}

TEST_F(RotationTest, TheStepKeepsTheAngleAsItWasHandedInAndNamesTheAxis) {
    loadPair({1, 0, 0});
    for (const auto& [axis, name] : {std::pair{Axis::X, "Rotate x"}, std::pair{Axis::Y, "Rotate y"},
                                     std::pair{Axis::Z, "Rotate z"}}) {
        rotate(90, axis);
        const UndoRecord& step = editor.undo.slots.front();
        EXPECT_EQ(step.name, name);
        EXPECT_EQ(step.numbers, (Triple{90, 0, 0}));
        EXPECT_EQ(step.vertices, nullptr);
        EXPECT_EQ(step.faces, nullptr);
        EXPECT_EQ(step.selection, nullptr);
    }
}

TEST_F(RotationTest, NormalsTurnAboutTheOriginWithoutTheCentre) {
    const auto turned = [&](const Triple& normal, Axis axis) {
        loadPair({1, 1, 1});
        vertex(1).normal = normal;
        rotate(180, axis);
        return vertex(1).normal;
    };
    expectNear(turned({3, 4, 5}, Axis::Z), {-4, 3, 5});
    expectNear(turned({3, 4, 5}, Axis::X), {3, 5, -4});
    expectNear(turned({3, 4, 5}, Axis::Y), {-5, 4, 3});
    // Their length stays; it is not made 1.
    expectNear(turned({0.5, 0, 0}, Axis::Z), {0, 0.5, 0});
}

TEST_F(RotationTest, APointWithVZeroCountsAsLyingAtNinetyDegrees) {
    // About Z, v is X: both vertices have v = 0, one above and one below the centre.
    loadPair({0, 5, 1});
    rotate(0, Axis::Z);
    expectNear(vertex(1).pos, {10, 25, 31});
    expectNear(vertex(2).pos, {10, 25, 29});  // was at 15, is mirrored
    loadPair({0, 5, 1});
    rotate(180, Axis::Z);
    expectNear(vertex(1).pos, {5, 20, 31});
    expectNear(vertex(2).pos, {5, 20, 29});
}

TEST_F(RotationTest, TheRuleForVZeroHoldsOnEveryAxisAndForNormals) {
    loadPair({1, 5, 0});  // about X, v is Z and u is Y
    rotate(0, Axis::X);
    expectNear(vertex(2).pos, {9, 25, 30});
    loadPair({0, 1, 5});  // about Y, v is X and u is Z
    rotate(0, Axis::Y);
    expectNear(vertex(2).pos, {10, 19, 35});
    loadPair({1, 1, 1});
    vertex(1).normal = {0, -1, 0};
    rotate(0, Axis::Z);
    expectNear(vertex(1).normal, {0, 1, 0});
}

TEST_F(RotationTest, PointsWithNegativeVStayOnTheirSide) {
    loadVertices({{-3, -4, 0}, {3, 4, 0}, {-3, 4, 0}, {3, -4, 0}, {-5, 0, 0}, {5, 0, 0}});
    select({1, 2, 3, 4, 5, 6});
    rotate(0, Axis::Z);
    expectNear(vertex(1).pos, {-3, -4, 0});
    expectNear(vertex(3).pos, {-3, 4, 0});
    expectNear(vertex(4).pos, {3, -4, 0});
    expectNear(vertex(5).pos, {-5, 0, 0});
}

TEST_F(RotationTest, ItUsesTheShortenedConstantForPi) {
    // A quarter turn of (1, 0) ends at cos(3.14159265358 / 2) = 4.8966e-12, not at 6e-17.
    loadVertices({{1, 0, 0}, {-1, 0, 0}});
    select({1, 2});
    rotate(180, Axis::Z);
    EXPECT_NEAR(vertex(1).pos[0], 4.8966e-12, 1e-15);
    EXPECT_NEAR(vertex(1).pos[1], 1, 1e-15);
}

TEST_F(RotationTest, AxisLocksDoNotHoldItBack) {
    loadPair({3, 4, 5});
    editor.modes.activeX = editor.modes.activeY = editor.modes.activeZ = false;
    rotate(180, Axis::Z);
    expectNear(vertex(1).pos, {6, 23, 35});
}

TEST_F(RotationTest, DeletedVerticesTurnButDoNotCountTowardsTheCentre) {
    loadVertices({{-3, -4, 0}, {3, 4, 0}, {100, 50, 7}});
    select({1, 2, 3});
    vertex(3).deleted = true;
    rotate(180, Axis::Z);
    expectNear(vertex(2).pos, {-4, 3, 0});
    expectNear(vertex(3).pos, {-50, 100, 7});
}

TEST_F(RotationTest, UnselectedVerticesStay) {
    loadPair({3, 4, 5});
    select({1});
    vertex(2).normal = {1, 2, 3};
    const VertexRecord before = vertex(2);
    rotate(90, Axis::Z);
    EXPECT_EQ(vertex(2), before);
}

TEST_F(RotationTest, ASingleVertexStaysWhereItIsAndOnlyItsNormalTurns) {
    loadPair({3, 4, 5});
    select({1});
    vertex(1).normal = {1, 0, 0};
    rotate(180, Axis::Z);
    expectNear(vertex(1).pos, {13, 24, 35});
    expectNear(vertex(1).normal, {0, 1, 0});
}

TEST_F(RotationTest, IsUndone) {
    for (const Axis axis : {Axis::X, Axis::Y, Axis::Z}) {
        SCOPED_TRACE(letterOf(axis));
        loadVertices({{1, 2, 3}, {-4, 7, 9}, {3, -3, 5}});
        select({1, 2, 3});
        vertex(1).normal = {0.6, 0.7, 0.2};
        const std::size_t turned = axis == Axis::X ? 1 : 0;  // a slot that this axis turns
        const double before = vertex(2).pos[turned];
        rotate(77, axis);
        EXPECT_GT(std::abs(vertex(2).pos[turned] - before), 0.1);
        undoLast(editor);
        expectNear(vertex(1).pos, {1, 2, 3});
        expectNear(vertex(2).pos, {-4, 7, 9});
        expectNear(vertex(3).pos, {3, -3, 5});
        expectNear(vertex(1).normal, {0.6, 0.7, 0.2});
        EXPECT_FALSE(editor.undo.slots.front().valid);
    }
}

TEST_F(RotationTest, WhereEverySelectedVertexIsDeletedItTurnsAboutTheOrigin) {
    loadVertices({{3, 4, 1}});
    select({1});
    vertex(1).deleted = true;
    rotate(180, Axis::Z);
    expectNear(vertex(1).pos, {-4, 3, 1});
}

}  // namespace
}  // namespace corvane
