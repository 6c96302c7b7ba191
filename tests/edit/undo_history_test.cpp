// How steps move through the history's slots. What undoing each kind of step does is in
// undo_steps_test.cpp.
#include "edit/undo_history.h"

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/transforms.h"
#include "editor_fixture.h"
#include "test_commands.h"
#include "views/commands/view_commands.h"

namespace corvane {
namespace {

class UndoHistoryTest : public EditorTest {
protected:
    UndoHistoryTest() {
        loadVertices({{0, 0, 0}, {1, 1, 1}});
        addFace(0, 1, 0);
    }

    const UndoRecord& slot(std::size_t number) const { return editor.undo.slots.at(number - 1); }

    /// Records moves by 1, 2, ... with nothing selected, so that undoing changes nothing.
    void pushSteps(int count) {
        for (int i = 1; i <= count; ++i)
            pushUndo(editor, {}, {static_cast<double>(i), 0, 0}, "Move");
    }

    /// Which of these steps a slot holds.
    double stepIn(std::size_t number) const { return slot(number).numbers[0]; }

    void undo(int times) {
        for (int i = 0; i < times; ++i) undoLast(editor);
    }
};

TEST_F(UndoHistoryTest, EverySlotIsEmptyAtFirst) {
    for (std::size_t i = 1; i <= 40; ++i) {
        EXPECT_FALSE(slot(i).valid);
        EXPECT_EQ(slot(i).name, "");
    }
    EXPECT_EQ(editor.undo.slots.size(), 40U);
    EXPECT_EQ(undoCaption(editor.undo), "Undo");
}

TEST_F(UndoHistoryTest, AStepKeepsItsNameAndNumbers) {
    pushUndo(editor, {}, {1.5, -2, 3}, "Move");
    EXPECT_TRUE(slot(1).valid);
    EXPECT_EQ(slot(1).name, "Move");
    EXPECT_EQ(slot(1).numbers, (Triple{1.5, -2, 3}));
}

TEST_F(UndoHistoryTest, AStepKeepsTheCopiesAskedForAndNoOthers) {
    select({2});
    pushUndo(editor, {.keepSelection = true}, {}, "Selection");
    ASSERT_NE(slot(1).selection, nullptr);
    EXPECT_EQ(*slot(1).selection, (std::vector<bool>{false, true}));
    EXPECT_EQ(slot(1).vertices, nullptr);
    EXPECT_EQ(slot(1).faces, nullptr);

    pushUndo(editor, {.keepVertices = true}, {}, "Snap");
    ASSERT_NE(slot(1).vertices, nullptr);
    EXPECT_EQ(*slot(1).vertices, store().Vertices);
    EXPECT_EQ(slot(1).selection, nullptr);
    EXPECT_EQ(slot(1).faces, nullptr);

    pushUndo(editor, {.keepFaces = true}, {}, "Delete Face");
    ASSERT_NE(slot(1).faces, nullptr);
    EXPECT_EQ(*slot(1).faces, store().Faces);
    EXPECT_EQ(slot(1).selection, nullptr);
    EXPECT_EQ(slot(1).vertices, nullptr);

    pushUndo(editor, {}, {}, "Delete");
    EXPECT_EQ(slot(1).selection, nullptr);
    EXPECT_EQ(slot(1).vertices, nullptr);
    EXPECT_EQ(slot(1).faces, nullptr);
}

TEST_F(UndoHistoryTest, CopiesShowTheGeosetAsItWasAtThePush) {
    vertex(2).pos = {1, 1, 1};
    pushUndo(editor, {.keepSelection = true}, {}, "Selection");
    pushUndo(editor, {.keepFaces = true, .keepVertices = true}, {}, "Weld");
    vertex(1).pos = {9, 9, 9};
    vertex(2).selected = true;
    store().Faces.at(0).deleted = true;
    store().Vertices.emplace_back();
    EXPECT_EQ(slot(1).vertices->size(), 2U);
    EXPECT_EQ(slot(1).vertices->at(0).pos, (Triple{0, 0, 0}));
    EXPECT_EQ(*slot(2).selection, (std::vector<bool>{false, false}));
    EXPECT_FALSE(slot(1).faces->at(0).deleted);
}

TEST_F(UndoHistoryTest, ANewStepPushesTheOthersDownAndTheFortyFirstFallsOff) {
    pushSteps(45);
    for (std::size_t i = 1; i <= 40; ++i) {
        EXPECT_TRUE(slot(i).valid);
        EXPECT_EQ(stepIn(i), static_cast<double>(46 - i));
    }
}

TEST_F(UndoHistoryTest, AnUndoPullsUpTheFirstTwentySlotsOnly) {
    pushSteps(45);  // slot i holds step 46 - i
    for (int undone = 1; undone <= 25; ++undone) {
        SCOPED_TRACE(undone);
        undoLast(editor);
        for (int i = 1; i <= 20; ++i) {
            // Slot 20 goes on holding step 26, which fills the slots above it one by one.
            const int step = std::max(46 - i - undone, 26);
            EXPECT_EQ(stepIn(static_cast<std::size_t>(i)), step) << "slot " << i;
        }
        for (std::size_t i = 21; i <= 39; ++i) {
            EXPECT_EQ(stepIn(i), static_cast<double>(46 - i)) << "slot " << i;
        }
    }
}

TEST_F(UndoHistoryTest, NineteenUndosFillTheFirstTwentySlotsWithTheTwentiethNewestStep) {
    pushSteps(30);
    undo(19);
    for (std::size_t i = 1; i <= 20; ++i) EXPECT_EQ(stepIn(i), 11) << "slot " << i;
    EXPECT_EQ(stepIn(21), 10);
}

TEST_F(UndoHistoryTest, AnUndoClearsTheLastSlot) {
    for (int i = 0; i < 40; ++i) {
        pushUndo(editor, {.keepFaces = true, .keepVertices = true}, {1, 2, 3}, "Weld");
    }
    undoLast(editor);
    EXPECT_FALSE(slot(40).valid);
    EXPECT_EQ(slot(40).name, "");
    EXPECT_EQ(slot(40).numbers, (Triple{0, 0, 0}));
    EXPECT_EQ(slot(40).selection, nullptr);
    EXPECT_EQ(slot(40).vertices, nullptr);
    EXPECT_EQ(slot(40).faces, nullptr);
    EXPECT_TRUE(slot(39).valid);
}

TEST_F(UndoHistoryTest, TheLastTwoOfTwentyOneUndosBothReverseTheTwentiethNewestMove) {
    select({1});
    double step = 1;  // 1, 2, 4, ..., 2^20: every sum tells which steps are in it
    for (int i = 0; i < 21; ++i, step *= 2) moveSelection(editor, {step, 0, 0});
    EXPECT_EQ(vertex(1).pos[0], 2097151);
    undo(19);
    EXPECT_EQ(vertex(1).pos[0], 3);  // the two oldest are left
    undoLast(editor);
    EXPECT_EQ(vertex(1).pos[0], 1);
    undoLast(editor);
    EXPECT_EQ(vertex(1).pos[0], -1);
    EXPECT_EQ(undoCaption(editor.undo), "Undo Move");
}

TEST_F(UndoHistoryTest, NineteenStepsCanBeUndoneToTheEnd) {
    pushSteps(19);
    undo(18);
    EXPECT_EQ(stepIn(1), 1);
    undoLast(editor);
    EXPECT_FALSE(slot(1).valid);
    EXPECT_EQ(undoCaption(editor.undo), "Undo");
}

TEST_F(UndoHistoryTest, TwentyStepsNeverComeToAnEnd) {
    pushSteps(20);
    undo(50);
    EXPECT_TRUE(slot(1).valid);
    EXPECT_EQ(stepIn(1), 1);
}

TEST_F(UndoHistoryTest, TheCaptionNamesTheNewestStep) {
    pushUndo(editor, {.keepFaces = true, .keepVertices = true}, {}, "Weld");
    EXPECT_EQ(undoCaption(editor.undo), "Undo Weld");
    pushUndo(editor, {.keepVertices = true}, {}, "Snap");
    EXPECT_EQ(undoCaption(editor.undo), "Undo Snap");
    undoLast(editor);
    EXPECT_EQ(undoCaption(editor.undo), "Undo Weld");
}

TEST_F(UndoHistoryTest, PushingRefreshesTheButtonsWhichShowTheCaption) {
    std::string caption;
    window.onUpdateButtons = [&] { caption = undoCaption(editor.undo); };
    pushUndo(editor, {.keepFaces = true, .keepVertices = true}, {}, "Weld");
    EXPECT_EQ(caption, "Undo Weld");
    undoLast(editor);
    EXPECT_EQ(caption, "Undo");
}

TEST_F(UndoHistoryTest, NothingIsRecordedBeforeAModelIsLoaded) {
    store().modelLoaded = false;
    pushUndo(editor, {}, {1, 2, 3}, "Move");
    recordActiveAxes(editor);
    EXPECT_FALSE(slot(1).valid);
    EXPECT_EQ(slot(1).name, "");
    EXPECT_FALSE(store().isModified());
}

TEST_F(UndoHistoryTest, UndoWithAnEmptyHistoryOnlyRedraws) {
    select({1});
    const Geoset before = store();
    front.circle(0, 0, 1, kRed);  // something that a redraw clears away
    undoLast(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
    EXPECT_FALSE(slot(1).valid);
    EXPECT_FALSE(store().isModified());
    EXPECT_EQ(front.primitives().size(), 7U);  // two axis marks, three edges, two vertices
    EXPECT_EQ(top.primitives().size(), 7U);
    EXPECT_EQ(left.primitives().size(), 7U);
}

TEST_F(UndoHistoryTest, UndoBeforeAModelIsLoadedDoesNothing) {
    store() = {};
    undoLast(editor);
    EXPECT_FALSE(slot(1).valid);
    EXPECT_TRUE(front.primitives().empty());
}

TEST_F(UndoHistoryTest, AnEditThatChangesTheModelMarksItModified) {
    store().noteSaved();
    selectAll(editor);
    invertSelection(editor);
    expandSelection(editor);
    toggleActive(editor, Axis::X);
    EXPECT_FALSE(store().isModified());
    undo(4);
    EXPECT_FALSE(store().isModified());
    moveSelection(editor, {1, 0, 0});
    EXPECT_TRUE(store().isModified());
}

TEST_F(UndoHistoryTest, UndoingBackToWhatTheFileHoldsLeavesNothingToSave) {
    select({1});
    store().noteSaved();
    moveSelection(editor, {1, 0, 0});
    deleteSelection(editor);
    undoLast(editor);
    EXPECT_TRUE(store().isModified());
    undoLast(editor);
    EXPECT_FALSE(store().isModified());
}

TEST_F(UndoHistoryTest, UndoingAnEditThatWasSavedMarksTheModelModifiedAgain) {
    select({1});
    moveSelection(editor, {1, 0, 0});
    store().noteSaved();
    undoLast(editor);
    EXPECT_TRUE(store().isModified());
}

// An Undo back to the revision that was saved does not make up for what no step records, nor for a
// transform that its opposite does not take back.
TEST_F(UndoHistoryTest, WhatUndoDoesNotTakeBackIsStillToBeSaved) {
    select({1});
    store().noteSaved();
    moveSelection(editor, {1, 0, 0});
    vertex(2).tu = 0.5;
    undoLast(editor);
    EXPECT_TRUE(store().isModified());

    vertex(2).tu = 0;
    select({1, 2});
    store().noteSaved();
    scaleSelection(editor, 10, 10);
    undoLast(editor);  // enlarges once more
    EXPECT_TRUE(store().isModified());
}

TEST_F(UndoHistoryTest, ADigitThatNoSaveWritesIsNoChange) {
    vertex(1).pos = {1.1, 0, 0};
    select({1});
    store().noteSaved();
    moveSelection(editor, {15.3, 0, 0});
    undoLast(editor);
    EXPECT_NE(vertex(1).pos[0], 1.1);
    EXPECT_FALSE(store().isModified());
}

TEST_F(UndoHistoryTest, ActiveAxesAreRecordedAsOnesAndZeros) {
    editor.modes.activeY = false;
    recordActiveAxes(editor);
    EXPECT_EQ(slot(1).name, "Set Active Axes");
    EXPECT_EQ(slot(1).numbers, (Triple{1, 0, 1}));
    EXPECT_EQ(slot(1).selection, nullptr);
    EXPECT_EQ(slot(1).vertices, nullptr);
    EXPECT_EQ(slot(1).faces, nullptr);
}

TEST_F(UndoHistoryTest, ARunOfAxisTogglesIsOneStepWithTheAxesFromBeforeIt) {
    toggleActive(editor, Axis::X);
    toggleActive(editor, Axis::Y);
    toggleActive(editor, Axis::X);
    EXPECT_TRUE(slot(1).valid);
    EXPECT_FALSE(slot(2).valid);
    EXPECT_TRUE(editor.modes.activeX);
    EXPECT_FALSE(editor.modes.activeY);
    undoLast(editor);
    EXPECT_TRUE(editor.modes.activeX);
    EXPECT_TRUE(editor.modes.activeY);
    EXPECT_TRUE(editor.modes.activeZ);
    EXPECT_FALSE(slot(1).valid);
}

TEST_F(UndoHistoryTest, AnotherStepEndsARunOfAxisToggles) {
    toggleActive(editor, Axis::X);
    pushUndo(editor, {.keepSelection = true}, {}, "Selection");
    toggleActive(editor, Axis::Z);
    EXPECT_EQ(slot(1).numbers, (Triple{0, 1, 1}));
    EXPECT_EQ(slot(3).numbers, (Triple{1, 1, 1}));
    undoLast(editor);
    EXPECT_FALSE(editor.modes.activeX);
    EXPECT_TRUE(editor.modes.activeZ);
}

}  // namespace
}  // namespace corvane
