#include "views/commands/mouse.h"

#include "editor/run_edit.h"
#include "editor_fixture.h"
#include "views/ortho_view.h"

namespace corvane {
namespace {

// The centre of the pictures and the zoom at the start.
constexpr double kCentreX = 1567.5;
constexpr double kCentreY = 1507.5;
constexpr double kZoom = 20;

class MouseTest : public EditorTest {
protected:
    const UndoRecord& newest() const { return editor.undo.slots.front(); }

    /// Where a model point is drawn in a view at the start's zoom and pan.
    static double xOf(double h) { return kCentreX + kZoom * h; }
    static double yOf(double v) { return kCentreY - kZoom * v; }

    /// Drags from one point to another, both in model units on the view's axes.
    void drag(View view, MouseButton button, ModelPoint from, ModelPoint to) {
        mouseDown(editor, view, xOf(from.h), yOf(from.v));
        mouseUp(editor, view, button, xOf(to.h), yOf(to.v));
    }

    std::vector<bool> selection() const {
        std::vector<bool> flags;
        for (const VertexRecord& vertex : editor.store.Vertices) flags.push_back(vertex.selected);
        return flags;
    }

    static void expectReadout(const Readout& actual, const std::string& x, const std::string& y,
                              const std::string& z) {
        EXPECT_EQ(actual.x, x);
        EXPECT_EQ(actual.y, y);
        EXPECT_EQ(actual.z, z);
    }
};

TEST_F(MouseTest, ToModelIsTheInverseOfTheProjection) {
    editor.views[View::Top] = {.zoom = 4, .panX = 100, .panY = -60};
    const ModelPoint point = toModel(editor, View::Top, kCentreX + 100 + 12, kCentreY - 60 - 6);
    EXPECT_EQ(point.h, 3);
    EXPECT_EQ(point.v, 1.5);
}

TEST_F(MouseTest, ToModelDoesNotRound) {
    const ModelPoint point = toModel(editor, View::Front, kCentreX + 0.5, kCentreY + 0.25);
    EXPECT_EQ(point.h, 0.025);
    EXPECT_EQ(point.v, -0.0125);
}

TEST_F(MouseTest, EachViewReadsOutIntoItsOwnBoxes) {
    expectReadout(mouseMove(editor, View::Front, xOf(5), yOf(2)), "0", "5", "2");
    expectReadout(mouseMove(editor, View::Top, xOf(5), yOf(2)), "2", "5", "0");
    expectReadout(mouseMove(editor, View::Left, xOf(5), yOf(2)), "5", "0", "2");
}

TEST_F(MouseTest, EachViewReadsOutWithItsOwnZoomAndPan) {
    editor.views[View::Left] = {.zoom = 10, .panX = 300, .panY = 100};
    expectReadout(mouseMove(editor, View::Left, kCentreX, kCentreY), "-30", "0", "10");
    expectReadout(mouseMove(editor, View::Front, kCentreX, kCentreY), "0", "0", "0");
}

TEST_F(MouseTest, TheReadoutIsRoundedToThreePlaces) {
    editor.views[View::Front].zoom = 3;
    expectReadout(mouseMove(editor, View::Front, kCentreX + 1, kCentreY + 2), "0", "0.333",
                  "-0.667");
    expectReadout(mouseMove(editor, View::Front, kCentreX + 4.5, kCentreY), "0", "1.5", "0");
    editor.views[View::Front].zoom = 1000;  // halves of a thousandth go to the even one
    expectReadout(mouseMove(editor, View::Front, kCentreX + 0.5, kCentreY - 1.5), "0", "0",
                  "0.002");
}

TEST_F(MouseTest, TheReadoutNeverShowsMinusZero) {
    expectReadout(mouseMove(editor, View::Front, kCentreX, kCentreY), "0", "0", "0");
    expectReadout(mouseMove(editor, View::Front, kCentreX - 0.005, kCentreY + 0.005), "0", "0",
                  "0");
    expectReadout(mouseMove(editor, View::Top, kCentreX - 0.005, kCentreY + 0.005), "0", "0", "0");
    expectReadout(mouseMove(editor, View::Left, kCentreX - 0.005, kCentreY + 0.005), "0", "0", "0");
}

TEST_F(MouseTest, TheReadoutFollowsTheUsersDecimalSeparator) {
    editor.userNumbers.decimalPoint = ",";
    expectReadout(mouseMove(editor, View::Front, xOf(1.5), yOf(-0.125)), "0", "1,5", "-0,125");
    expectReadout(mouseMove(editor, View::Top, xOf(2), yOf(1.25)), "1,25", "2", "0");
}

TEST_F(MouseTest, MovingShowsTheTipOfTheView) {
    mouseMove(editor, View::Front, 0, 0);
    EXPECT_EQ(window.tip, "Front viewport");
    mouseMove(editor, View::Top, 0, 0);
    EXPECT_EQ(window.tip, "Top viewport");
    mouseMove(editor, View::Left, 0, 0);
    EXPECT_EQ(window.tip, "Left viewport");
}

TEST_F(MouseTest, NothingIsDrawnOrChangedBeforeTheButtonIsReleased) {
    loadVertices({{0, 0, 0}});
    select({1});
    mouseDown(editor, View::Front, xOf(1), yOf(2));
    mouseMove(editor, View::Front, xOf(5), yOf(6));
    EXPECT_EQ(editor.drag.dragStartH, 1);
    EXPECT_EQ(editor.drag.dragStartV, 2);
    EXPECT_EQ(editor.drag.dragEndH, 0);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 0}));
    EXPECT_TRUE(front.primitives().empty());
    EXPECT_FALSE(newest().valid);
}

TEST_F(MouseTest, AReleaseKeepsItsPointInModelUnits) {
    loadVertices({{0, 0, 0}});
    drag(View::Left, MouseButton::Other, {1, 2}, {-3, 4.5});
    EXPECT_EQ(editor.drag.dragStartH, 1);
    EXPECT_EQ(editor.drag.dragStartV, 2);
    EXPECT_EQ(editor.drag.dragEndH, -3);
    EXPECT_EQ(editor.drag.dragEndV, 4.5);
}

TEST_F(MouseTest, MovingGoesAlongTheAxesOfTheView) {
    const auto deltaOf = [&](View view) {
        loadVertices({{10, 20, 30}, {1, 1, 1}});
        select({1});
        drag(view, MouseButton::Other, {1, 2}, {4, 6});
        EXPECT_EQ(newest().name, "Move");
        EXPECT_EQ(vertex(2).pos, (Triple{1, 1, 1}));
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(vertex(1).pos[i], 10.0 * static_cast<double>(i + 1) + newest().numbers[i]);
        }
        return newest().numbers;
    };
    EXPECT_EQ(deltaOf(View::Front), (Triple{3, 4, 0}));
    EXPECT_EQ(deltaOf(View::Top), (Triple{3, 0, 4}));
    EXPECT_EQ(deltaOf(View::Left), (Triple{0, 4, 3}));
}

TEST_F(MouseTest, TheDragCountsInModelUnitsWhateverTheZoomAndPan) {
    loadVertices({{0, 0, 0}});
    select({1});
    editor.views[View::Front] = {.zoom = 4, .panX = 77, .panY = -33};
    mouseDown(editor, View::Front, 100, 100);
    mouseUp(editor, View::Front, MouseButton::Other, 110, 92);
    EXPECT_EQ(vertex(1).pos, (Triple{2.5, 2, 0}));
}

TEST_F(MouseTest, ScalingTakesTheHorizontalDeltaFirstInEveryView) {
    for (const View view : kViews) {
        loadVertices({{0, 0, 0}, {2, 2, 2}});
        select({1, 2});
        editor.modes.transformMode = TransformMode::Scale;
        drag(view, MouseButton::Other, {1, 2}, {101, 2});
        EXPECT_EQ(newest().name, "Scale");
        EXPECT_EQ(newest().numbers, (Triple{100, 0, 0}));
        for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(vertex(2).pos[i], 2.416667, 5e-7);
        drag(view, MouseButton::Other, {1, 2}, {4, 6});
        EXPECT_EQ(newest().numbers, (Triple{3, 4, 0}));
    }
}

TEST_F(MouseTest, RotatingTakesTheVerticalDeltaAndTheAxisAcrossTheView) {
    const auto rotate = [&](View view) {
        loadVertices({{1, 1, 1}, {-1, -1, -1}});
        select({1, 2});
        editor.modes.transformMode = TransformMode::Rotate;
        drag(view, MouseButton::Other, {1, -90}, {4, 90});
        EXPECT_EQ(newest().numbers, (Triple{180, 0, 0}));
        return newest().name;
    };
    const auto expectVertex = [&](const Triple& expected) {
        for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(vertex(1).pos[i], expected[i], 1e-9) << i;
    };
    EXPECT_EQ(rotate(View::Front), "Rotate z");  // a quarter turn
    expectVertex({-1, 1, 1});
    EXPECT_EQ(rotate(View::Top), "Rotate y");
    expectVertex({-1, 1, 1});
    EXPECT_EQ(rotate(View::Left), "Rotate x");
    expectVertex({1, 1, -1});
}

TEST_F(MouseTest, ExtrudingGoesAlongTheAxesOfTheView) {
    const auto extruded = [&](View view) {
        store() = {};
        loadVertices({{10, 20, 30}, {11, 20, 30}, {10, 21, 30}});
        addFace(0, 1, 2);
        select({1, 2, 3});
        editor.modes.transformMode = TransformMode::Extrude;
        drag(view, MouseButton::Other, {1, 2}, {4, 6});
        EXPECT_EQ(newest().name, "Extrude");
        EXPECT_EQ(store().Vertices.size(), 6U);
        EXPECT_EQ(vertex(1).pos, (Triple{10, 20, 30}));
        return vertex(4).pos;  // the first one's duplicate
    };
    EXPECT_EQ(extruded(View::Front), (Triple{13, 24, 30}));
    EXPECT_EQ(extruded(View::Top), (Triple{13, 20, 34}));
    EXPECT_EQ(extruded(View::Left), (Triple{10, 24, 33}));
}

TEST_F(MouseTest, AClickWithAnotherButtonStillRecordsAMoveByNothing) {
    loadVertices({{1, 2, 3}});
    select({1});
    drag(View::Front, MouseButton::Other, {5, 5}, {5, 5});
    EXPECT_EQ(newest().name, "Move");
    EXPECT_EQ(newest().numbers, (Triple{0, 0, 0}));
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));
}

TEST_F(MouseTest, TheLeftButtonSelectsOnTheAxesOfTheView) {
    // Each vertex lies in the box (0, 0) to (10, 10) of one view only.
    loadVertices({{5, 5, 50}, {5, 50, 5}, {50, 5, 5}});
    drag(View::Front, MouseButton::Left, {0, 0}, {10, 10});
    EXPECT_EQ(selection(), (std::vector<bool>{true, false, false}));
    EXPECT_EQ(newest().name, "Selection");
    drag(View::Top, MouseButton::Left, {0, 0}, {10, 10});
    EXPECT_EQ(selection(), (std::vector<bool>{false, true, false}));
    drag(View::Left, MouseButton::Left, {0, 0}, {10, 10});
    EXPECT_EQ(selection(), (std::vector<bool>{false, false, true}));
}

TEST_F(MouseTest, TheLeftButtonSelectsInEveryTransformMode) {
    for (const TransformMode mode : {TransformMode::Move, TransformMode::Rotate,
                                     TransformMode::Scale, TransformMode::Extrude}) {
        loadVertices({{5, 5, 5}, {50, 50, 50}});
        editor.modes.transformMode = mode;
        drag(View::Front, MouseButton::Left, {0, 0}, {10, 10});
        EXPECT_EQ(selection(), (std::vector<bool>{true, false}));
        EXPECT_EQ(vertex(1).pos, (Triple{5, 5, 5}));
    }
}

TEST_F(MouseTest, ALeftClickWithoutADragClearsTheSelection) {
    loadVertices({{5, 5, 5}, {50, 50, 50}});
    select({1, 2});
    drag(View::Front, MouseButton::Left, {5, 5}, {5, 5});
    EXPECT_EQ(selection(), (std::vector<bool>{false, false}));
    EXPECT_EQ(newest().name, "Selection");
}

TEST_F(MouseTest, WhilePlacingAMarkerALeftReleasePutsItThereInsteadOfSelecting) {
    loadVertices({{5, 5, 5}});
    select({1});
    const auto placed = [&](View view) {
        editor.markers = {};
        editor.modes.placingMarker = true;
        drag(view, MouseButton::Left, {0, 0}, {1.5, -2});
        EXPECT_TRUE(editor.markers[0].used);
        EXPECT_FALSE(editor.modes.placingMarker);
        return editor.markers[0].pos;
    };
    EXPECT_EQ(placed(View::Front), (Triple{1.5, -2, 0}));
    EXPECT_EQ(placed(View::Top), (Triple{1.5, 0, -2}));
    EXPECT_EQ(placed(View::Left), (Triple{0, -2, 1.5}));
    EXPECT_EQ(selection(), (std::vector<bool>{true}));
    EXPECT_FALSE(newest().valid);
}

TEST_F(MouseTest, OtherButtonsTransformWhileAMarkerIsToBePlaced) {
    loadVertices({{5, 5, 5}});
    select({1});
    editor.modes.placingMarker = true;
    drag(View::Front, MouseButton::Other, {0, 0}, {1, 2});
    EXPECT_EQ(vertex(1).pos, (Triple{6, 7, 5}));
    EXPECT_TRUE(editor.modes.placingMarker);
    EXPECT_FALSE(editor.markers[0].used);
}

TEST_F(MouseTest, OtherButtonsLeaveTheSelection) {
    loadVertices({{5, 5, 5}, {50, 50, 50}});
    select({2});
    drag(View::Front, MouseButton::Other, {0, 0}, {10, 10});
    EXPECT_EQ(selection(), (std::vector<bool>{false, true}));
}

// Zoomed out beyond all measure a drag of a few pixels is no number of model units.
TEST_F(MouseTest, ADragThatIsNoNumberChangesNothing) {
    loadVertices({{1, 2, 3}});
    select({1});
    for (const bool vertical : {false, true}) {
        for (const MouseButton button : {MouseButton::Left, MouseButton::Other}) {
            editor.views[View::Front].zoom = 1e-320;
            mouseDown(editor, View::Front, kPictureWidth / 2, kPictureHeight / 2);
            mouseUp(editor, View::Front, button, kPictureWidth / 2 + (vertical ? 0 : 10),
                    kPictureHeight / 2 + (vertical ? 10 : 0));
            EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));
            EXPECT_TRUE(vertex(1).selected);
            EXPECT_FALSE(editor.undo.slots.front().valid);
        }
    }
}

// Far out a box ends at numbers whose sum is none.
TEST_F(MouseTest, ABoxIsANumberAsFarOutAsItsEndsAre) {
    editor.views[View::Front].zoom = 1e-306;
    const ViewAxes axes = axesOf(View::Front);
    for (const bool vertical : {false, true}) {
        Triple pos{};
        pos[slotOf(vertical ? axes.vertical : axes.horizontal)] = 1.2e308;
        loadVertices({pos});
        const double right = vertical ? 0 : 120;
        const double up = vertical ? 120 : 0;
        mouseDown(editor, View::Front, kPictureWidth / 2 + right - 5, kPictureHeight / 2 - up - 5);
        mouseUp(editor, View::Front, MouseButton::Left, kPictureWidth / 2 + right + 5,
                kPictureHeight / 2 - up + 5);
        EXPECT_TRUE(vertex(1).selected) << (vertical ? "upwards" : "across");
    }
}

}  // namespace
}  // namespace corvane
