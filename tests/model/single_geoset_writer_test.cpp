// A geoset written alone, as an unanimated model.
#include <gtest/gtest.h>

#include "model/model_writer.h"
#include "model_texts.h"

namespace corvane {
namespace {

template <class Edit>
std::string savedAlone(const std::string& text, int geosetNumber, Edit edit) {
    const ModelText model("hero.mdl", text);
    const auto geosets = scanGeosets(model.view());
    Geoset geoset = parseGeoset(model, geosets, geosetNumber);
    edit(geoset);
    return composeSingleGeoset(model, geosets, geosetNumber, geoset).joined();
}

std::string savedAlone(const std::string& text, int geosetNumber) {
    return savedAlone(text, geosetNumber, [](Geoset&) {});
}

const std::string kHead =
    "// h\xE9ros\n"
    "Version {\n"
    "\tFormatVersion 800,\n"
    "}\n"
    "Model \"Hero\" {\n"
    "\tNumGeosets 3,\n"
    "}\n";

const std::string kSequences =
    "Sequences 2 {\n"
    "\tAnim \"Walk\" {\n"
    "\t\tInterval { 0, 1000 },\n"
    "\t}\n"
    "\tAnim \"Death\" {\n"
    "\t\tInterval { 2000, 3000 },\n"
    "\t\tNonLooping,\n"
    "\t}\n"
    "}\n";

const std::string kOneSequence =
    "Sequences 1 {\n"
    "\tAnim \"Stand\" {\n"
    "\t\tInterval { 0, 3333 },\n"
    "\t}\n"
    "}\n";

const std::string kTextures =
    "Textures 1 {\n"
    "\tBitmap {\n"
    "\t\tImage \"Textures\\h\xE9ros.blp\",\n"
    "\t}\n"
    "}\n";

std::string geosetText(const std::string& x) {
    return "Geoset {\n"
           "\tVertices 3 {\n"
           "\t\t{ " +
           x +
           ".000, 0, 0 },\n"
           "\t\t{ " +
           x +
           ".000, 1, 0 },\n"
           "\t\t{ " +
           x +
           ".000, 0, 1 },\n"
           "\t}\n"
           "\tVertexGroup {\n"
           "\t\t0,\n"
           "\t\t1,\n"
           "\t\t1,\n"
           "\t}\n"
           "\tFaces 1 3 {\n"
           "\t\tTriangles {\n"
           "\t\t\t{ 0, 1, 2 },\n"
           "\t\t}\n"
           "\t}\n"
           "\tGroups 2 3 {\n"
           "\t\tMatrices { 4 },\n"
           "\t\tMatrices { 5, 6 },\n"
           "\t}\n"
           "\tBoundsRadius 1.000,\n"
           "}\n";
}

std::string geosetSavedAlone(const std::string& x) {
    return "Geoset {\n"
           "\tVertices 3 {\n"
           "\t\t{ " +
           x +
           ", 0, 0 },\n"
           "\t\t{ " +
           x +
           ", 1, 0 },\n"
           "\t\t{ " +
           x +
           ", 0, 1 },\n"
           "\t}\n"
           "\tVertexGroup {\n"
           "\t\t0,\n"
           "\t\t0,\n"
           "\t\t0,\n"
           "\t}\n"
           "\tFaces 1 3 {\n"
           "\t\tTriangles {\n"
           "\t\t\t{ 0, 1, 2 },\n"
           "\t\t}\n"
           "\t}\n"
           "\tGroups 1 1 {\n"
           "\t\tMatrices { 0 },\n"
           "\t}\n"
           "\tBoundsRadius 1.000,\n"
           "}\n";
}

const std::string kTail =
    "Bone \"Bone0\" {\n"
    "\tObjectId 0,\n"
    "\tGeosetAnimId None,\n"
    "}\n"
    "PivotPoints 1 {\n"
    "\t{ 0, 0, 0 },\n"
    "}\n";

const std::string kAnimated =
    "GeosetAnim {\n"
    "\tGeosetId 0,\n"
    "}\n"
    "Bone \"Root\" {\n"
    "\tObjectId 0,\n"
    "\tGeosetId 0,\n"
    "}\n"
    "PivotPoints 1 {\n"
    "\t{ 1, 2, 3 },\n"
    "}\n";

const std::string kModel = kHead + kSequences + kTextures + geosetText("1") + geosetText("2") +
                           geosetText("3") + kAnimated;

TEST(ComposeSingleGeoset, WritesTheFirstGeosetAlone) {
    EXPECT_EQ(savedAlone(kModel, 1),
              kHead + kOneSequence + kTextures + geosetSavedAlone("1") + kTail);
}

TEST(ComposeSingleGeoset, WritesAGeosetInTheMiddleAlone) {
    EXPECT_EQ(savedAlone(kModel, 2),
              kHead + kOneSequence + kTextures + geosetSavedAlone("2") + kTail);
}

TEST(ComposeSingleGeoset, WritesTheLastGeosetAlone) {
    EXPECT_EQ(savedAlone(kModel, 3),
              kHead + kOneSequence + kTextures + geosetSavedAlone("3") + kTail);
}

TEST(ComposeSingleGeoset, WritesTheSameWithCarriageReturns) {
    EXPECT_EQ(savedAlone(withCrLf(kModel), 2),
              withCrLf(kHead + kOneSequence + kTextures + geosetSavedAlone("2") + kTail));
}

TEST(ComposeSingleGeoset, KeepsAByteOrderMark) {
    EXPECT_EQ(savedAlone("\xEF\xBB\xBF" + kModel, 3),
              "\xEF\xBB\xBF" + kHead + kOneSequence + kTextures + geosetSavedAlone("3") + kTail);
    EXPECT_EQ(savedAlone("\xEF\xBB\xBF" + kSequences + geosetText("1"), 1),
              "\xEF\xBB\xBF" + kOneSequence + geosetSavedAlone("1") + kTail);
}

TEST(ComposeSingleGeoset, DropsWhatStandsBetweenTheGeosets) {
    EXPECT_EQ(savedAlone(kHead + geosetText("1") + kSequences + kTextures + geosetText("2"), 2),
              kHead + geosetSavedAlone("2") + kTail);
}

TEST(ComposeSingleGeoset, WritesAModelWithoutSequences) {
    EXPECT_EQ(savedAlone(kHead + geosetText("1"), 1), kHead + geosetSavedAlone("1") + kTail);
}

TEST(ComposeSingleGeoset, ReplacesAnEmptySequencesBlock) {
    EXPECT_EQ(savedAlone("Sequences 0 {\n}\n" + geosetText("1"), 1),
              kOneSequence + geosetSavedAlone("1") + kTail);
}

TEST(ComposeSingleGeoset, BreaksTheLastLineBeforeTheBone) {
    const std::string cut = geosetText("1").substr(0, geosetText("1").size() - 1);
    EXPECT_EQ(savedAlone(kHead + cut, 1), kHead + geosetSavedAlone("1") + kTail);
    EXPECT_EQ(savedAlone(withCrLf(kHead) + withCrLf(cut), 1),
              withCrLf(kHead + geosetSavedAlone("1") + kTail));
}

TEST(ComposeSingleGeoset, DropsDeletedVerticesAndFaces) {
    const std::string text =
        "Geoset {\n"
        "\tVertices 4 {\n"
        "\t\t{ 0, 0, 0 },\n"
        "\t\t{ 1, 0, 0 },\n"
        "\t\t{ 2, 0, 0 },\n"
        "\t\t{ 3, 0, 0 },\n"
        "\t}\n"
        "\tVertexGroup {\n"
        "\t\t4,\n"
        "\t\t5,\n"
        "\t\t6,\n"
        "\t\t7,\n"
        "\t}\n"
        "\tFaces 1 6 {\n"
        "\t\tTriangles {\n"
        "\t\t\t{ 0, 1, 2, 0, 2, 3 },\n"
        "\t\t}\n"
        "\t}\n"
        "}\n";
    EXPECT_EQ(savedAlone(text, 1, [](Geoset& geoset) { geoset.Vertices[1].deleted = true; }),
              "Geoset {\n"
              "\tVertices 3 {\n"
              "\t\t{ 0, 0, 0 },\n"
              "\t\t{ 2, 0, 0 },\n"
              "\t\t{ 3, 0, 0 },\n"
              "\t}\n"
              "\tVertexGroup {\n"
              "\t\t0,\n"
              "\t\t0,\n"
              "\t\t0,\n"
              "\t}\n"
              "\tFaces 1 3 {\n"
              "\t\tTriangles {\n"
              "\t\t\t{ 0, 1, 2 },\n"
              "\t\t}\n"
              "\t}\n"
              "}\n" +
                  kTail);
}

TEST(ComposeSingleGeoset, WritesAModelThatHoldsOneReadableGeoset) {
    const std::string text = savedAlone(kModel, 2);
    EXPECT_EQ(scanGeosets(text).size(), 1U);
    const Geoset before = readGeoset(kModel, 2);
    const Geoset after = readGeoset(text, 1);
    ASSERT_EQ(after.Vertices.size(), 3U);
    EXPECT_EQ(after.Vertices[2].pos, before.Vertices[2].pos);
    EXPECT_EQ(after.Vertices[2].group, 0);
    EXPECT_EQ(after.Faces, before.Faces);
    EXPECT_EQ(after.matrixGroups, (std::vector<MatrixGroup>{{0, -1, -1, -1, -1, -1, -1}}));
}

TEST(ComposeSingleGeoset, RefusesSequencesThatDoNotEnd) {
    const std::string text = kHead + "Sequences 1 {\n\tAnim \"Walk\" {\n\t}\n" + geosetText("1");
    try {
        savedAlone(text, 1);
        ADD_FAILURE() << "was written";
    } catch (const ModelTextError& error) {
        EXPECT_STREQ(error.what(),
                     "hero.mdl, line 8: the block Sequences that starts here does not end.");
    }
}

}  // namespace
}  // namespace corvane
