#include "views/perspective_view.h"

#include "drawn_text.h"
#include "editor/run_edit.h"
#include "editor_fixture.h"
#include "views/commands/view_commands.h"
#include "views/ortho_view.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

class PerspectiveViewTest : public EditorTest {
protected:
    PerspectiveViewTest() { perspective.resize(200, 1000); }

    /// The projected height of a vertex at that position.
    double heightOf(const Triple& pos) const {
        VertexRecord vertex;
        vertex.pos = pos;
        return perspVertical(editor.perspective, vertex).value();
    }
};

TEST_F(PerspectiveViewTest, AVertexOnTheAxisShowsItsOwnHeight) {
    EXPECT_EQ(heightOf({0, 5, 0}), 5);  // 5 * 10 / 10
    EXPECT_EQ(heightOf({0, -3, 0}), -3);
}

TEST_F(PerspectiveViewTest, DepthShrinksTheHeight) {
    EXPECT_NEAR(heightOf({0, 5, 10}), 2.5, 1e-12);  // depth 10: 5 * 10 / 20
    EXPECT_NEAR(heightOf({0, 6, -5}), 4, 1e-12);    // x is 0: depth +5, 6 * 10 / 15
    EXPECT_NEAR(heightOf({3, 7, 4}), 5, 1e-12);     // depth 4: 7 * 10 / 14
    EXPECT_NEAR(heightOf({-3, 7, 4}), 5, 1e-12);
    EXPECT_NEAR(heightOf({-3, 3, -4}), 5, 1e-12);  // depth -4: 3 * 10 / 6
    EXPECT_NEAR(heightOf({10, 5, 0}), 5, 1e-12);   // beside the axis: depth 0
}

TEST_F(PerspectiveViewTest, OffsetAndDistanceAreAddedToHeightAndDepth) {
    editor.perspective.offset = 4;
    EXPECT_NEAR(heightOf({0, 5, 0}), 9, 1e-12);
    editor.perspective.distance = 20;
    EXPECT_NEAR(heightOf({0, 5, 0}), 3, 1e-12);  // 9 * 10 / 30
}

TEST_F(PerspectiveViewTest, TheTurnBringsWhatIsBesideTheAxisBehindIt) {
    editor.perspective.yaw = 90;
    EXPECT_NEAR(heightOf({10, 5, 0}), 2.5, 1e-9);  // now at depth 10
    EXPECT_NEAR(heightOf({-5, 5, 0}), 10, 1e-9);   // now at depth -5
    EXPECT_NEAR(heightOf({0, 5, 10}), 5, 1e-9);    // now beside the axis
    editor.perspective.yaw = 30;
    EXPECT_NEAR(heightOf({10, 6, 0}), 4, 1e-9);  // depth 10 sin 30 = 5
}

TEST_F(PerspectiveViewTest, EveryPointLiesOnTheVerticalCentreLine) {
    loadVertices({{0, 0, 0}, {10, 1, 2}, {-7, 2, 3}});
    for (const VertexRecord& vertex : store().Vertices) EXPECT_EQ(perspHorizontal(vertex), 0);
    addFace(0, 1, 2);
    for (int press = 0; press < 7; ++press) {
        turnPerspective(editor, 10);
        ASSERT_EQ(perspective.primitives().size(), 6U);
        for (const Primitive& item : perspective.primitives()) {
            EXPECT_EQ((item.x1 + item.x2) / 2, 100);
        }
    }
}

TEST_F(PerspectiveViewTest, DrawsFacesThenVerticesDeletedOnesIncluded) {
    loadVertices({{0, 1, 0}, {0, 2, 0}, {0, -3, 0}});
    select({2});
    vertex(1).deleted = true;
    vertex(3).deleted = true;
    addFace(0, 1, 2);
    store().Faces[0].deleted = true;
    drawPerspective(editor);
    EXPECT_EQ(drawnText(perspective),
              (Texts{"line 100 400 100 300 border", "line 100 300 100 800 border",
                     "line 100 800 100 400 border", "box 90 390 110 410 black",
                     "box 90 290 110 310 red", "box 90 790 110 810 black"}));
}

TEST_F(PerspectiveViewTest, DrawsWithTheSizeOfItsOwnPicture) {
    perspective.resize(kPictureWidth, kPictureHeight);
    loadVertices({{0, 5, 0}});
    drawPerspective(editor);  // 500 units above the centre
    EXPECT_EQ(drawnText(perspective), (Texts{"box 1557.5 997.5 1577.5 1017.5 black"}));
}

TEST_F(PerspectiveViewTest, ThePictureIsClearedFirst) {
    loadVertices({{0, 5, 0}});
    drawPerspective(editor);
    drawPerspective(editor);
    EXPECT_EQ(perspective.primitives().size(), 1U);
}

TEST_F(PerspectiveViewTest, EachButtonChangesItsValueAndDraws) {
    loadVertices({{0, 5, 0}});
    turnPerspective(editor, 10);
    EXPECT_EQ(editor.perspective.yaw, 10);
    EXPECT_EQ(drawnText(perspective), (Texts{"box 90 -10 110 10 black"}));
    raisePerspective(editor, -2);
    EXPECT_EQ(editor.perspective.offset, -2);
    EXPECT_EQ(drawnText(perspective), (Texts{"box 90 190 110 210 black"}));
    zoomPerspective(editor, -2);
    EXPECT_EQ(editor.perspective.distance, -2);
    EXPECT_EQ(drawnText(perspective), (Texts{"box 90 115 110 135 black"}));  // 3 * 10 / 8
    EXPECT_TRUE(front.primitives().empty());
}

TEST_F(PerspectiveViewTest, ThirtySixTurnsGiveTheSamePictureAsNone) {
    loadVertices({{1, 2, 3}, {-4, 5, 6}});
    addFace(0, 1, 0);
    drawPerspective(editor);
    const Texts before = drawnText(perspective);
    turnPerspective(editor, 10);
    EXPECT_NE(drawnText(perspective), before);
    for (int press = 2; press <= 36; ++press) turnPerspective(editor, 10);
    EXPECT_EQ(drawnText(perspective), before);
    EXPECT_EQ(editor.perspective.yaw, 0);
}

TEST_F(PerspectiveViewTest, TurningNeverLeavesSixteenBits) {
    for (int press = 1; press <= 3300; ++press) turnPerspective(editor, 10);
    EXPECT_EQ(editor.perspective.yaw, 240);  // 33000 degrees less 91 revolutions
}

TEST_F(PerspectiveViewTest, OffsetAndDistanceStopAtTheLimitsOfSixteenBits) {
    editor.perspective.offset = 32766;
    editor.perspective.distance = -32767;
    for (int press = 0; press < 3; ++press) {
        raisePerspective(editor, 2);
        zoomPerspective(editor, -2);
    }
    EXPECT_EQ(editor.perspective.offset, 32767);
    EXPECT_EQ(editor.perspective.distance, -32768);
    raisePerspective(editor, -2);
    zoomPerspective(editor, 2);
    EXPECT_EQ(editor.perspective.offset, 32765);
    EXPECT_EQ(editor.perspective.distance, -32766);
}

TEST_F(PerspectiveViewTest, AVertexAtTheEyeIsLeftOutWithItsEdges) {
    loadVertices({{0, 1, 0}, {0, 2, 0}, {0, 3, 5}});
    addFace(0, 1, 2);
    editor.perspective.distance = -15;  // the third vertex now lies at depth -10
    EXPECT_EQ(perspVertical(editor.perspective, vertex(3)), std::nullopt);
    drawPerspective(editor);
    EXPECT_EQ(drawnText(perspective),
              (Texts{"line 100 700 100 900 border", "box 90 690 110 710 black",
                     "box 90 890 110 910 black"}));
}

TEST_F(PerspectiveViewTest, AVertexBeyondAllNumbersIsLeftOutWithItsEdges) {
    // The height of the second is no number any more; that of the third is, but not once drawn.
    loadVertices({{0, 1, 0}, {0, 1.7e308, 0}, {0, 1e307, 0}, {0, 2, 0}});
    addFace(0, 1, 3);
    addFace(0, 2, 3);
    drawPerspective(editor);
    EXPECT_EQ(drawnText(perspective),
              (Texts{"line 100 300 100 400 border", "line 100 300 100 400 border",
                     "box 90 390 110 410 black", "box 90 290 110 310 black"}));
}

TEST_F(PerspectiveViewTest, DrawingKeepsHowFarAcrossEachVertexLies) {
    loadVertices({{3, 7, 4}, {-5, 0, 0}, {0, 2, 0}});
    drawPerspective(editor);
    ASSERT_EQ(editor.perspective.across.size(), 3U);
    EXPECT_NEAR(editor.perspective.across[0], 3, 1e-9);
    EXPECT_NEAR(editor.perspective.across[1], -5, 1e-9);
    EXPECT_EQ(editor.perspective.across[2], 0);
    for (int press = 1; press <= 9; ++press) turnPerspective(editor, 10);
    EXPECT_NEAR(editor.perspective.across[0], -4, 1e-9);
    EXPECT_NEAR(editor.perspective.across[1], 0, 1e-9);
}

TEST_F(PerspectiveViewTest, RedrawingTheOtherViewsLeavesItAlone) {
    loadVertices({{0, 5, 0}});
    drawPerspective(editor);
    const Texts before = drawnText(perspective);
    vertex(1).pos[1] = 50;
    redrawAll(editor);
    EXPECT_EQ(drawnText(perspective), before);
}

}  // namespace
}  // namespace corvane
