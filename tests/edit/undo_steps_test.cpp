// What undoing does with a step of each name.
#include "edit/commands/drag_transforms.h"
#include "edit/transforms.h"
#include "edit/undo_history.h"
#include "editor_fixture.h"
#include "test_commands.h"
#include "views/commands/view_commands.h"

namespace corvane {
namespace {

/// Two faces over four vertices, and a store that differs from it in every field.
class UndoStepsTest : public EditorTest {
protected:
    UndoStepsTest() {
        loadVertices({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}});
        addFace(0, 1, 2);
        addFace(0, 2, 3);
        for (int i = 1; i <= 4; ++i) {
            vertex(i).normal = {0, 0, 1};
            vertex(i).tu = 0.25 * i;
            vertex(i).tv = 0.5 * i;
            vertex(i).group = static_cast<std::int16_t>(i);
        }
        select({1, 3});
        store().matrixGroups = {{0, -1, -1, -1, -1, -1, -1}};
    }

    /// Changes every field of every record, and adds a vertex and a face.
    void changeEverything() {
        for (VertexRecord& vertex : store().Vertices) {
            vertex.pos = {-1, -2, -3};
            vertex.normal = {1, 0, 0};
            vertex.tu = 9;
            vertex.tv = 8;
            vertex.group = 7;
            vertex.selected = !vertex.selected;
            vertex.deleted = true;
        }
        store().Vertices.emplace_back();
        store().Faces[0].corner = {3, 3, 3};
        store().Faces[1].deleted = true;
        addFace(4, 4, 4);
    }

    std::vector<bool> selection() const {
        std::vector<bool> flags;
        for (const VertexRecord& vertex : editor.store.Vertices) flags.push_back(vertex.selected);
        return flags;
    }

    void expectPosition(int number, const Triple& expected) {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(vertex(number).pos[i], expected[i], 1e-9)
                << "vertex " << number << ", slot " << i;
        }
    }
};

TEST_F(UndoStepsTest, SelectionStepsPutTheSelectionBackAndNothingElse) {
    for (const char* name : {"Select All", "Invert Selection", "Selection"}) {
        SCOPED_TRACE(name);
        select({1, 3});
        pushUndo(editor, {.keepSelection = true}, {}, name);
        select({2});
        vertex(2).pos = {7, 7, 7};
        vertex(1).deleted = true;
        undoLast(editor);
        EXPECT_EQ(selection(), (std::vector<bool>{true, false, true, false}));
        EXPECT_EQ(vertex(2).pos, (Triple{7, 7, 7}));
        EXPECT_TRUE(vertex(1).deleted);
    }
}

TEST_F(UndoStepsTest, VertexStepsPutTheVerticesBackAndLeaveTheFaces) {
    for (const char* name : {"Align", "Set Coordinates", "Recalculate Normals",
                             "Assign Vertex Group", "Snap", "Mirror", "Snap Normals"}) {
        SCOPED_TRACE(name);
        const std::vector<VertexRecord> before = store().Vertices;
        pushUndo(editor, {.keepVertices = true}, {}, name);
        for (VertexRecord& vertex : store().Vertices) {
            vertex = {.pos = {1, 2, 3}, .normal = {4, 5, 6}, .tu = 7, .tv = 8, .group = 9};
        }
        const std::vector<FaceRecord> faces = {{.corner = {3, 2, 1}, .deleted = true}};
        store().Faces = faces;
        undoLast(editor);
        EXPECT_EQ(store().Vertices, before);
        EXPECT_EQ(store().Faces, faces);
    }
}

TEST_F(UndoStepsTest, StepsThatChangeBothListsPutBothBack) {
    for (const char* name : {"Clone", "Weld", "Extrude", "Merge"}) {
        SCOPED_TRACE(name);
        const Geoset before = store();
        pushUndo(editor, {.keepFaces = true, .keepVertices = true}, {}, name);
        changeEverything();
        undoLast(editor);
        EXPECT_EQ(static_cast<const Geoset&>(store()), before);
    }
}

TEST_F(UndoStepsTest, DeleteFacePutsTheFacesBackAndLeavesTheVertices) {
    const std::vector<FaceRecord> before = store().Faces;
    pushUndo(editor, {.keepFaces = true}, {}, "Delete Face");
    store().Faces[0].deleted = true;
    vertex(1).pos = {7, 7, 7};
    select({2});
    undoLast(editor);
    EXPECT_EQ(store().Faces, before);
    EXPECT_EQ(vertex(1).pos, (Triple{7, 7, 7}));
    EXPECT_EQ(selection(), (std::vector<bool>{false, true, false, false}));
}

TEST_F(UndoStepsTest, DeleteClearsTheFlagOfWhatIsSelectedNow) {
    vertex(1).deleted = true;
    vertex(2).deleted = true;
    pushUndo(editor, {}, {}, "Delete");
    select({2, 3});
    undoLast(editor);
    EXPECT_TRUE(vertex(1).deleted);
    EXPECT_FALSE(vertex(2).deleted);
    EXPECT_FALSE(vertex(3).deleted);
    EXPECT_EQ(selection(), (std::vector<bool>{false, true, true, false}));
}

TEST_F(UndoStepsTest, ADeletedAndRestoredVertexIsTheSameRecordAgain) {
    const Geoset before = store();
    vertex(1).deleted = vertex(3).deleted = true;
    pushUndo(editor, {}, {}, "Delete");
    undoLast(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
}

TEST_F(UndoStepsTest, MoveMovesWhatIsSelectedNowByTheNegatedDeltas) {
    pushUndo(editor, {}, {1, 2, 3}, "Move");
    select({2});
    undoLast(editor);
    expectPosition(1, {0, 0, 0});
    expectPosition(2, {3, -2, -3});
}

TEST_F(UndoStepsTest, MoveGoesByTheAxesThatAreActiveNow) {
    pushUndo(editor, {}, {1, 2, 3}, "Move");
    editor.modes.activeY = false;
    undoLast(editor);
    expectPosition(1, {-1, 0, -3});
}

TEST_F(UndoStepsTest, RotateTurnsByHalfTheNegatedAngleAboutTheAxisInTheName) {
    // Vertices 1 and 3 lie at (-2, -2, -1) and (2, 2, 1) from their centre.
    vertex(1).pos = {-2, -2, -1};
    vertex(3).pos = {2, 2, 1};
    const auto undoRotation = [&](const char* name) {
        vertex(3).pos = {2, 2, 1};
        vertex(1).pos = {-2, -2, -1};
        pushUndo(editor, {}, {180, 0, 0}, name);
        undoLast(editor);
    };
    // A quarter turn backwards.
    undoRotation("Rotate z");
    expectPosition(3, {2, -2, 1});
    expectPosition(1, {-2, 2, -1});
    undoRotation("Rotate y");
    expectPosition(3, {1, 2, -2});
    undoRotation("Rotate x");
    expectPosition(3, {2, -1, 2});
}

TEST_F(UndoStepsTest, ScaleScalesByTheNegatedNumbers) {
    // Vertices 1 and 3: centre (2, 2, 0). A factor of 1.416667 was recorded; its reciprocal is
    // 0.705882, and 2 * 0.705882 = 1.411765.
    pushUndo(editor, {}, {100, 0, 0}, "Scale");
    undoLast(editor);
    EXPECT_NEAR(vertex(1).pos[0], 0.588235, 1e-6);
    EXPECT_NEAR(vertex(1).pos[1], 0.588235, 1e-6);
    EXPECT_NEAR(vertex(3).pos[0], 3.411765, 1e-6);
    EXPECT_EQ(vertex(3).pos[2], 0);
}

TEST_F(UndoStepsTest, SetActiveAxesActivatesExactlyTheAxesRecordedAsOne) {
    pushUndo(editor, {}, {0.999999, 1, -1}, "Set Active Axes");
    editor.modes.activeY = false;
    int updates = 0;
    window.onUpdateButtons = [&] { ++updates; };
    undoLast(editor);
    EXPECT_FALSE(editor.modes.activeX);
    EXPECT_TRUE(editor.modes.activeY);
    EXPECT_FALSE(editor.modes.activeZ);
    EXPECT_GT(updates, 0);
}

TEST_F(UndoStepsTest, ARecordWithoutAStepChangesNothing) {
    for (const char* name : {"", "move", "Moved", "weld", "Delete Faces", "rotate z"}) {
        SCOPED_TRACE(name);
        UndoRecord& record = editor.undo.slots.front();
        record.valid = true;
        record.name = name;
        record.numbers = {1, 1, 1};
        const Geoset before = store();
        const ToolModes modes = editor.modes;
        undoLast(editor);
        EXPECT_EQ(static_cast<const Geoset&>(store()), before);
        EXPECT_EQ(editor.modes.activeX, modes.activeX);
        EXPECT_FALSE(editor.undo.slots.front().valid);
    }
}

TEST_F(UndoStepsTest, ASelectionCopyOfAnotherLengthIsTakenAsFarAsItGoes) {
    pushUndo(editor, {.keepSelection = true}, {}, "Selection");  // vertices 1 and 3
    select({2, 4});
    store().Vertices.push_back({.selected = true});
    undoLast(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{true, false, true, false, true}));

    pushUndo(editor, {.keepSelection = true}, {}, "Selection");
    store().Faces.clear();
    loadVertices({{0, 0, 0}, {1, 1, 1}});
    undoLast(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{true, false}));
}

TEST_F(UndoStepsTest, AStepWithoutTheCopiesOfItsNameLeavesTheListsAsTheyAre) {
    for (const char* name : {"Selection", "Snap", "Weld", "Delete Face"}) {
        SCOPED_TRACE(name);
        const Geoset before = store();
        pushUndo(editor, stepNamed(name));
        UndoRecord& record = editor.undo.slots.front();
        record.selection = nullptr;
        record.vertices = nullptr;
        record.faces = nullptr;
        undoLast(editor);
        EXPECT_EQ(static_cast<const Geoset&>(store()), before);
    }
}

TEST_F(UndoStepsTest, StepsAreUndoneNewestFirst) {
    const Geoset before = store();
    moveSelection(editor, {1, 2, 4});
    pushUndo(editor, {.keepSelection = true}, {}, "Selection");
    select({2});
    moveSelection(editor, {8, 0, 0});
    toggleActive(editor, Axis::X);
    moveSelection(editor, {16, 1, 0});
    expectPosition(2, {12, 1, 0});
    for (int i = 0; i < 5; ++i) undoLast(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
    EXPECT_TRUE(editor.modes.activeX);
    EXPECT_FALSE(editor.undo.slots.front().valid);
}

}  // namespace
}  // namespace corvane
