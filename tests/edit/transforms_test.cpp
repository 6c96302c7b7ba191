// Moving, scaling and what the three drag transforms have in common. Rotation has a file of its
// own.
#include "edit/transforms.h"

#include <cmath>
#include <limits>

#include "edit/commands/drag_transforms.h"
#include "edit/undo_history.h"
#include "editor/run_edit.h"
#include "editor_fixture.h"
#include "test_commands.h"
#include "views/ortho_view.h"

namespace corvane {
namespace {

class TransformsTest : public EditorTest {
protected:
    const UndoRecord& newest() const { return editor.undo.slots.front(); }

    void expectPosition(int number, const Triple& expected, double tolerance) {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(vertex(number).pos[i], expected[i], tolerance)
                << "vertex " << number << ", slot " << i;
        }
    }

    /// One refresh of the buttons, and what could be seen at that moment.
    struct Seen {
        bool recorded;
        bool changed;
        bool drawn;

        bool operator==(const Seen&) const = default;
    };

    /// Runs a transform of vertex 1 and keeps what each refresh of the buttons saw.
    template <class F>
    std::vector<Seen> refreshesOf(F run) {
        loadVertices({{3, 4, 0}, {0, 0, 0}});
        select({1, 2});
        redrawAll(editor);
        const std::vector<Primitive> drawnBefore = front.primitives();
        const Triple positionBefore = vertex(1).pos;
        std::vector<Seen> seen;
        window.onUpdateButtons = [&] {
            seen.push_back({newest().valid, vertex(1).pos != positionBefore,
                            front.primitives() != drawnBefore});
        };
        run();
        window.onUpdateButtons = nullptr;
        return seen;
    }
};

TEST_F(TransformsTest, MoveAddsTheDeltasToSelectedVerticesDeletedOnesIncluded) {
    loadVertices({{1, 2, 3}, {10, 20, 30}, {5, 5, 5}});
    for (int i = 1; i <= 3; ++i) vertex(i).normal = {0, 0, 1};
    select({1, 2});
    vertex(2).deleted = true;
    moveSelection(editor, {0.5, -2, 4});
    EXPECT_EQ(vertex(1).pos, (Triple{1.5, 0, 7}));
    EXPECT_EQ(vertex(2).pos, (Triple{10.5, 18, 34}));
    EXPECT_EQ(vertex(3).pos, (Triple{5, 5, 5}));
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(vertex(i).normal, (Triple{0, 0, 1}));
}

TEST_F(TransformsTest, MoveChangesActiveAxesOnly) {
    const auto movedWith = [&](bool x, bool y, bool z) {
        loadVertices({{10, 20, 30}});
        select({1});
        editor.modes.activeX = x;
        editor.modes.activeY = y;
        editor.modes.activeZ = z;
        moveSelection(editor, {1, 2, 3});
        return vertex(1).pos;
    };
    EXPECT_EQ(movedWith(true, false, false), (Triple{11, 20, 30}));
    EXPECT_EQ(movedWith(false, true, false), (Triple{10, 22, 30}));
    EXPECT_EQ(movedWith(false, false, true), (Triple{10, 20, 33}));
    EXPECT_EQ(movedWith(true, false, true), (Triple{11, 20, 33}));
    EXPECT_EQ(movedWith(false, false, false), (Triple{10, 20, 30}));
}

TEST_F(TransformsTest, MoveRecordsItsDeltasAndNoCopies) {
    loadVertices({{0, 0, 0}});
    editor.modes.activeX = false;  // the deltas as they came in, whatever axes are active
    moveSelection(editor, {1, 2, 3});
    EXPECT_EQ(newest().name, "Move");
    EXPECT_EQ(newest().numbers, (Triple{1, 2, 3}));
    EXPECT_EQ(newest().vertices, nullptr);
    EXPECT_EQ(newest().faces, nullptr);
    EXPECT_EQ(newest().selection, nullptr);
}

TEST_F(TransformsTest, MoveIsUndone) {
    loadVertices({{1, 2, 3}, {4, 5, 6}});
    select({2});
    moveSelection(editor, {0.5, 0.25, -8});
    EXPECT_EQ(vertex(2).pos, (Triple{4.5, 5.25, -2}));
    undoLast(editor);
    EXPECT_EQ(vertex(2).pos, (Triple{4, 5, 6}));
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));
    EXPECT_FALSE(newest().valid);
}

TEST_F(TransformsTest, TheOperationsAloneMakeNoStep) {
    loadVertices({{1, 2, 3}, {4, 5, 7}});
    select({1, 2});
    double angle = 10;
    moveSelected(store(), {1, 1, 1}, {true, true, true});
    scaleSelected(store(), 1, 0, {true, true, true});
    rotateSelected(store(), angle, Axis::X);
    EXPECT_FALSE(newest().valid);
    EXPECT_NE(vertex(1).pos, (Triple{1, 2, 3}));
}

TEST_F(TransformsTest, ATransformOfNothingStillRecordsAStepAndEndsCloneMode) {
    loadVertices({{1, 2, 3}});
    editor.modes = {.activeX = false, .activeY = false, .activeZ = false};
    select({1});
    moveSelection(editor, {1, 2, 3});
    EXPECT_EQ(newest().name, "Move");
    scaleSelection(editor, 50, 1);
    EXPECT_EQ(newest().name, "Scale");
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));

    editor.modes.cloneMode = true;
    select({});
    moveSelection(editor, {1, 2, 3});
    EXPECT_EQ(newest().name, "Clone");
    EXPECT_FALSE(editor.modes.cloneMode);
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));
    EXPECT_EQ(store().Vertices.size(), 1U);
}

TEST_F(TransformsTest, ScaleFactorsWorkedOutByHand) {
    EXPECT_EQ(scaleFactor(0, 0), 1);
    EXPECT_NEAR(scaleFactor(100, 0), 1.416667, 5e-7);   // 100 / 4 = 25, 5 / 12
    EXPECT_NEAR(scaleFactor(0, -100), 1.416667, 5e-7);  // down: a - b = 100
    EXPECT_NEAR(scaleFactor(-100, 0), 0.705882, 5e-7);
    EXPECT_NEAR(scaleFactor(0, 100), 0.705882, 5e-7);
    EXPECT_NEAR(scaleFactor(10, 10), 1.156692, 5e-7);
    EXPECT_NEAR(scaleFactor(-10, -10), 1.156692, 5e-7);  // equal deltas always enlarge
    EXPECT_NEAR(scaleFactor(4, 0), 1.083333, 5e-7);      // 1 / 12
    // (3, 4): length 5; sqrt(1.25) / 12 = 0.0931695; the reciprocal of 1.0931695
    EXPECT_NEAR(scaleFactor(3, 4), 0.914771, 5e-7);
    EXPECT_NEAR(scaleFactor(4, 3), 1.093169, 1e-6);
}

TEST_F(TransformsTest, ScaleStretchesFromTheCentreOfTheSelection) {
    // The centre of vertices 1 and 2 is (2, 10, -5).
    loadVertices({{1, 0, -5}, {3, 20, -5}, {100, 100, 100}});
    for (int i = 1; i <= 3; ++i) vertex(i).normal = {0.6, 0.8, 0};
    select({1, 2});
    scaleSelection(editor, 100, 0);
    expectPosition(1, {0.583333, -4.166667, -5}, 5e-7);
    expectPosition(2, {3.416667, 24.166667, -5}, 5e-7);
    EXPECT_EQ(vertex(3).pos, (Triple{100, 100, 100}));
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(vertex(i).normal, (Triple{0.6, 0.8, 0}));
}

TEST_F(TransformsTest, ScaleShrinksForADragToTheLeft) {
    loadVertices({{0, 0, 0}, {34, 0, -17}});
    select({1, 2});
    scaleSelection(editor, -100, 0);  // by 12/17 about (17, 0, -8.5)
    expectPosition(1, {5, 0, -2.5}, 1e-9);
    expectPosition(2, {29, 0, -14.5}, 1e-9);
}

TEST_F(TransformsTest, ScaleChangesActiveAxesOnly) {
    loadVertices({{0, 0, 0}, {34, 34, 34}});
    select({1, 2});
    editor.modes.activeX = false;
    scaleSelection(editor, -100, 0);
    expectPosition(1, {0, 5, 5}, 1e-9);
    editor.modes.activeX = true;
    editor.modes.activeY = editor.modes.activeZ = false;
    scaleSelection(editor, -100, 0);
    expectPosition(1, {5, 5, 5}, 1e-9);
}

TEST_F(TransformsTest, ScaleMovesDeletedVerticesButLeavesThemOutOfTheCentre) {
    loadVertices({{0, 0, 0}, {34, 0, 0}, {51, 17, 0}});
    select({1, 2, 3});
    vertex(3).deleted = true;
    scaleSelection(editor, -100, 0);  // by 12/17 about (17, 0, 0)
    expectPosition(1, {5, 0, 0}, 1e-9);
    expectPosition(3, {41, 12, 0}, 1e-9);
}

TEST_F(TransformsTest, ScaleByEqualZeroesChangesNothing) {
    loadVertices({{1, 2, 4}, {3, 6, 8}});
    select({1, 2});
    scaleSelection(editor, 0, 0);
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 4}));
    EXPECT_EQ(vertex(2).pos, (Triple{3, 6, 8}));
    EXPECT_EQ(newest().name, "Scale");
}

TEST_F(TransformsTest, ScaleRecordsItsTwoNumbersAndNoCopies) {
    loadVertices({{0, 0, 0}});
    scaleSelection(editor, 7, -2);
    EXPECT_EQ(newest().name, "Scale");
    EXPECT_EQ(newest().numbers, (Triple{7, -2, 0}));
    EXPECT_EQ(newest().vertices, nullptr);
    EXPECT_EQ(newest().faces, nullptr);
    EXPECT_EQ(newest().selection, nullptr);
}

TEST_F(TransformsTest, ScaleIsUndoneByTheReciprocal) {
    for (const double a : {100.0, -100.0, 0.25}) {
        SCOPED_TRACE(a);
        loadVertices({{1, -7, 3}, {5, 11, 0.5}, {2, 2, 2}});
        select({1, 2});
        scaleSelection(editor, a, 3);
        EXPECT_NE(vertex(1).pos[0], 1);
        undoLast(editor);
        expectPosition(1, {1, -7, 3}, 1e-12);
        expectPosition(2, {5, 11, 0.5}, 1e-12);
    }
}

TEST_F(TransformsTest, UndoingAScaleByEqualDeltasEnlargesOnceMore) {
    loadVertices({{-1, 0, 0}, {1, 0, 0}});
    select({1, 2});
    scaleSelection(editor, 10, 10);
    EXPECT_NEAR(vertex(2).pos[0], 1.156692, 5e-7);
    undoLast(editor);
    EXPECT_NEAR(vertex(2).pos[0], 1.337936, 5e-7);  // 1.156692 squared
    EXPECT_NEAR(vertex(1).pos[0], -1.337936, 5e-7);
}

TEST_F(TransformsTest, InCloneModeTheStepKeepsBothListsAndNoNumbers) {
    const auto run = [&](int which) {
        double angle = 30;
        if (which == 0) moveSelection(editor, {1, 2, 3});
        if (which == 1) scaleSelection(editor, 5, 1);
        if (which == 2) rotateSelection(editor, angle, Axis::Y);
    };
    for (int which = 0; which < 3; ++which) {
        SCOPED_TRACE(which);
        store() = {};
        loadVertices({{0, 0, 0}, {1, 5, 0}, {0, 1, 0}});
        addFace(0, 1, 2);
        select({1, 2, 3});
        const Geoset before = store();
        editor.modes.cloneMode = true;
        run(which);
        EXPECT_FALSE(editor.modes.cloneMode);
        EXPECT_EQ(newest().name, "Clone");
        EXPECT_EQ(newest().numbers, (Triple{0, 0, 0}));
        EXPECT_EQ(newest().selection, nullptr);
        ASSERT_NE(newest().vertices, nullptr);
        ASSERT_NE(newest().faces, nullptr);
        EXPECT_EQ(*newest().vertices, before.Vertices);
        EXPECT_EQ(*newest().faces, before.Faces);
        EXPECT_NE(static_cast<const Geoset&>(store()), before);
        undoLast(editor);
        EXPECT_EQ(static_cast<const Geoset&>(store()), before);
    }
}

TEST_F(TransformsTest, CloneModeIsOverWhenTheButtonsAreRefreshedInTheEnd) {
    loadVertices({{3, 4, 0}, {0, 0, 0}});
    std::vector<bool> seen;
    window.onUpdateButtons = [&] { seen.push_back(editor.modes.cloneMode); };
    double angle = 45;
    editor.modes.cloneMode = true;
    moveSelection(editor, {1, 2, 3});
    editor.modes.cloneMode = true;
    scaleSelection(editor, 1, 2);
    editor.modes.cloneMode = true;
    rotateSelection(editor, angle, Axis::X);
    // Each: once for the step, once in the end.
    EXPECT_EQ(seen, (std::vector<bool>{true, false, true, false, true, false}));
}

TEST_F(TransformsTest, MoveAndScaleRecordThenDrawThenRefreshTheButtons) {
    const std::vector<Seen> expected = {{.recorded = true, .changed = false, .drawn = false},
                                        {.recorded = true, .changed = true, .drawn = true}};
    EXPECT_EQ(refreshesOf([&] { moveSelection(editor, {1, 2, 3}); }), expected);
    EXPECT_EQ(refreshesOf([&] { scaleSelection(editor, 9, 3); }), expected);
}

TEST_F(TransformsTest, RotateRefreshesTheButtonsBeforeItDraws) {
    const std::vector<Seen> expected = {{.recorded = true, .changed = false, .drawn = false},
                                        {.recorded = true, .changed = true, .drawn = false}};
    double angle = 90;
    EXPECT_EQ(refreshesOf([&] { rotateSelection(editor, angle, Axis::Z); }), expected);
    const std::vector<Primitive> drawn = front.primitives();
    redrawAll(editor);
    EXPECT_EQ(front.primitives(), drawn);  // it did draw in the end
}

TEST_F(TransformsTest, NothingIsRecordedOrDrawnBeforeAModelIsLoaded) {
    double angle = 45;
    moveSelection(editor, {1, 2, 3});
    scaleSelection(editor, 1, 2);
    rotateSelection(editor, angle, Axis::Y);
    EXPECT_FALSE(newest().valid);
    EXPECT_TRUE(front.primitives().empty());
    EXPECT_TRUE(store().Vertices.empty());
}

}  // namespace
}  // namespace corvane
