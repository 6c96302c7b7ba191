#include "edit/commands/drag_transforms.h"
#include "tool_fixture.h"
#include "views/commands/mouse.h"

namespace corvane {
namespace {

using Faces = std::vector<std::string>;

class ExtrudeTest : public ToolTest {
protected:
    /// A single face.
    void loadTriangle() {
        loadVertices({{0, 0, 0}, {4, 0, 0}, {0, 4, 0}});
        addFace(0, 1, 2);
        fillOtherFields();
    }

    /// A square of two faces over an edge from corner 0 to corner 2.
    void loadSquare() {
        loadVertices({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}});
        addFace(0, 1, 2);
        addFace(0, 2, 3);
        fillOtherFields();
    }

    /// The same square with a seam along that edge: two vertices at each of its ends.
    void loadSquareWithSeam() {
        loadVertices({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {-0.0, 0, -0.0}, {4, 4, -0.0}, {0, 4, 0}});
        addFace(0, 1, 2);
        addFace(3, 4, 5);
        fillOtherFields();
    }
};

TEST_F(ExtrudeTest, ASingleFaceGetsThreeSideWallsAndMovesAsTheCap) {
    loadTriangle();
    select({1, 2, 3});
    Geoset expected = geoset();
    for (int i = 1; i <= 3; ++i) {
        VertexRecord duplicate = vertex(i);
        for (std::size_t slot = 0; slot < 3; ++slot) duplicate.pos[slot] += Triple{1, -2, 5}[slot];
        expected.Vertices.push_back(duplicate);
        expected.Vertices[static_cast<std::size_t>(i) - 1].selected = false;
    }
    expected.Faces = {{.corner = {3, 4, 5}},                          // the cap
                      {.corner = {0, 1, 3}}, {.corner = {4, 3, 1}},   // along 0 to 1
                      {.corner = {1, 2, 4}}, {.corner = {5, 4, 2}},   // along 1 to 2
                      {.corner = {2, 0, 5}}, {.corner = {3, 5, 0}}};  // along 2 to 0
    extrudeSelection(editor, {1, -2, 5});
    expectGeoset(expected);
    EXPECT_EQ(selected(), (std::vector<int>{4, 5, 6}));
}

TEST_F(ExtrudeTest, AnEdgeBetweenTwoSelectedFacesGetsNoWall) {
    loadSquare();
    select({1, 2, 3, 4});
    extrudeSelection(editor, {0, 0, 5});
    EXPECT_EQ(faces(), (Faces{"4 5 6", "4 6 7",  //
                              "0 1 4", "5 4 1",  //
                              "1 2 5", "6 5 2",  //
                              "2 3 6", "7 6 3",  //
                              "3 0 7", "4 7 0"}));
}

TEST_F(ExtrudeTest, ASeamBetweenTwoSelectedFacesIsNoOpenEdge) {
    loadSquareWithSeam();
    select({1, 2, 3, 4, 5, 6});
    extrudeSelection(editor, {0, 0, 5});
    EXPECT_EQ(faces(), (Faces{"6 7 8", "9 10 11",   //
                              "0 1 6", "7 6 1",     //
                              "1 2 7", "8 7 2",     //
                              "4 5 10", "11 10 5",  //
                              "5 3 11", "9 11 3"}));
}

TEST_F(ExtrudeTest, CornersThatDifferOnOneAxisOnlyAreNoSeam) {
    for (std::size_t slot = 0; slot < 3; ++slot) {
        SCOPED_TRACE(slot);
        store() = {};
        loadSquareWithSeam();
        vertex(4).pos[slot] += 0.5;
        select({1, 2, 3, 4, 5, 6});
        extrudeSelection(editor, {0, 0, 5});
        EXPECT_EQ(store().Faces.size(), 2U + 12U);
    }
}

TEST_F(ExtrudeTest, EdgesThatRunTheSameWayAreTheSameEdgeToo) {
    loadSquare();
    face(2).corner = {2, 0, 3};  // as the first face runs: from 2 to 0
    select({1, 2, 3, 4});
    extrudeSelection(editor, {0, 0, 5});
    EXPECT_EQ(faces(), (Faces{"4 5 6", "6 4 7",  //
                              "0 1 4", "5 4 1",  //
                              "1 2 5", "6 5 2",  //
                              "0 3 4", "7 4 3",  //
                              "3 2 7", "6 7 2"}));
}

TEST_F(ExtrudeTest, ADoubledFaceHasNoOpenEdge) {
    loadTriangle();
    addFace(2, 1, 0);
    select({1, 2, 3});
    extrudeSelection(editor, {0, 0, 5});
    EXPECT_EQ(faces(), (Faces{"3 4 5", "5 4 3"}));
}

TEST_F(ExtrudeTest, TheEdgeToAnUnselectedFaceIsOpenAndThatFaceStaysOnTheBase) {
    loadSquare();
    select({1, 2, 3});
    extrudeSelection(editor, {0, 0, 5});
    EXPECT_EQ(faces(), (Faces{"4 5 6", "0 2 3",  //
                              "0 1 4", "5 4 1",  //
                              "1 2 5", "6 5 2",  //
                              "2 0 6", "4 6 0"}));
}

TEST_F(ExtrudeTest, SelectedVerticesOfNoSelectedFaceAreDuplicatedAndMovedLoose) {
    loadSquare();
    select({2, 4});
    extrudeSelection(editor, {0, 0, 5});
    ASSERT_EQ(store().Vertices.size(), 6U);
    EXPECT_EQ(faces(), (Faces{"0 1 2", "0 2 3"}));
    EXPECT_EQ(vertex(5).pos, (Triple{4, 0, 5}));
    EXPECT_EQ(vertex(6).pos, (Triple{0, 4, 5}));
    EXPECT_EQ(vertex(2).pos, (Triple{4, 0, 0}));
    EXPECT_EQ(selected(), (std::vector<int>{5, 6}));
}

TEST_F(ExtrudeTest, TheCapMovesOnActiveAxesOnly) {
    loadTriangle();
    select({1, 2, 3});
    editor.modes.activeY = false;
    extrudeSelection(editor, {1, 2, 3});
    EXPECT_EQ(vertex(4).pos, (Triple{1, 0, 3}));
    EXPECT_EQ(vertex(6).pos, (Triple{1, 4, 3}));
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 0}));
}

TEST_F(ExtrudeTest, WithNoActiveAxisTheWallsAreMadeWithoutHeight) {
    loadTriangle();
    select({1, 2, 3});
    editor.modes.activeX = editor.modes.activeY = editor.modes.activeZ = false;
    extrudeSelection(editor, {1, 2, 3});
    EXPECT_EQ(store().Faces.size(), 7U);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(vertex(i + 3).pos, vertex(i).pos);
}

TEST_F(ExtrudeTest, DeletedVerticesAndFacesTakePart) {
    loadTriangle();
    select({1, 2, 3});
    flagDeleted({2});
    face(1).deleted = true;
    extrudeSelection(editor, {0, 0, 5});
    EXPECT_EQ(faces(), (Faces{"3 4 5, deleted",  //
                              "0 1 3", "4 3 1",  //
                              "1 2 4", "5 4 2",  //
                              "2 0 5", "3 5 0"}));
    EXPECT_TRUE(vertex(2).deleted);
    EXPECT_TRUE(vertex(5).deleted);
    EXPECT_EQ(vertex(5).pos, (Triple{4, 0, 5}));
    EXPECT_FALSE(vertex(4).deleted);
}

TEST_F(ExtrudeTest, ItIsOneStepThatKeepsBothListsAndIsUndone) {
    loadSquareWithSeam();
    select({1, 2, 3, 4, 5});
    flagDeleted({4});
    const Geoset before = geoset();
    extrudeSelection(editor, {1, 2, 3});
    expectDrawn();
    expectStep("Extrude", {.keepFaces = true, .keepVertices = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
    expectDrawn();
}

TEST_F(ExtrudeTest, WithNothingSelectedOnlyTheStepIsRecorded) {
    loadSquare();
    const Geoset before = geoset();
    extrudeSelection(editor, {1, 2, 3});
    expectGeoset(before);
    expectStep("Extrude", {.keepFaces = true, .keepVertices = true}, {0, 0, 0}, before);
    expectDrawn();
    expectUndoneTo(before);
}

TEST_F(ExtrudeTest, ExtrudingTwicePullsTheCapOutFurther) {
    loadTriangle();
    select({1, 2, 3});
    extrudeSelection(editor, {0, 0, 5});
    extrudeSelection(editor, {0, 0, 5});
    EXPECT_EQ(store().Vertices.size(), 9U);
    EXPECT_EQ(store().Faces.size(), 13U);
    EXPECT_EQ(faces().front(), "6 7 8");
    EXPECT_EQ(vertex(4).pos, (Triple{0, 0, 5}));
    EXPECT_EQ(vertex(7).pos, (Triple{0, 0, 10}));
}

// It leaves a copy behind by itself; one more would lie on top of the cap.
TEST_F(ExtrudeTest, CloneModeMakesNoFurtherCopyAndEnds) {
    loadTriangle();
    select({1, 2, 3});
    editor.modes.cloneMode = true;
    extrudeSelection(editor, {0, 0, 5});
    EXPECT_EQ(store().Vertices.size(), 6U);
    EXPECT_EQ(store().Faces.size(), 7U);
    EXPECT_EQ(newest().name, "Extrude");
    EXPECT_FALSE(editor.modes.cloneMode);
}

TEST_F(ExtrudeTest, ADragInEachViewExtrudesAlongItsAxes) {
    const auto movedBy = [&](View view) {
        store() = {};
        loadTriangle();
        select({1, 2, 3});
        editor.modes.transformMode = TransformMode::Extrude;
        mouseDown(editor, view, 100, 100);
        mouseUp(editor, view, MouseButton::Other, 160, 20);  // at zoom 20: 3 right, 4 up
        EXPECT_EQ(store().Faces.size(), 7U);
        return vertex(4).pos;
    };
    EXPECT_EQ(movedBy(View::Front), (Triple{3, 4, 0}));
    EXPECT_EQ(movedBy(View::Top), (Triple{3, 0, 4}));
    EXPECT_EQ(movedBy(View::Left), (Triple{0, 4, 3}));
}

TEST_F(ExtrudeTest, AClickWithoutADragExtrudesByNothing) {
    loadTriangle();
    select({1, 2, 3});
    const Geoset before = geoset();
    editor.modes.transformMode = TransformMode::Extrude;
    mouseDown(editor, View::Front, 100, 100);
    mouseUp(editor, View::Front, MouseButton::Other, 100, 100);
    EXPECT_EQ(store().Faces.size(), 7U);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(vertex(i + 3).pos, vertex(i).pos);
    expectUndoneTo(before);
}

TEST_F(ExtrudeTest, BeforeAModelIsLoadedNothingHappens) {
    expectNothingBeforeAModelIsLoaded([&] { extrudeSelection(editor, {1, 2, 3}); });
    EXPECT_TRUE(dialogs.asked.empty());
}

class ExtrudeLimitTest : public ExtrudeTest {
protected:
    /// Vertices at places of their own, all selected where `selectAll` says so, and `faceCount`
    /// faces, of which only the first has an area.
    void load(std::size_t vertices, bool selectAll, std::size_t faceCount) {
        loadVertices(std::vector<Triple>(vertices, Triple{1, 2, 3}));
        vertex(2).pos = {4, 2, 3};
        vertex(3).pos = {1, 6, 3};
        for (std::size_t i = 0; i < vertices; ++i) {
            store().Vertices[i].selected = selectAll || i < 3;
        }
        const auto last = static_cast<std::int16_t>(vertices - 1);
        store().Faces.assign(faceCount, {.corner = {last, last, last}});
        if (faceCount > 0) store().Faces[0].corner = {0, 1, 2};
    }

    void expectRefused(const std::string& message) {
        const Geoset before = geoset();
        extrudeSelection(editor, {1, 1, 1});
        expectMessage("Error", message);
        EXPECT_TRUE(geoset() == before);
        EXPECT_FALSE(store().isModified());
        expectNoStep();
    }
};

TEST_F(ExtrudeLimitTest, TheVerticesMayGrowTo32767) {
    load(16383, true, 0);
    store().Vertices.emplace_back();
    extrudeSelection(editor, {1, 1, 1});
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_EQ(store().Vertices.size(), 32767U);
    EXPECT_EQ(vertex(32767).pos, (Triple{2, 3, 4}));
}

TEST_F(ExtrudeLimitTest, OneVertexMoreIsRefusedWithTheNumbers) {
    load(16384, true, 0);
    expectRefused(
        "The extruded geoset would be too large: 16384 + 16384 = 32768 vertices (at most 32767), "
        "0 + 0 = 0 faces (at most 32767). Nothing was changed.");
}

TEST_F(ExtrudeLimitTest, TheFacesMayGrowTo32767) {
    load(4, false, 32761);
    extrudeSelection(editor, {1, 1, 1});
    EXPECT_TRUE(dialogs.asked.empty());
    ASSERT_EQ(store().Faces.size(), 32767U);
    EXPECT_EQ(faces().back(), "4 6 0");
}

TEST_F(ExtrudeLimitTest, OneFaceMoreIsRefusedWithTheNumbers) {
    load(4, false, 32762);
    expectRefused(
        "The extruded geoset would be too large: 4 + 3 = 7 vertices (at most 32767), 32762 + 6 = "
        "32768 faces (at most 32767). Nothing was changed.");
}

}  // namespace
}  // namespace corvane
