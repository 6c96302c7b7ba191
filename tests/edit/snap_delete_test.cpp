#include "edit/commands/tools.h"
#include "edit/undo_history.h"
#include "editor_fixture.h"
#include "test_commands.h"

namespace corvane {
namespace {

class SnapDeleteTest : public EditorTest {
protected:
    SnapDeleteTest() {
        loadVertices({{0, 0, 0}, {4, 2, -6}, {100, 100, 100}, {7, 8, 9}});
        addFace(0, 1, 2);
        vertex(1).normal = {0, 0, 1};
    }

    const UndoRecord& newest() const { return editor.undo.slots.front(); }
};

TEST_F(SnapDeleteTest, SnapPutsTheSelectionOnItsCentre) {
    select({1, 2});
    const std::vector<FaceRecord> faces = store().Faces;
    snapSelection(editor);
    EXPECT_EQ(vertex(1).pos, (Triple{2, 1, -3}));
    EXPECT_EQ(vertex(2).pos, (Triple{2, 1, -3}));
    EXPECT_EQ(vertex(3).pos, (Triple{100, 100, 100}));
    EXPECT_EQ(vertex(1).normal, (Triple{0, 0, 1}));
    EXPECT_EQ(store().Vertices.size(), 4U);  // they only coincide
    EXPECT_EQ(store().Faces, faces);
}

TEST_F(SnapDeleteTest, SnapMovesDeletedVerticesButLeavesThemOutOfTheCentre) {
    select({1, 2, 3});
    vertex(3).deleted = true;
    snapSelection(editor);
    EXPECT_EQ(vertex(1).pos, (Triple{2, 1, -3}));
    EXPECT_EQ(vertex(3).pos, (Triple{2, 1, -3}));
    EXPECT_TRUE(vertex(3).deleted);
}

TEST_F(SnapDeleteTest, SnapGoesByNoAxisLock) {
    editor.modes.activeX = editor.modes.activeY = editor.modes.activeZ = false;
    select({1, 2});
    snapSelection(editor);
    EXPECT_EQ(vertex(1).pos, (Triple{2, 1, -3}));
}

TEST_F(SnapDeleteTest, SnapRecordsTheVerticesAndIsUndone) {
    select({1, 2});
    const Geoset before = store();
    snapSelection(editor);
    EXPECT_EQ(newest().name, "Snap");
    ASSERT_NE(newest().vertices, nullptr);
    EXPECT_EQ(*newest().vertices, before.Vertices);
    EXPECT_EQ(newest().faces, nullptr);
    EXPECT_EQ(newest().selection, nullptr);
    EXPECT_EQ(newest().numbers, (Triple{0, 0, 0}));
    undoLast(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
}

TEST_F(SnapDeleteTest, SnapOfNothingChangesNothing) {
    const Geoset before = store();
    snapSelection(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
    EXPECT_EQ(newest().name, "Snap");
}

TEST_F(SnapDeleteTest, DeleteFlagsTheSelectionAndLeavesItSelected) {
    select({2, 3});
    const std::vector<FaceRecord> faces = store().Faces;
    deleteSelection(editor);
    EXPECT_FALSE(vertex(1).deleted);
    EXPECT_TRUE(vertex(2).deleted);
    EXPECT_TRUE(vertex(3).deleted);
    EXPECT_TRUE(vertex(2).selected);
    EXPECT_EQ(vertex(2).pos, (Triple{4, 2, -6}));
    EXPECT_EQ(store().Vertices.size(), 4U);
    EXPECT_EQ(store().Faces, faces);
}

TEST_F(SnapDeleteTest, DeleteRecordsNoCopiesAndIsUndone) {
    select({2, 3});
    const Geoset before = store();
    deleteSelection(editor);
    EXPECT_EQ(newest().name, "Delete");
    EXPECT_EQ(newest().vertices, nullptr);
    EXPECT_EQ(newest().faces, nullptr);
    EXPECT_EQ(newest().selection, nullptr);
    EXPECT_EQ(newest().numbers, (Triple{0, 0, 0}));
    undoLast(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
}

TEST_F(SnapDeleteTest, UndoOfDeleteAlsoRestoresSelectedVerticesThatWereDeletedBefore) {
    vertex(2).deleted = true;
    select({2, 3});
    deleteSelection(editor);
    undoLast(editor);
    EXPECT_FALSE(vertex(2).deleted);
    EXPECT_FALSE(vertex(3).deleted);
}

TEST_F(SnapDeleteTest, DeleteOfNothingStillRecordsAStep) {
    const Geoset before = store();
    deleteSelection(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
    EXPECT_EQ(newest().name, "Delete");
    undoLast(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
}

TEST_F(SnapDeleteTest, BothRedrawAllViews) {
    select({1});
    snapSelection(editor);
    EXPECT_EQ(front.primitives().size(), 9U);  // two axis marks, three edges, four vertices
    deleteSelection(editor);
    EXPECT_EQ(front.primitives().size(), 5U);  // one vertex less, and with it the face
    EXPECT_EQ(top.primitives().size(), 5U);
    EXPECT_EQ(left.primitives().size(), 5U);
}

TEST_F(SnapDeleteTest, BeforeAModelIsLoadedNothingHappens) {
    store() = {};
    snapSelection(editor);
    deleteSelection(editor);
    EXPECT_FALSE(newest().valid);
    EXPECT_TRUE(front.primitives().empty());
}

}  // namespace
}  // namespace corvane
