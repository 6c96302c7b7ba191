// In which order an edit records its step, changes the geoset, draws and refreshes the buttons.
#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "editor/run_edit.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

class EditOrderTest : public ToolTest {
protected:
    /// What a refresh of the buttons finds.
    struct Seen {
        bool recorded;
        bool changed;
        bool drawn;
        bool modified;
        bool operator==(const Seen&) const = default;
    };

    EditOrderTest() {
        loadVertices({{0, 0, 0}, {4, 0, 1}, {4, 4, 2}});
        addFace(0, 1, 2);
        fillOtherFields();
        store().noteSaved();
    }

    /// What the refreshes during an edit find, in their order; and in the end it is drawn.
    std::vector<Seen> refreshesOf(const std::function<void()>& run) {
        select({1, 2, 3});
        redrawAll(editor);
        const Geoset before = geoset();
        const std::vector<Primitive> drawnBefore = front.primitives();
        std::vector<Seen> seen;
        window.onUpdateButtons = [&] {
            seen.push_back({newest().valid, !(geoset() == before),
                            front.primitives() != drawnBefore, store().isModified()});
        };
        run();
        window.onUpdateButtons = nullptr;
        EXPECT_NE(front.primitives(), drawnBefore);
        return seen;
    }
};

TEST_F(EditOrderTest, AToolRecordsChangesDrawsAndRefreshes) {
    const std::vector<Seen> expected = {{true, false, false, false}, {true, true, true, true}};
    EXPECT_EQ(refreshesOf([&] { snapSelection(editor); }), expected);
}

TEST_F(EditOrderTest, MoveAndScaleRefreshAfterTheyDrewInCloneModeToo) {
    const std::vector<Seen> expected = {{true, false, false, false}, {true, true, true, true}};
    EXPECT_EQ(refreshesOf([&] { moveSelection(editor, {1, 0, 0}); }), expected);
    store().noteSaved();
    editor.undo = {};
    EXPECT_EQ(refreshesOf([&] { scaleSelection(editor, 9, 0); }), expected);
    store().noteSaved();
    editor.undo = {};
    editor.modes.cloneMode = true;
    EXPECT_EQ(refreshesOf([&] { moveSelection(editor, {1, 0, 0}); }), expected);
}

TEST_F(EditOrderTest, RotateRefreshesBeforeItDraws) {
    const std::vector<Seen> expected = {{true, false, false, false}, {true, true, false, true}};
    double angle = 90;
    EXPECT_EQ(refreshesOf([&] { rotateSelection(editor, angle, Axis::Z); }), expected);
}

TEST_F(EditOrderTest, DeleteRecordsAfterTheChange) {
    const std::vector<Seen> expected = {{true, true, false, false}, {true, true, true, true}};
    EXPECT_EQ(refreshesOf([&] { deleteSelection(editor); }), expected);
}

TEST_F(EditOrderTest, UndoReversesAndRefreshesBeforeItDraws) {
    select({1, 2, 3});
    snapSelection(editor);
    redrawAll(editor);
    const std::vector<Primitive> snapped = front.primitives();
    std::vector<std::vector<bool>> seen;
    window.onUpdateButtons = [&] {
        seen.push_back({undoCaption(editor.undo) == "Undo", vertex(2).pos == Triple{4, 0, 1},
                        front.primitives() != snapped});
    };
    undoLast(editor);
    EXPECT_EQ(seen, (std::vector<std::vector<bool>>{{true, true, false}}));
    EXPECT_NE(front.primitives(), snapped);
}

TEST_F(EditOrderTest, SetCoordinatesRecordsBeforeItAsks) {
    std::vector<std::string> newestSteps;
    dialogs.onInput = [&] { newestSteps.push_back(newest().name); };
    dialogs.inputs.assign({"1", "2", "3"});
    setCoordinates(editor);
    EXPECT_EQ(newestSteps, std::vector<std::string>(3, "Set Coordinates"));
}

// What an operation that fails half-way has done counts as unsaved, and is undone.
TEST_F(EditOrderTest, AnEditThatFailsHalfWayCounts) {
    const Geoset before = geoset();
    const auto failing = [](Geoset& geoset) {
        geoset.Vertices[0].pos[0] = 9;
        throw std::bad_alloc();
    };
    EXPECT_THROW(runEdit(editor, "Snap", failing), std::bad_alloc);
    EXPECT_TRUE(store().isModified());
    undoLast(editor);
    expectGeoset(before);
    EXPECT_FALSE(store().isModified());
}

}  // namespace
}  // namespace corvane
