#include "edit/normals.h"

#include <cmath>

#include "edit/commands/tools.h"
#include "test_commands.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

// 1 / sqrt(2)
constexpr double kHalfRoot = 0.70710678118654752;

TEST(Normalise, DividesByTheLength) {
    EXPECT_EQ(normalise({3, 0, 4}), (Triple{0.6, 0, 0.8}));
    EXPECT_EQ(normalise({0, -2, 0}), (Triple{0, -1, 0}));
    const Triple diagonal = normalise({1, 1, 0});
    EXPECT_NEAR(diagonal[0], kHalfRoot, 1e-15);
    EXPECT_NEAR(diagonal[1], kHalfRoot, 1e-15);
    EXPECT_EQ(diagonal[2], 0);
}

TEST(Normalise, AVectorWithoutLengthPointsAlongTheFirstSlot) {
    EXPECT_EQ(normalise({0, 0, 0}), (Triple{1, 0, 0}));
    EXPECT_EQ(normalise({-0.0, 0, -0.0}), (Triple{1, 0, 0}));
}

TEST(Normalise, AVectorTooLongForANumberPointsAlongTheFirstSlotToo) {
    EXPECT_EQ(normalise({0, 1.7e308, 1.7e308}), (Triple{1, 0, 0}));
}

class RecalculateNormalsTest : public ToolTest {
protected:
    /// A face with a right angle at its first corner.
    void loadTriangle() {
        loadVertices({{0, 0, 0}, {3, 0, 0}, {0, 4, 0}});
        addFace(0, 1, 2);
        fillOtherFields();
    }

    /// Four faces around vertex 1 at that height over the middle of a square.
    void loadFan(double height) {
        loadVertices({{0, 0, height}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, -1, 0}});
        addFace(0, 1, 2);
        addFace(2, 3, 0);
        addFace(4, 0, 3);
        addFace(0, 4, 1);
        fillOtherFields();
    }
};

TEST_F(RecalculateNormalsTest, ACornersNormalPointsAwayFromItsTwoNeighbours) {
    loadTriangle();
    select({1, 2, 3});
    recalculateNormals(editor);
    // (-1, 0) + (0, -1)
    expectNormal(1, {-kHalfRoot, -kHalfRoot, 0});
    // (1, 0) + (0.6, -0.8), of the length sqrt(3.2)
    expectNormal(2, {0.89442719099991588, -0.44721359549995794, 0});
    // (0, 1) + (-0.6, 0.8), of the length sqrt(3.6)
    expectNormal(3, {-0.31622776601683794, 0.94868329805051377, 0});
}

TEST_F(RecalculateNormalsTest, OnlyTheNormalsOfSelectedVerticesChange) {
    loadTriangle();
    select({1});
    Geoset expected = geoset();
    recalculateNormals(editor);
    expected.Vertices[0].normal = vertex(1).normal;
    expectGeoset(expected);
    expectNormal(1, {-kHalfRoot, -kHalfRoot, 0});
}

TEST_F(RecalculateNormalsTest, TheTipOfABumpPointsOutOfItWhicheverWayTheFacesRun) {
    loadFan(1);
    select({1});
    recalculateNormals(editor);
    expectNormal(1, {0, 0, 1});
    for (FaceRecord& face : store().Faces) std::swap(face.corner[0], face.corner[2]);
    recalculateNormals(editor);
    expectNormal(1, {0, 0, 1});
}

TEST_F(RecalculateNormalsTest, TheMiddleOfAFlatSymmetricFanFallsBack) {
    loadFan(0);
    select({1});
    recalculateNormals(editor);
    EXPECT_EQ(vertex(1).normal, (Triple{1, 0, 0}));
}

TEST_F(RecalculateNormalsTest, AVertexOfNoFaceFallsBack) {
    loadTriangle();
    store().Vertices.push_back({.pos = {7, 7, 7}, .normal = {0, 0, 5}, .selected = true});
    recalculateNormals(editor);
    EXPECT_EQ(vertex(4).normal, (Triple{1, 0, 0}));
}

TEST_F(RecalculateNormalsTest, EachFaceAtAVertexCountsEvenADoubledOne) {
    // Along a strip from vertex 1: (4, 0) lies on both faces, (0, 3) and (0, -3) on one.
    loadVertices({{0, 0, 0}, {4, 0, 0}, {0, 3, 0}, {0, -3, 0}});
    addFace(0, 1, 2);
    addFace(3, 1, 0);
    select({1});
    recalculateNormals(editor);
    // (-1, 0) + (0, -1) + (0, 1) + (-1, 0)
    EXPECT_EQ(vertex(1).normal, (Triple{-1, 0, 0}));
    addFace(0, 1, 2);
    recalculateNormals(editor);
    // (-3, -1), of the length sqrt(10)
    expectNormal(1, {-0.94868329805051377, -0.31622776601683794, 0});
}

TEST_F(RecalculateNormalsTest, VerticesAtTheSamePlaceSeeAllFacesThere) {
    // As above, but each face has a vertex of its own at the origin; -0 and 0 are the same place.
    loadVertices({{0, 0, 0}, {4, 0, 0}, {0, 3, 0}, {-0.0, 0, -0.0}, {4, 0, 0}, {0, 0, -3}});
    addFace(0, 1, 2);
    addFace(4, 5, 3);
    fillOtherFields();
    select({1, 4});
    recalculateNormals(editor);
    // (-1, 0, 0) + (0, -1, 0) + (-1, 0, 0) + (0, 0, 1), of the length sqrt(6)
    expectNormal(1, {-0.81649658092772603, -0.40824829046386302, 0.40824829046386302});
    EXPECT_EQ(vertex(4).normal, vertex(1).normal);
    EXPECT_NE(vertex(4).tu, vertex(1).tu);
}

TEST_F(RecalculateNormalsTest, AFaceAtTheSamePlaceCountsForAVertexThatIsNoCornerOfIt) {
    loadTriangle();
    store().Vertices.push_back({.pos = {0, 0, 0}, .selected = true});
    recalculateNormals(editor);
    expectNormal(4, {-kHalfRoot, -kHalfRoot, 0});
}

TEST_F(RecalculateNormalsTest, DeletedFacesCount) {
    loadTriangle();
    face(1).deleted = true;
    select({1});
    recalculateNormals(editor);
    expectNormal(1, {-kHalfRoot, -kHalfRoot, 0});
}

TEST_F(RecalculateNormalsTest, DeletedVerticesGetNormalsAndCountAsNeighbours) {
    loadTriangle();
    select({1, 2});
    flagDeleted({2, 3});
    recalculateNormals(editor);
    expectNormal(1, {-kHalfRoot, -kHalfRoot, 0});
    expectNormal(2, {0.89442719099991588, -0.44721359549995794, 0});
}

TEST_F(RecalculateNormalsTest, ANeighbourAtTheSamePlaceAddsTheFallbackDirection) {
    loadVertices({{0, 0, 0}, {0, 0, 0}, {0, 4, 0}});
    addFace(0, 1, 2);
    select({1, 2, 3});
    recalculateNormals(editor);
    // (1, 0) for the coincident corner + (0, -1)
    expectNormal(1, {kHalfRoot, -kHalfRoot, 0});
    expectNormal(2, {kHalfRoot, -kHalfRoot, 0});
    expectNormal(3, {0, 1, 0});
}

TEST_F(RecalculateNormalsTest, ADegenerateFaceCountsOnce) {
    loadVertices({{0, 0, 0}, {0, 4, 0}});
    addFace(0, 0, 1);
    select({1});
    recalculateNormals(editor);
    expectNormal(1, {kHalfRoot, -kHalfRoot, 0});
}

TEST_F(RecalculateNormalsTest, ItIsOneStepThatKeepsTheVerticesAndIsUndone) {
    loadFan(1);
    select({1, 2, 4});
    flagDeleted({4});
    const Geoset before = geoset();
    recalculateNormals(editor);
    EXPECT_NE(vertex(1).normal, before.Vertices[0].normal);
    EXPECT_EQ(vertex(3).normal, before.Vertices[2].normal);
    expectDrawn();
    expectStep("Recalculate Normals", {.keepVertices = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
}

TEST_F(RecalculateNormalsTest, UndoRestoresThePositionsToo) {
    loadTriangle();
    select({1});
    const Geoset before = geoset();
    recalculateNormals(editor);
    vertex(2).pos = {9, 9, 9};
    expectUndoneTo(before);
}

TEST_F(RecalculateNormalsTest, WithNothingSelectedOnlyTheStepIsRecorded) {
    loadTriangle();
    const Geoset before = geoset();
    recalculateNormals(editor);
    expectGeoset(before);
    expectStep("Recalculate Normals", {.keepVertices = true}, {0, 0, 0}, before);
    expectDrawn();
    expectUndoneTo(before);
}

TEST_F(RecalculateNormalsTest, BeforeAModelIsLoadedNothingHappens) {
    expectNothingBeforeAModelIsLoaded([&] { recalculateNormals(editor); });
}

class SnapNormalsTest : public ToolTest {
protected:
    SnapNormalsTest() {
        loadVertices({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}});
        addFace(0, 1, 2);
        fillOtherFields();
        vertex(1).normal = {1, 0, 0};
        vertex(2).normal = {0, 1, 0};
        vertex(3).normal = {2, 3, 0};
        vertex(4).normal = {0, 0, 9};
    }

    const std::string cancelOut =
        "The normals of the selected vertices cancel each other out, so they have no common "
        "direction. Nothing was changed; select fewer vertices, or recalculate the normals first.";
};

TEST_F(SnapNormalsTest, AllSelectedVerticesGetTheDirectionOfTheSum) {
    select({1, 2, 3});
    Geoset expected = geoset();
    // (3, 4, 0), of the length 5
    for (std::size_t i = 0; i < 3; ++i) expected.Vertices[i].normal = {0.6, 0.8, 0};
    snapNormals(editor);
    expectGeoset(expected);
    expectDrawn();
}

TEST_F(SnapNormalsTest, DeletedVerticesCountAndGetTheNormalToo) {
    select({1, 2, 3});
    flagDeleted({3});
    snapNormals(editor);
    EXPECT_EQ(vertex(1).normal, (Triple{0.6, 0.8, 0}));
    EXPECT_EQ(vertex(3).normal, (Triple{0.6, 0.8, 0}));
}

TEST_F(SnapNormalsTest, ASingleVertexsNormalIsMadeOfLengthOne) {
    select({4});
    snapNormals(editor);
    EXPECT_EQ(vertex(4).normal, (Triple{0, 0, 1}));
    EXPECT_EQ(vertex(3).normal, (Triple{2, 3, 0}));
}

TEST_F(SnapNormalsTest, ItIsOneStepThatKeepsTheVerticesAndIsUndone) {
    select({1, 2, 4});
    flagDeleted({2});
    const Geoset before = geoset();
    snapNormals(editor);
    expectStep("Snap Normals", {.keepVertices = true}, {0, 0, 0}, before);
    vertex(3).pos = {9, 9, 9};  // the positions come back too
    expectUndoneTo(before);
    expectDrawn();
}

TEST_F(SnapNormalsTest, NormalsThatCancelOutChangeNothingAndSaySo) {
    vertex(2).normal = {-1, 0, 0};
    select({1, 2});
    const Geoset before = geoset();
    snapNormals(editor);
    expectMessage("Error", cancelOut);
    expectGeoset(before);
    expectNoStep();
    EXPECT_FALSE(store().isModified());
}

TEST_F(SnapNormalsTest, ASingleVertexWithoutANormalChangesNothingAndSaysSo) {
    vertex(1).normal = {0, -0.0, 0};
    select({1});
    const Geoset before = geoset();
    snapNormals(editor);
    expectMessage("Error", cancelOut);
    expectGeoset(before);
    expectNoStep();
}

TEST_F(SnapNormalsTest, ASumThatNoNumberCanHoldChangesNothing) {
    vertex(1).normal = vertex(2).normal = {1.7e308, 0, 0};
    select({1, 2});
    const Geoset before = geoset();
    snapNormals(editor);
    ASSERT_EQ(dialogs.asked.size(), 1U);
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(dialogs.last().text,
              "The normals of the selected vertices are too large to be added up. Nothing was "
              "changed; select fewer vertices, or recalculate the normals first.");
    expectGeoset(before);
    expectNoStep();
    EXPECT_FALSE(store().isModified());
}

TEST_F(SnapNormalsTest, ASumWhoseLengthNoNumberCanHoldChangesNothing) {
    vertex(1).normal = {1e200, 0, 1e200};
    select({1});
    const Geoset before = geoset();
    snapNormals(editor);
    EXPECT_EQ(dialogs.asked.size(), 1U);
    expectGeoset(before);
    expectNoStep();
}

TEST_F(SnapNormalsTest, WithNothingSelectedNothingHappens) {
    const Geoset before = geoset();
    snapNormals(editor);
    expectGeoset(before);
    expectNoStep();
    expectNotDrawn();
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(SnapNormalsTest, BeforeAModelIsLoadedNothingHappens) {
    expectNothingBeforeAModelIsLoaded([&] { snapNormals(editor); });
    EXPECT_TRUE(dialogs.asked.empty());
}

}  // namespace
}  // namespace corvane
