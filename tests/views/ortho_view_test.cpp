#include "views/ortho_view.h"

#include "drawn_text.h"
#include "editor/run_edit.h"
#include "editor_fixture.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

class OrthoViewTest : public EditorTest {
protected:
    RecordingSurface surface{200, 100};

    Texts draw(View view, const ViewState& state) {
        updateView(editor, surface, axesOf(view), state);
        return drawnText(surface);
    }

    /// A mesh with a bit of everything.
    void loadMesh() {
        loadVertices({{0, 0, 0}, {10, 0, 3}, {10, 10, 0}, {0, 10, 0}, {5, 5, 6}});
        vertex(1).normal = {1, 0, 0.5};
        vertex(2).normal = {0, 1, 0};
        vertex(3).normal = {0, 0, 1};
        select({2});
        vertex(4).deleted = true;
        addFace(0, 1, 2);
        addFace(0, 2, 3);  // uses the deleted vertex
        addFace(0, 1, 4);
        store().Faces[2].deleted = true;
        editor.modes.showNormals = true;
        editor.markers[1] = {.pos = {-5, 5, 1}, .used = true};
    }
};

TEST_F(OrthoViewTest, ViewsAndTheirAxes) {
    EXPECT_EQ(axesOf(View::Front).horizontal, Axis::X);
    EXPECT_EQ(axesOf(View::Front).vertical, Axis::Y);
    EXPECT_EQ(axesOf(View::Top).horizontal, Axis::X);
    EXPECT_EQ(axesOf(View::Top).vertical, Axis::Z);
    EXPECT_EQ(axesOf(View::Left).horizontal, Axis::Z);
    EXPECT_EQ(axesOf(View::Left).vertical, Axis::Y);
    for (const View view : kViews) {
        EXPECT_EQ(editor.views[view].zoom, 20.0);
        EXPECT_EQ(editor.views[view].panX, 0);
        EXPECT_EQ(editor.views[view].panY, 0);
    }
}

TEST_F(OrthoViewTest, TheFrontViewDrawsMarksFacesVerticesNormalsAndMarkersInThisOrder) {
    loadMesh();
    const Texts expected = {
        "line 107 47 107 27 blue",
        "line 107 47 127 47 red",
        // the first face
        "line 107 47 127 47 border",
        "line 127 47 127 27 border",
        "line 127 27 107 47 border",
        // vertices 1, 2, 3 and 5
        "box 97 37 117 57 foreground",
        "line 107 47 257 47 lightblue",
        "box 117 37 137 57 red",
        "line 127 47 127 -103 lightblue",
        "box 117 17 137 37 foreground",
        "line 127 27 127 27 lightblue",
        "box 107 27 127 47 foreground",
        "line 117 37 117 37 lightblue",
        // the marker
        "line 37 37 157 37 blue",
        "line 97 -23 97 97 blue",
        "circle 97 37 60 blue",
    };
    EXPECT_EQ(draw(View::Front, {.zoom = 2, .panX = 7, .panY = -3}), expected);
}

TEST_F(OrthoViewTest, TheTopViewShowsXAcrossAndZUp) {
    loadMesh();
    const Texts expected = {
        "line 107 47 107 27 green",       "line 107 47 127 47 red",
        "line 107 47 127 41 border",      "line 127 41 127 47 border",
        "line 127 47 107 47 border",      "box 97 37 117 57 foreground",
        "line 107 47 257 -28 lightblue",  "box 117 31 137 51 red",
        "line 127 41 127 41 lightblue",   "box 117 37 137 57 foreground",
        "line 127 47 127 -103 lightblue", "box 107 25 127 45 foreground",
        "line 117 35 117 35 lightblue",   "line 37 45 157 45 blue",
        "line 97 -15 97 105 blue",        "circle 97 45 60 blue",
    };
    EXPECT_EQ(draw(View::Top, {.zoom = 2, .panX = 7, .panY = -3}), expected);
}

TEST_F(OrthoViewTest, TheLeftViewShowsZAcrossAndYUp) {
    loadMesh();
    const Texts expected = {
        "line 107 47 107 27 blue",        "line 107 47 127 47 green",
        "line 107 47 113 47 border",      "line 113 47 107 27 border",
        "line 107 27 107 47 border",      "box 97 37 117 57 foreground",
        "line 107 47 182 47 lightblue",   "box 103 37 123 57 red",
        "line 113 47 113 -103 lightblue", "box 97 17 117 37 foreground",
        "line 107 27 257 27 lightblue",   "box 109 27 129 47 foreground",
        "line 119 37 119 37 lightblue",   "line 49 37 169 37 blue",
        "line 109 -23 109 97 blue",       "circle 109 37 60 blue",
    };
    EXPECT_EQ(draw(View::Left, {.zoom = 2, .panX = 7, .panY = -3}), expected);
}

TEST_F(OrthoViewTest, WithoutNormalsOnlyTheBoxesOfTheVerticesAreDrawn) {
    loadVertices({{0, 0, 0}});
    vertex(1).normal = {1, 1, 1};
    EXPECT_EQ(draw(View::Front, {.zoom = 2}),
              (Texts{"line 100 50 100 30 blue", "line 100 50 120 50 red",
                     "box 90 40 110 60 foreground"}));
}

TEST_F(OrthoViewTest, AnEmptyGeosetDrawsTheAxisMarksAndMarkers) {
    editor.markers[19] = {.pos = {0, 0, 0}, .used = true};
    EXPECT_EQ(draw(View::Front, {.zoom = 2}),
              (Texts{"line 100 50 100 30 blue", "line 100 50 120 50 red", "line 40 50 160 50 blue",
                     "line 100 -10 100 110 blue", "circle 100 50 60 blue"}));
}

TEST_F(OrthoViewTest, MarkersAreDrawnInTheOrderOfTheirSlots) {
    editor.markers[0] = {.pos = {1, 0, 0}, .used = true};
    editor.markers[7] = {.pos = {2, 0, 0}, .used = true};
    const Texts drawn = draw(View::Front, {.zoom = 1});
    ASSERT_EQ(drawn.size(), 8U);
    EXPECT_EQ(drawn[4], "circle 101 50 60 blue");
    EXPECT_EQ(drawn[7], "circle 102 50 60 blue");
}

TEST_F(OrthoViewTest, AFaceWithOneDeletedCornerIsNotDrawnButItsOtherVerticesAre) {
    loadVertices({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    addFace(0, 1, 2);
    for (int deleted = 1; deleted <= 3; ++deleted) {
        SCOPED_TRACE(deleted);
        vertex(deleted).deleted = true;
        int boxes = 0;
        for (const std::string& item : draw(View::Front, {})) {
            EXPECT_EQ(item.find("border"), std::string::npos) << item;
            if (item.starts_with("box")) ++boxes;
        }
        EXPECT_EQ(boxes, 2);
        vertex(deleted).deleted = false;
    }
}

TEST_F(OrthoViewTest, ADeletedFaceIsNotDrawnThoughItsVerticesAreThere) {
    loadVertices({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    addFace(0, 1, 2);
    EXPECT_EQ(draw(View::Front, {}).size(), 8U);
    store().Faces[0].deleted = true;
    EXPECT_EQ(draw(View::Front, {}).size(), 5U);
}

TEST_F(OrthoViewTest, TheOriginLiesOnTheMeetingPointOfTheAxisMarks) {
    // The pictures' own size: the centre is (1567.5, 1507.5), which rounds to even numbers.
    loadVertices({{0, 0, 0}});
    redrawAll(editor);
    EXPECT_EQ(drawnText(front), (Texts{"line 1567.5 1507.5 1567.5 1307.5 blue",
                                       "line 1567.5 1507.5 1767.5 1507.5 red",
                                       "box 1558 1498 1578 1518 foreground"}));
}

TEST_F(OrthoViewTest, DoublingTheZoomDoublesDistancesButNotTheSizesOfBoxesNormalsAndMarkers) {
    loadVertices({{10, 5, 0}});
    vertex(1).normal = {1, 0, 0};
    editor.modes.showNormals = true;
    editor.markers[0] = {.pos = {10, 5, 0}, .used = true};
    EXPECT_EQ(
        draw(View::Front, {.zoom = 1}),
        (Texts{"line 100 50 100 40 blue", "line 100 50 110 50 red", "box 100 35 120 55 foreground",
               "line 110 45 260 45 lightblue", "line 50 45 170 45 blue",
               "line 110 -15 110 105 blue", "circle 110 45 60 blue"}));
    EXPECT_EQ(
        draw(View::Front, {.zoom = 2}),
        (Texts{"line 100 50 100 30 blue", "line 100 50 120 50 red", "box 110 30 130 50 foreground",
               "line 120 40 270 40 lightblue", "line 60 40 180 40 blue",
               "line 120 -20 120 100 blue", "circle 120 40 60 blue"}));
}

TEST_F(OrthoViewTest, HalfwayCoordinatesRoundToTheEvenUnit) {
    const auto xOf = [](double h) { return project(h, 0, 0, 0, {.zoom = 1}).x; };
    const auto yOf = [](double v) { return project(0, v, 0, 0, {.zoom = 1}).y; };
    EXPECT_EQ(xOf(2.5), 2);
    EXPECT_EQ(xOf(3.5), 4);
    EXPECT_EQ(xOf(-2.5), -2);
    EXPECT_EQ(xOf(-3.5), -4);
    EXPECT_EQ(xOf(2.51), 3);
    EXPECT_EQ(yOf(-2.5), 2);
    EXPECT_EQ(yOf(-3.5), 4);
    EXPECT_EQ(yOf(2.5), -2);
}

TEST_F(OrthoViewTest, TheRoundingComesBeforeThePan) {
    // 2.5 + 1 would round to 4; rounding first gives 2 + 1.
    EXPECT_EQ(project(2.5, -2.5, 0, 0, {.zoom = 1, .panX = 1, .panY = 1}).x, 3);
    EXPECT_EQ(project(2.5, -2.5, 0, 0, {.zoom = 1, .panX = 1, .panY = 1}).y, 3);
}

TEST_F(OrthoViewTest, AxisMarksAndNormalEndsAreNotRounded) {
    surface.resize(201, 101);
    loadVertices({{0, 0, 0}});
    vertex(1).normal = {0.01, 0.03, 0};
    editor.modes.showNormals = true;
    EXPECT_EQ(draw(View::Front, {.zoom = 0.03}),
              (Texts{"line 100.5 50.5 100.5 50.2 blue", "line 100.5 50.5 100.8 50.5 red",
                     "box 90 40 110 60 foreground", "line 100 50 101.5 45.5 lightblue"}));
}

TEST_F(OrthoViewTest, PointsFarOutsideThePictureAreDrawnAtTheLimitOfWholeNumbers) {
    const ScreenPoint far = project(1e300, 1e300, 0, 0, {.zoom = 20});
    EXPECT_EQ(far.x, 2147483647.0);
    EXPECT_EQ(far.y, -2147483648.0);
}

TEST_F(OrthoViewTest, RedrawAllDrawsEachViewIntoItsPictureWithItsState) {
    loadVertices({{1, 2, 3}});
    for (RecordingSurface* picture : {&front, &top, &left}) picture->resize(200, 100);
    editor.views[View::Front] = {.zoom = 1, .panX = 10, .panY = 0};
    editor.views[View::Top] = {.zoom = 2, .panX = 0, .panY = 20};
    editor.views[View::Left] = {.zoom = 3, .panX = -10, .panY = -20};
    redrawAll(editor);
    EXPECT_EQ(drawnText(front), (Texts{"line 110 50 110 40 blue", "line 110 50 120 50 red",
                                       "box 101 38 121 58 foreground"}));
    EXPECT_EQ(drawnText(top), (Texts{"line 100 70 100 50 green", "line 100 70 120 70 red",
                                     "box 92 54 112 74 foreground"}));
    EXPECT_EQ(drawnText(left), (Texts{"line 90 30 90 0 blue", "line 90 30 120 30 green",
                                      "box 89 14 109 34 foreground"}));
    EXPECT_TRUE(perspective.primitives().empty());
}

TEST_F(OrthoViewTest, ARedrawStartsFromAClearedPicture) {
    loadVertices({{0, 0, 0}});
    redrawAll(editor);
    const Texts first = drawnText(front);
    redrawAll(editor);
    EXPECT_EQ(drawnText(front), first);
}

TEST_F(OrthoViewTest, RedrawAllLeavesThePicturesAloneWhileNoModelIsLoaded) {
    loadVertices({{0, 0, 0}});
    store().modelLoaded = false;
    for (RecordingSurface* picture : {&front, &top, &left}) picture->circle(1, 2, 3, kRed);
    redrawAll(editor);
    for (const RecordingSurface* picture : {&front, &top, &left}) {
        EXPECT_EQ(drawnText(*picture), (Texts{"circle 1 2 3 red"}));
    }
}

}  // namespace
}  // namespace corvane
