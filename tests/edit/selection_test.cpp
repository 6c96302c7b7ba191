#include "edit/selection.h"

#include "edit/commands/tools.h"
#include "edit/undo_history.h"
#include "editor_fixture.h"
#include "test_commands.h"

namespace corvane {
namespace {

class SelectionTest : public EditorTest {
protected:
    std::vector<bool> selection() const {
        std::vector<bool> flags;
        for (const VertexRecord& vertex : editor.store.Vertices) flags.push_back(vertex.selected);
        return flags;
    }

    const UndoRecord& newest() const { return editor.undo.slots.front(); }
};

TEST_F(SelectionTest, CentreIsTheMeanAndLeavesOutDeletedVertices) {
    loadVertices({{1, 0, 0}, {4, 3, 0}, {100, 100, 100}});
    select({1, 2, 3});
    vertex(3).deleted = true;
    EXPECT_EQ(selectionCentre(store()), (Triple{2.5, 1.5, 0}));
    EXPECT_EQ(numSelVerts(store()), 3);
}

TEST_F(SelectionTest, CentreIsTheMeanAndNotTheMiddleOfTheBounds) {
    loadVertices({{0, 0, 0}, {0, 1, 0}, {9, 2, -3}, {50, 50, 50}});
    select({1, 2, 3});
    EXPECT_EQ(selectionCentre(store(), Axis::X), 3);
    EXPECT_EQ(selectionCentre(store(), Axis::Y), 1);
    EXPECT_EQ(selectionCentre(store(), Axis::Z), -1);
}

TEST_F(SelectionTest, CentreOfNothingIsZero) {
    loadVertices({{1, 2, 3}});
    EXPECT_EQ(selectionCentre(store()), (Triple{0, 0, 0}));
    select({1});
    vertex(1).deleted = true;
    EXPECT_EQ(selectionCentre(store()), (Triple{0, 0, 0}));
    EXPECT_EQ(numSelVerts(store()), 1);
}

TEST_F(SelectionTest, TheCountIncludesDeletedVerticesAndNeedsAModel) {
    loadVertices({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    EXPECT_EQ(numSelVerts(store()), 0);
    select({1, 3});
    vertex(3).deleted = true;
    EXPECT_EQ(numSelVerts(store()), 2);
    store().modelLoaded = false;
    EXPECT_EQ(numSelVerts(store()), 0);
}

TEST_F(SelectionTest, SelectAllSelectsDeletedVerticesToo) {
    loadVertices({{0, 0, 0}, {1, 1, 1}, {2, 2, 2}});
    select({2});
    vertex(3).deleted = true;
    selectAll(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{true, true, true}));
    EXPECT_EQ(newest().name, "Select All");
    undoLast(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{false, true, false}));
}

TEST_F(SelectionTest, InvertTurnsEveryFlagDeletedVerticesIncluded) {
    loadVertices({{0, 0, 0}, {1, 1, 1}, {2, 2, 2}, {3, 3, 3}});
    select({1, 4});
    vertex(3).deleted = vertex(4).deleted = true;
    invertSelection(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{false, true, true, false}));
    EXPECT_EQ(newest().name, "Invert Selection");
    undoLast(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{true, false, false, true}));
}

TEST_F(SelectionTest, InvertingTwiceRestoresTheSelection) {
    loadVertices({{0, 0, 0}, {1, 1, 1}, {2, 2, 2}});
    select({2});
    invertSelection(editor);
    invertSelection(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{false, true, false}));
}

TEST_F(SelectionTest, BothKeepTheSelectionInTheirStepAndRedraw) {
    loadVertices({{0, 0, 0}, {1, 1, 1}});
    select({2});
    const auto expectStep = [&](const std::vector<bool>& kept) {
        ASSERT_NE(newest().selection, nullptr);
        EXPECT_EQ(*newest().selection, kept);
        EXPECT_EQ(newest().vertices, nullptr);
        EXPECT_EQ(newest().faces, nullptr);
        EXPECT_EQ(newest().numbers, (Triple{0, 0, 0}));
    };
    selectAll(editor);
    expectStep({false, true});
    ASSERT_EQ(left.primitives().size(), 4U);  // two axis marks, two vertices
    EXPECT_EQ(left.primitives()[2].colour, kRed);
    invertSelection(editor);
    expectStep({true, true});
    EXPECT_NE(left.primitives()[2].colour, kRed);
}

TEST_F(SelectionTest, BeforeAModelIsLoadedNothingHappens) {
    store().Vertices.resize(2);
    selectAll(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{false, false}));
    invertSelection(editor);
    EXPECT_EQ(selection(), (std::vector<bool>{false, false}));
    EXPECT_FALSE(newest().valid);
    EXPECT_TRUE(front.primitives().empty());
}

}  // namespace
}  // namespace corvane
