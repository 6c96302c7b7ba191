// Weld and Delete Face. Snap and Delete have a file of their own.
#include "edit/commands/tools.h"
#include "test_commands.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

using Faces = std::vector<std::string>;

/// A strip of three faces over five vertices.
class WeldTest : public ToolTest {
protected:
    WeldTest() {
        loadVertices({{0, 0, 0}, {2, 4, 6}, {4, 8, 0}, {10, 0, 3}, {20, 1, 1}});
        addFace(0, 1, 2);
        addFace(1, 2, 3);
        addFace(2, 3, 4);
        fillOtherFields();
    }
};

TEST_F(WeldTest, TheLowestSelectedVertexTakesThePlaceOfTheOthersAtTheCentre) {
    select({2, 4, 5});
    Geoset expected = geoset();
    expected.Vertices[1].pos = {32.0 / 3, 5.0 / 3, 10.0 / 3};
    for (const std::size_t gone : {3U, 4U}) {
        expected.Vertices[gone].selected = false;
        expected.Vertices[gone].deleted = true;
    }
    expected.Faces[1].corner = {1, 2, 1};
    expected.Faces[2].corner = {2, 1, 1};
    weldSelection(editor);
    expectGeoset(expected);
    EXPECT_EQ(selected(), (std::vector<int>{2}));
}

TEST_F(WeldTest, AFaceWithSeveralCornersOnTheSurvivorStaysInTheList) {
    select({1, 2});
    weldSelection(editor);
    EXPECT_EQ(faces(), (Faces{"0 0 2", "0 2 3", "2 3 4"}));
    select({1, 3, 4});
    weldSelection(editor);
    EXPECT_EQ(faces(), (Faces{"0 0 0", "0 0 0", "0 0 4"}));
}

TEST_F(WeldTest, ADeletedFaceKeepsItsCorners) {
    face(2).deleted = true;
    select({2, 3});
    weldSelection(editor);
    EXPECT_EQ(faces(), (Faces{"0 1 1", "1 2 3, deleted", "1 3 4"}));
}

TEST_F(WeldTest, ADeletedVertexOfTheSelectionStaysSelectedAndOutOfTheCentreButItsFacesAreWelded) {
    select({1, 2, 3});
    flagDeleted({3});
    weldSelection(editor);
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));  // the mean of vertices 1 and 2
    EXPECT_EQ(faces(), (Faces{"0 0 0", "0 0 3", "0 3 4"}));
    EXPECT_FALSE(vertex(1).deleted);
    EXPECT_TRUE(vertex(2).deleted);
    EXPECT_TRUE(vertex(3).deleted);
    EXPECT_EQ(vertex(3).pos, (Triple{4, 8, 0}));
    EXPECT_EQ(selected(), (std::vector<int>{1, 3}));
}

TEST_F(WeldTest, ADeletedVertexIsTheSurvivorWhenItIsTheLowest) {
    select({2, 3, 4});
    flagDeleted({2});
    weldSelection(editor);
    EXPECT_EQ(vertex(2).pos, (Triple{7, 4, 1.5}));  // the mean of vertices 3 and 4
    EXPECT_TRUE(vertex(2).deleted);
    EXPECT_TRUE(vertex(3).deleted);
    EXPECT_TRUE(vertex(4).deleted);
    EXPECT_EQ(selected(), (std::vector<int>{2}));
    EXPECT_EQ(faces(), (Faces{"0 1 1", "1 1 1", "1 1 4"}));
}

TEST_F(WeldTest, WithEverySelectedVertexDeletedTheSurvivorGoesToTheOrigin) {
    select({2, 3});
    flagDeleted({2, 3});
    weldSelection(editor);
    EXPECT_EQ(vertex(2).pos, (Triple{0, 0, 0}));
    EXPECT_EQ(vertex(3).pos, (Triple{4, 8, 0}));
    EXPECT_EQ(selected(), (std::vector<int>{2, 3}));
    EXPECT_EQ(faces(), (Faces{"0 1 1", "1 1 3", "1 3 4"}));
}

TEST_F(WeldTest, ASingleVertexStaysWhereItIs) {
    select({4});
    const Geoset before = geoset();
    weldSelection(editor);
    expectGeoset(before);
    EXPECT_EQ(newest().name, "Weld");
}

TEST_F(WeldTest, ItGoesByNoAxisLock) {
    editor.modes.activeX = editor.modes.activeY = editor.modes.activeZ = false;
    select({1, 2});
    weldSelection(editor);
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));
}

TEST_F(WeldTest, ItIsOneStepThatKeepsBothListsAndIsUndone) {
    select({2, 3, 4});
    flagDeleted({4});
    face(3).deleted = true;
    const Geoset before = geoset();
    weldSelection(editor);
    expectDrawn();
    expectStep("Weld", {.keepFaces = true, .keepVertices = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
    expectDrawn();
}

TEST_F(WeldTest, WithNothingSelectedNothingHappens) {
    const Geoset before = geoset();
    weldSelection(editor);
    expectGeoset(before);
    expectNoStep();
    expectNotDrawn();
    EXPECT_FALSE(store().isModified());
}

TEST_F(WeldTest, BeforeAModelIsLoadedNothingHappens) {
    expectNothingBeforeAModelIsLoaded([&] { weldSelection(editor); });
}

/// Two faces that share an edge, a third beside them.
class DeleteFaceTest : public ToolTest {
protected:
    DeleteFaceTest() {
        loadVertices({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}, {8, 0, 0}});
        addFace(0, 1, 2);
        addFace(0, 2, 3);
        addFace(1, 4, 2);
        fillOtherFields();
    }
};

TEST_F(DeleteFaceTest, AFaceIsDeletedWhenItsThreeCornersAreSelected) {
    select({1, 2, 3});
    Geoset expected = geoset();
    expected.Faces[0].deleted = true;
    deleteSelectedFaces(editor);
    expectGeoset(expected);
}

TEST_F(DeleteFaceTest, ASelectionOverTwoFacesDeletesBoth) {
    select({1, 2, 3, 4});
    deleteSelectedFaces(editor);
    EXPECT_EQ(faces(), (Faces{"0 1 2, deleted", "0 2 3, deleted", "1 4 2"}));
}

TEST_F(DeleteFaceTest, BothCopiesOfADoubledFaceAreDeleted) {
    addFace(2, 1, 0);
    select({1, 2, 3});
    deleteSelectedFaces(editor);
    EXPECT_EQ(faces(), (Faces{"0 1 2, deleted", "0 2 3", "1 4 2", "2 1 0, deleted"}));
}

TEST_F(DeleteFaceTest, AFaceOnADeletedVertexIsDeletedToo) {
    select({1, 2, 3});
    flagDeleted({2});
    deleteSelectedFaces(editor);
    EXPECT_EQ(faces(), (Faces{"0 1 2, deleted", "0 2 3", "1 4 2"}));
}

TEST_F(DeleteFaceTest, EachCornerMustBeSelected) {
    for (const std::vector<int>& two : {std::vector<int>{1, 2}, {2, 3}, {1, 3}}) {
        select(two);
        deleteSelectedFaces(editor);
        EXPECT_EQ(faces(), (Faces{"0 1 2", "0 2 3", "1 4 2"}));
    }
}

TEST_F(DeleteFaceTest, AFaceThatIsDeletedAlreadyStaysSo) {
    face(2).deleted = true;
    select({1, 2, 3, 4});
    deleteSelectedFaces(editor);
    EXPECT_EQ(faces(), (Faces{"0 1 2, deleted", "0 2 3, deleted", "1 4 2"}));
    undoLast(editor);
    EXPECT_EQ(faces(), (Faces{"0 1 2", "0 2 3, deleted", "1 4 2"}));
}

TEST_F(DeleteFaceTest, ItIsOneStepThatKeepsTheFacesAndIsUndone) {
    select({1, 2, 3, 4});
    flagDeleted({4});
    const Geoset before = geoset();
    deleteSelectedFaces(editor);
    expectDrawn();
    expectStep("Delete Face", {.keepFaces = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
    expectDrawn();
}

TEST_F(DeleteFaceTest, WithoutASelectedFaceOnlyTheStepIsRecorded) {
    for (const std::vector<int>& numbers : {std::vector<int>{}, {1, 2}}) {
        select(numbers);
        const Geoset before = geoset();
        deleteSelectedFaces(editor);
        expectGeoset(before);
        expectStep("Delete Face", {.keepFaces = true}, {0, 0, 0}, before);
        expectUndoneTo(before);
    }
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(DeleteFaceTest, BeforeAModelIsLoadedNothingHappens) {
    expectNothingBeforeAModelIsLoaded([&] { deleteSelectedFaces(editor); });
}

}  // namespace
}  // namespace corvane
