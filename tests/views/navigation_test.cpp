#include "views/navigation.h"

#include <limits>

#include "drawn_text.h"
#include "editor/run_edit.h"
#include "editor_fixture.h"
#include "views/commands/view_commands.h"
#include "views/ortho_view.h"

namespace corvane {
namespace {

class NavigationTest : public EditorTest {
protected:
    ViewState& state(View view) { return editor.views[view]; }

    static void expectState(const ViewState& actual, double zoom, int panX, int panY) {
        EXPECT_DOUBLE_EQ(actual.zoom, zoom);
        EXPECT_EQ(actual.panX, panX);
        EXPECT_EQ(actual.panY, panY);
    }
};

TEST_F(NavigationTest, ZoomingInScalesZoomAndPanOfItsViewOnly) {
    for (const View view : kViews) {
        SCOPED_TRACE(static_cast<int>(view));
        editor.views = {};
        for (const View each : kViews) state(each) = {.zoom = 20, .panX = 300, .panY = -600};
        zoomIn(editor, view);
        for (const View each : kViews) {
            if (each == view) {
                expectState(state(each), 25, 375, -750);
            } else {
                expectState(state(each), 20, 300, -600);
            }
        }
    }
}

TEST_F(NavigationTest, AFittedViewShowsTheWholeGeosetInTheMiddle) {
    loadVertices({{100, -20, 5000}, {140, 20, -3}, {120, 0, 7}, {900, 900, 900}});
    vertex(4).deleted = true;
    for (const View view : kViews) {
        const ViewAxes axes = axesOf(view);
        const ViewState fit = fitted(store(), axes, kPictureWidth, kPictureHeight);
        double least = kPictureWidth;
        double most = 0;
        for (int number = 1; number <= 3; ++number) {
            const Triple& pos = vertex(number).pos;
            const ScreenPoint at = project(pos[slotOf(axes.horizontal)], pos[slotOf(axes.vertical)],
                                           kPictureWidth, kPictureHeight, fit);
            EXPECT_GT(at.x, 0);
            EXPECT_LT(at.x, kPictureWidth);
            EXPECT_GT(at.y, 0);
            EXPECT_LT(at.y, kPictureHeight);
            least = std::min(least, at.x);
            most = std::max(most, at.x);
        }
        EXPECT_NEAR((least + most) / 2, kPictureWidth / 2, 2);
    }
}

TEST_F(NavigationTest, AFittedViewOfNothingIsTheFirstOne) {
    expectState(fitted(store(), axesOf(View::Front), 100, 100), 20, 0, 0);
    loadVertices({{1, 2, 3}});
    EXPECT_EQ(fitted(store(), axesOf(View::Front), 100, 100).zoom, 20);
    loadVertices({{1e308, -1e308, 1e308}, {-1e308, 1e308, -1e308}});
    EXPECT_EQ(fitted(store(), axesOf(View::Front), 100, 100).zoom, 20);
}

// A vertex that no picture can show leaves the others in it.
TEST_F(NavigationTest, AFittedViewPassesOverWhatIsNoNumber) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    const ViewAxes axes = axesOf(View::Front);
    loadVertices({{-3, -4, -5}, {30, 40, 50}});
    const ViewState plain = fitted(store(), axes, 300, 200);
    loadVertices({{-3, -4, -5}, {kNone, kNone, kNone}, {30, 40, 50}, {kInfinite, 1, -kInfinite}});
    expectState(fitted(store(), axes, 300, 200), plain.zoom, plain.panX, plain.panY);
    loadVertices({{kNone, kNone, kNone}});
    expectState(fitted(store(), axes, 300, 200), 20, 0, 0);
    vertex(1).pos[slotOf(axes.horizontal)] = 7;  // and none upwards
    expectState(fitted(store(), axes, 300, 200), 20, 0, 0);
}

TEST_F(NavigationTest, ZoomingOutScalesZoomAndPanOfItsViewOnly) {
    for (const View view : kViews) {
        SCOPED_TRACE(static_cast<int>(view));
        for (const View each : kViews) state(each) = {.zoom = 20, .panX = 300, .panY = -600};
        zoomOut(editor, view);
        for (const View each : kViews) {
            if (each == view) {
                expectState(state(each), 16, 240, -480);
            } else {
                expectState(state(each), 20, 300, -600);
            }
        }
    }
}

TEST_F(NavigationTest, ZoomingInStopsAtTheFirstZoomOfTwoHundredOrMore) {
    for (int press = 1; press <= 10; ++press) zoomIn(editor, View::Front);
    EXPECT_LT(state(View::Front).zoom, 200);
    zoomIn(editor, View::Front);
    EXPECT_NEAR(state(View::Front).zoom, 232.830644, 1e-6);  // 20 times 1.25 to the 11th
    state(View::Front).panX = 100;
    zoomIn(editor, View::Front);
    EXPECT_NEAR(state(View::Front).zoom, 232.830644, 1e-6);
    EXPECT_EQ(state(View::Front).panX, 100);
}

TEST_F(NavigationTest, AZoomOfExactlyTwoHundredIsTheLimit) {
    state(View::Top).zoom = 200;
    zoomIn(editor, View::Top);
    EXPECT_EQ(state(View::Top).zoom, 200);
    state(View::Top).zoom = 199.9;
    zoomIn(editor, View::Top);
    EXPECT_DOUBLE_EQ(state(View::Top).zoom, 249.875);
}

TEST_F(NavigationTest, ZoomingOutHasNoLimit) {
    for (int press = 0; press < 100; ++press) zoomOut(editor, View::Left);
    EXPECT_NEAR(state(View::Left).zoom, 4.0740719526689754e-9, 1e-20);  // 20 times 0.8 to the 100th
}

TEST_F(NavigationTest, APanComesBackFromZoomingInAndOut) {
    pan(editor, View::Front, kPanStep, 0);
    EXPECT_EQ(state(View::Front).panX, 300);
    zoomIn(editor, View::Front);
    EXPECT_EQ(state(View::Front).panX, 375);
    zoomOut(editor, View::Front);
    EXPECT_EQ(state(View::Front).panX, 300);
}

TEST_F(NavigationTest, ScaledPansRoundToTheEvenUnit) {
    const auto panAfter = [&](int before, void (*zoom)(Editor&, View)) {
        state(View::Front) = {.zoom = 20, .panX = before, .panY = -before};
        zoom(editor, View::Front);
        EXPECT_EQ(state(View::Front).panY, -state(View::Front).panX);
        return state(View::Front).panX;
    };
    EXPECT_EQ(panAfter(5, zoomOut), 4);
    EXPECT_EQ(panAfter(10, zoomIn), 12);  // 12.5
    EXPECT_EQ(panAfter(6, zoomIn), 8);    // 7.5
    EXPECT_EQ(panAfter(7, zoomIn), 9);    // 8.75
    EXPECT_EQ(panAfter(3, zoomOut), 2);   // 2.4
}

TEST_F(NavigationTest, ThePointInThePicturesCentreStaysThereWhenZooming) {
    loadVertices({{15, -30, 0}});
    state(View::Front) = {.zoom = 20, .panX = -300, .panY = -600};  // puts that vertex there
    front.resize(200, 100);
    for (int press = 0; press < 3; ++press) {
        zoomIn(editor, View::Front);
        EXPECT_EQ(drawnText(front).back(), "box 90 40 110 60 foreground");
    }
}

TEST_F(NavigationTest, PanningMovesOneViewByTheGivenUnits) {
    for (const View view : kViews) {
        SCOPED_TRACE(static_cast<int>(view));
        editor.views = {};
        pan(editor, view, 300, 0);
        pan(editor, view, 0, -300);
        pan(editor, view, 0, -300);
        for (const View each : kViews) {
            if (each == view) {
                expectState(state(each), 20, 300, -600);
            } else {
                expectState(state(each), 20, 0, 0);
            }
        }
    }
    EXPECT_EQ(kPanStep, 300);
}

TEST_F(NavigationTest, ZoomingRedrawsAllViewsAndPanningOnlyItsOwn) {
    loadVertices({{0, 0, 0}});
    const auto redrawn = [&](auto run) {
        for (RecordingSurface* picture : {&front, &top, &left}) {
            picture->clear();
            picture->circle(0, 0, 1, kRed);  // gone after a redraw
        }
        run();
        std::string views;
        if (front.primitives().size() == 3) views += "front ";
        if (top.primitives().size() == 3) views += "top ";
        if (left.primitives().size() == 3) views += "left ";
        return views;
    };
    EXPECT_EQ(redrawn([&] { zoomIn(editor, View::Top); }), "front top left ");
    EXPECT_EQ(redrawn([&] { zoomOut(editor, View::Left); }), "front top left ");
    EXPECT_EQ(redrawn([&] { pan(editor, View::Front, 300, 0); }), "front ");
    EXPECT_EQ(redrawn([&] { pan(editor, View::Top, 300, 0); }), "top ");
    EXPECT_EQ(redrawn([&] { pan(editor, View::Left, 300, 0); }), "left ");
    state(View::Top).zoom = 200;  // no zooming in any more, but a redraw all the same
    EXPECT_EQ(redrawn([&] { zoomIn(editor, View::Top); }), "front top left ");
}

TEST_F(NavigationTest, WithoutAModelTheValuesChangeAndTheFirstRedrawUsesThem) {
    front.resize(200, 100);
    pan(editor, View::Front, 300, 300);
    zoomIn(editor, View::Front);
    EXPECT_TRUE(front.primitives().empty());
    expectState(state(View::Front), 25, 375, 375);
    loadVertices({{0, 0, 0}});
    redrawAll(editor);
    EXPECT_EQ(drawnText(front).back(), "box 465 415 485 435 foreground");
}

TEST_F(NavigationTest, PansStayWithinWholeNumbersOfThirtyTwoBits) {
    state(View::Front).panX = 2147483600;
    state(View::Front).panY = -2147483600;
    pan(editor, View::Front, 300, -300);
    expectState(state(View::Front), 20, 2147483647, -2147483647 - 1);
    zoomIn(editor, View::Front);
    expectState(state(View::Front), 25, 2147483647, -2147483647 - 1);
}

}  // namespace
}  // namespace corvane
