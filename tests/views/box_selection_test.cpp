#include "edit/undo_history.h"
#include "editor_fixture.h"
#include "test_commands.h"
#include "views/commands/mouse.h"

namespace corvane {
namespace {

using Flags = std::vector<bool>;

class BoxSelectionTest : public EditorTest {
protected:
    /// Selects with the box between two points on the axes of a view, model units.
    void boxFrom(View view, double h1, double v1, double h2, double v2) {
        editor.drag = {.dragStartH = h1, .dragStartV = v1, .dragEndH = h2, .dragEndV = v2};
        boxSelect(editor, axesOf(view));
    }

    Flags selection() const {
        Flags flags;
        for (const VertexRecord& vertex : editor.store.Vertices) flags.push_back(vertex.selected);
        return flags;
    }

    const UndoRecord& newest() const { return editor.undo.slots.front(); }
};

TEST_F(BoxSelectionTest, SelectModeSelectsTheInsideAndDeselectsTheOutside) {
    loadVertices({{5, 5, 0}, {5, 5, 0}, {50, 5, 0}, {50, 5, 0}});
    select({2, 4});
    boxFrom(View::Front, 0, 0, 10, 10);
    EXPECT_EQ(selection(), (Flags{true, true, false, false}));
}

TEST_F(BoxSelectionTest, AddModeSelectsTheInsideAndLeavesTheOutside) {
    loadVertices({{5, 5, 0}, {5, 5, 0}, {50, 5, 0}, {50, 5, 0}});
    select({2, 4});
    editor.modes.selectMode = SelectMode::Add;
    boxFrom(View::Front, 0, 0, 10, 10);
    EXPECT_EQ(selection(), (Flags{true, true, false, true}));
}

TEST_F(BoxSelectionTest, DeselectModeDeselectsTheInsideAndLeavesTheOutside) {
    loadVertices({{5, 5, 0}, {5, 5, 0}, {50, 5, 0}, {50, 5, 0}});
    select({2, 4});
    editor.modes.selectMode = SelectMode::Deselect;
    boxFrom(View::Front, 0, 0, 10, 10);
    EXPECT_EQ(selection(), (Flags{false, false, false, true}));
}

TEST_F(BoxSelectionTest, EveryModeWorksOnTheAxesOfEveryView) {
    struct Case {
        View view;
        Flags inside;  // in the box (0, 0) to (10, 20) of the view
    };
    const std::vector<Case> cases = {{View::Front, {true, false, false}},
                                     {View::Top, {false, true, false}},
                                     {View::Left, {false, false, true}}};
    for (const auto& [view, inside] : cases) {
        SCOPED_TRACE(static_cast<int>(view));
        // The second number is inside upwards only: 5 across, 15 up.
        loadVertices({{5, 15, 50}, {5, 50, 15}, {50, 15, 5}});
        editor.modes.selectMode = SelectMode::Select;
        boxFrom(view, 0, 0, 10, 20);
        EXPECT_EQ(selection(), inside);
        editor.modes.selectMode = SelectMode::Deselect;
        boxFrom(view, 0, 0, 10, 20);
        EXPECT_EQ(selection(), (Flags{false, false, false}));
        editor.modes.selectMode = SelectMode::Add;
        boxFrom(view, 0, 0, 10, 20);
        EXPECT_EQ(selection(), inside);
    }
}

TEST_F(BoxSelectionTest, TheDepthOfTheViewDoesNotMatter) {
    loadVertices({{5, 5, 0}, {5, 1000, 0}, {5, -1000, 0}});
    boxFrom(View::Top, 0, -5, 10, 5);
    EXPECT_EQ(selection(), (Flags{true, true, true}));
}

TEST_F(BoxSelectionTest, AVertexOnTheBorderIsOutside) {
    loadVertices({{0, 5, 0}, {10, 5, 0}, {5, 0, 0}, {5, 10, 0}, {0, 0, 0}, {9.999, 0.001, 0}});
    boxFrom(View::Front, 0, 0, 10, 10);
    EXPECT_EQ(selection(), (Flags{false, false, false, false, false, true}));
}

TEST_F(BoxSelectionTest, TheDirectionOfTheDragDoesNotMatter) {
    loadVertices({{5, 5, 0}, {15, 5, 0}, {5, -5, 0}});
    for (const bool fromRight : {false, true}) {
        for (const bool fromTop : {false, true}) {
            boxFrom(View::Front, fromRight ? 10 : 0, fromTop ? 10 : 0, fromRight ? 0 : 10,
                    fromTop ? 0 : 10);
            EXPECT_EQ(selection(), (Flags{true, false, false}));
            EXPECT_EQ(editor.drag.dragStartH, 0);  // sorted in place
            EXPECT_EQ(editor.drag.dragStartV, 0);
            EXPECT_EQ(editor.drag.dragEndH, 10);
            EXPECT_EQ(editor.drag.dragEndV, 10);
        }
    }
}

TEST_F(BoxSelectionTest, DeletedVerticesAreSelectedLikeOthers) {
    loadVertices({{5, 5, 0}, {50, 5, 0}});
    select({2});
    vertex(1).deleted = vertex(2).deleted = true;
    boxFrom(View::Front, 0, 0, 10, 10);
    EXPECT_EQ(selection(), (Flags{true, false}));
    editor.modes.selectMode = SelectMode::Deselect;
    boxFrom(View::Front, 0, 0, 10, 10);
    EXPECT_EQ(selection(), (Flags{false, false}));
    EXPECT_TRUE(vertex(1).deleted);
}

TEST_F(BoxSelectionTest, AnEmptyBoxClearsTheSelectionInSelectModeOnly) {
    loadVertices({{5, 5, 0}, {6, 6, 0}});
    for (const SelectMode mode : {SelectMode::Add, SelectMode::Deselect}) {
        select({1, 2});
        editor.undo = {};
        editor.modes.selectMode = mode;
        boxFrom(View::Front, 5, 5, 5, 5);
        EXPECT_EQ(selection(), (Flags{true, true}));
        EXPECT_EQ(newest().name, "Selection");
    }
    editor.modes.selectMode = SelectMode::Select;
    boxFrom(View::Front, 5, 5, 5, 5);
    EXPECT_EQ(selection(), (Flags{false, false}));
}

TEST_F(BoxSelectionTest, RecordsTheSelectionBeforeItAndIsUndone) {
    loadVertices({{5, 5, 0}, {50, 5, 0}});
    select({2});
    boxFrom(View::Front, 0, 0, 10, 10);
    EXPECT_EQ(newest().name, "Selection");
    ASSERT_NE(newest().selection, nullptr);
    EXPECT_EQ(*newest().selection, (Flags{false, true}));
    EXPECT_EQ(newest().vertices, nullptr);
    EXPECT_EQ(newest().faces, nullptr);
    EXPECT_EQ(newest().numbers, (Triple{0, 0, 0}));
    undoLast(editor);
    EXPECT_EQ(selection(), (Flags{false, true}));
}

TEST_F(BoxSelectionTest, RedrawsAllViews) {
    loadVertices({{5, 5, 5}});
    boxFrom(View::Top, 0, 0, 10, 10);
    for (const RecordingSurface* picture : {&front, &top, &left}) {
        ASSERT_EQ(picture->primitives().size(), 3U);  // two axis marks and the vertex
        EXPECT_EQ(picture->primitives()[2].colour, kRed);
    }
}

TEST_F(BoxSelectionTest, WhileSelectionIsOffNothingHappensAtAll) {
    loadVertices({{5, 5, 0}, {50, 5, 0}});
    select({2});
    editor.modes.selectEnabled = false;
    boxFrom(View::Front, 10, 10, 0, 0);
    EXPECT_EQ(selection(), (Flags{false, true}));
    EXPECT_FALSE(newest().valid);
    EXPECT_TRUE(front.primitives().empty());
    EXPECT_EQ(editor.drag.dragStartH, 10);  // not even sorted
    EXPECT_FALSE(store().isModified());
}

TEST_F(BoxSelectionTest, BeforeAModelIsLoadedNothingIsRecorded) {
    boxFrom(View::Front, 0, 0, 10, 10);
    EXPECT_FALSE(newest().valid);
    EXPECT_TRUE(front.primitives().empty());
}

}  // namespace
}  // namespace corvane
