// Whole models as they are written, byte for byte. A geoset alone is in
// single_geoset_writer_test.cpp.
#include "model/model_writer.h"

#include <gtest/gtest.h>

#include "model_texts.h"

namespace corvane {
namespace {

// Reads a geoset of `text`, lets `edit` change it, and returns the model with it written anew.
template <class Edit>
std::string saved(const std::string& text, int geosetNumber, Edit edit) {
    const ModelText model("hero.mdl", text);
    const auto geosets = scanGeosets(model.view());
    Geoset geoset = parseGeoset(model, geosets, geosetNumber);
    edit(geoset);
    return composeModel(model, geosets, geosetNumber, geoset).joined();
}

std::string saved(const std::string& text, int geosetNumber = 1) {
    return saved(text, geosetNumber, [](Geoset&) {});
}

// What stands before and after the edited geoset, with bytes that no editor may touch: an old
// code page, blanks at the ends of lines, empty lines, a control character.
const std::string kBefore =
    "// f\xFCr alle \x80\xFF \n"
    "Version {\n"
    "\tFormatVersion 800,  \n"
    "}\n"
    "\n"
    "Sequences 1 {\n"
    "\tAnim \"Stand\" {\n"
    "\t\tInterval { 0, 1000 },\n"
    "\t}\n"
    "}\n"
    "Geoset {\n"
    "\tVertices 1 {\n"
    "\t\t{ 1.000000, 2.000000, -0.000000 },\n"
    "\t}\n"
    "\tMaterialID 0,\n"
    "}\n";

const std::string kAfter =
    "Geoset {\n"
    "\tVertices 1 {\n"
    "\t\t{ x },\n"
    "\t}\n"
    "}\n"
    "Bone \"B\xFChne\x1A\" {\n"
    "\tObjectId 0,\t\n"
    "\tVertices 9 {\n"
    "\t\t{ 1.000000 },\n"
    "\t}\n"
    "}\n"
    " \n";

const std::string kGeoset =
    "Geoset {\n"
    "\tVertices 4 {\n"
    "\t\t{ 1.500000, -2.000000, 0.030000 },\n"
    "\t\t{ -0.000000, 8.32939e-004, 1.044562E-08 },\n"
    "\t\t{ 1.23456789012, 2, 3 },\n"
    "\t\t{ 4, 5, 6 },\n"
    "\t}\n"
    "\tNormals 4 {\n"
    "\t\t{ 0.12345678, 0, 1 },\n"
    "\t\t{ 0, 1, 0 },\n"
    "\t\t{ 1, 0, 0 },\n"
    "\t\t{ 0, 0, -1.000000 },\n"
    "\t}\n"
    "\tTVertices 4 {\n"
    "\t\t{ 0.250000, 0.500000 },\n"
    "\t\t{ 1, 0 },\n"
    "\t\t{ 0, 1 },\n"
    "\t\t{ 0.12345678, 1 },\n"
    "\t}\n"
    "\tVertexGroup {\n"
    "\t\t0,\n"
    "\t\t1,\n"
    "\t\t0,\n"
    "\t\t12,\n"
    "\t}\n"
    "\tFaces 1 9 {\n"
    "\t\tTriangles {\n"
    "\t\t\t{ 0, 1, 2 },\n"
    "\t\t\t{ 0, 2, 3, 3, 2, 1 },\n"
    "\t\t}\n"
    "\t}\n"
    "\tGroups 2 3 {\n"
    "\t\tMatrices { 0 },\n"
    "\t\tMatrices { 1, 2 },\n"
    "\t}\n"
    "\tMinimumExtent { -0.000000, 1.000000, 2 },  \n"
    "\tAnim {\n"
    "\t\tBoundsRadius 1.000000,\n"
    "\t}\n"
    "\n"
    "\tMaterialID 0,\n"
    "}\n";

const std::string kGeosetSaved =
    "Geoset {\n"
    "\tVertices 4 {\n"
    "\t\t{ 1.5, -2, 0.03 },\n"
    "\t\t{ 0, 0.000832939, 1.044562e-8 },\n"
    "\t\t{ 1.23456789012, 2, 3 },\n"
    "\t\t{ 4, 5, 6 },\n"
    "\t}\n"
    "\tNormals 4 {\n"
    "\t\t{ 0.123457, 0, 1 },\n"
    "\t\t{ 0, 1, 0 },\n"
    "\t\t{ 1, 0, 0 },\n"
    "\t\t{ 0, 0, -1 },\n"
    "\t}\n"
    "\tTVertices 4 {\n"
    "\t\t{ 0.25, 0.5 },\n"
    "\t\t{ 1, 0 },\n"
    "\t\t{ 0, 1 },\n"
    "\t\t{ 0.123457, 1 },\n"
    "\t}\n"
    "\tVertexGroup {\n"
    "\t\t0,\n"
    "\t\t1,\n"
    "\t\t0,\n"
    "\t\t12,\n"
    "\t}\n"
    "\tFaces 1 9 {\n"
    "\t\tTriangles {\n"
    "\t\t\t{ 0, 1, 2, 0, 2, 3, 3, 2, 1 },\n"
    "\t\t}\n"
    "\t}\n"
    "\tGroups 2 3 {\n"
    "\t\tMatrices { 0 },\n"
    "\t\tMatrices { 1, 2 },\n"
    "\t}\n"
    "\tMinimumExtent { -0.000000, 1.000000, 2 },  \n"
    "\tAnim {\n"
    "\t\tBoundsRadius 1.000000,\n"
    "\t}\n"
    "\n"
    "\tMaterialID 0,\n"
    "}\n";

TEST(ComposeModel, ChangesOnlyTheSixSectionsOfTheGeoset) {
    EXPECT_EQ(saved(kBefore + kGeoset + kAfter, 2), kBefore + kGeosetSaved + kAfter);
}

TEST(ComposeModel, WritesTheSameWithCarriageReturns) {
    EXPECT_EQ(saved(withCrLf(kBefore + kGeoset + kAfter), 2),
              withCrLf(kBefore + kGeosetSaved + kAfter));
}

TEST(ComposeModel, WritesWhatItWroteBeforeOnceMore) {
    const std::string once = saved(kBefore + kGeoset + kAfter, 2);
    EXPECT_EQ(saved(once, 2), once);
}

TEST(ComposeModel, KeepsAByteOrderMark) {
    EXPECT_EQ(saved("\xEF\xBB\xBF" + kBefore + kGeoset + kAfter, 2),
              "\xEF\xBB\xBF" + kBefore + kGeosetSaved + kAfter);
    EXPECT_EQ(saved("\xEF\xBB\xBF" + kGeoset), "\xEF\xBB\xBF" + kGeosetSaved);
}

TEST(ComposeModel, KeepsAMissingLastLineBreak) {
    EXPECT_EQ(saved(kGeoset.substr(0, kGeoset.size() - 1)),
              kGeosetSaved.substr(0, kGeosetSaved.size() - 1));
    EXPECT_EQ(saved(kGeoset + "Bone \"B\" {\n}"), kGeosetSaved + "Bone \"B\" {\n}");
}

TEST(ComposeModel, KeepsAGeosetUnclosedAtTheEndOfTheFile) {
    const std::string unclosed = "Geoset {\n\tVertices 1 {\n\t\t{ 1.0, 2, 3 },\n\t}";
    EXPECT_EQ(saved(unclosed), "Geoset {\n\tVertices 1 {\n\t\t{ 1, 2, 3 },\n\t}");
}

TEST(ComposeModel, WritesTheFirstAndTheLastGeoset) {
    EXPECT_EQ(saved(kGeoset + kAfter, 1), kGeosetSaved + kAfter);
    EXPECT_EQ(saved(kBefore + kGeoset, 2), kBefore + kGeosetSaved);
}

TEST(ComposeModel, WritesEditedValues) {
    const std::string text =
        "Geoset {\n"
        "\tVertices 2 {\n"
        "\t\t{ 1, 2, 3 },\n"
        "\t\t{ 4, 5, 6 },\n"
        "\t}\n"
        "\tNormals 2 {\n"
        "\t\t{ 0, 0, 1 },\n"
        "\t\t{ 0, 0, 1 },\n"
        "\t}\n"
        "}\n";
    const auto edit = [](Geoset& geoset) {
        geoset.Vertices[0].pos = {20, 30, 10};
        geoset.Vertices[1].normal = {1, 0, 0};
        VertexRecord added;
        added.pos = {8, 9, 7.25};
        geoset.Vertices.push_back(added);
    };
    EXPECT_EQ(saved(text, 1, edit),
              "Geoset {\n"
              "\tVertices 3 {\n"
              "\t\t{ 10, 20, 30 },\n"
              "\t\t{ 4, 5, 6 },\n"
              "\t\t{ 7.25, 8, 9 },\n"
              "\t}\n"
              "\tNormals 3 {\n"
              "\t\t{ 0, 0, 1 },\n"
              "\t\t{ 0, 1, 0 },\n"
              "\t\t{ 0, 0, 0 },\n"
              "\t}\n"
              "}\n");
}

const std::string kSmallGeoset =
    "Geoset {\n"
    "\tVertices 4 {\n"
    "\t\t{ 0, 0, 0 },\n"
    "\t\t{ 1, 0, 0 },\n"
    "\t\t{ 2, 0, 0 },\n"
    "\t\t{ 3, 0, 0 },\n"
    "\t}\n"
    "\tNormals 4 {\n"
    "\t\t{ 0, 0, 1 },\n"
    "\t\t{ 0, 1, 0 },\n"
    "\t\t{ 1, 0, 0 },\n"
    "\t\t{ 0, 0, -1 },\n"
    "\t}\n"
    "\tTVertices 4 {\n"
    "\t\t{ 0, 0 },\n"
    "\t\t{ 0, 1 },\n"
    "\t\t{ 0, 2 },\n"
    "\t\t{ 0, 3 },\n"
    "\t}\n"
    "\tVertexGroup {\n"
    "\t\t0,\n"
    "\t\t1,\n"
    "\t\t2,\n"
    "\t\t3,\n"
    "\t}\n"
    "\tFaces 1 6 {\n"
    "\t\tTriangles {\n"
    "\t\t\t{ 0, 1, 2, 0, 2, 3 },\n"
    "\t\t}\n"
    "\t}\n"
    "\tGroups 1 1 {\n"
    "\t\tMatrices { 0 },\n"
    "\t}\n"
    "}\n";

TEST(ComposeModel, DropsADeletedVertexEverywhere) {
    const auto edit = [](Geoset& geoset) { geoset.Vertices[1].deleted = true; };
    EXPECT_EQ(saved(kSmallGeoset, 1, edit),
              "Geoset {\n"
              "\tVertices 3 {\n"
              "\t\t{ 0, 0, 0 },\n"
              "\t\t{ 2, 0, 0 },\n"
              "\t\t{ 3, 0, 0 },\n"
              "\t}\n"
              "\tNormals 3 {\n"
              "\t\t{ 0, 0, 1 },\n"
              "\t\t{ 1, 0, 0 },\n"
              "\t\t{ 0, 0, -1 },\n"
              "\t}\n"
              "\tTVertices 3 {\n"
              "\t\t{ 0, 0 },\n"
              "\t\t{ 0, 2 },\n"
              "\t\t{ 0, 3 },\n"
              "\t}\n"
              "\tVertexGroup {\n"
              "\t\t0,\n"
              "\t\t2,\n"
              "\t\t3,\n"
              "\t}\n"
              "\tFaces 1 3 {\n"
              "\t\tTriangles {\n"
              "\t\t\t{ 0, 1, 2 },\n"
              "\t\t}\n"
              "\t}\n"
              "\tGroups 1 1 {\n"
              "\t\tMatrices { 0 },\n"
              "\t}\n"
              "}\n");
}

TEST(ComposeModel, ReadsBackWhatWasKept) {
    const std::string text = saved(kSmallGeoset, 1, [](Geoset& geoset) {
        geoset.Vertices[1].deleted = true;
        geoset.Vertices[3].selected = true;
    });
    const Geoset before = readGeoset(kSmallGeoset);
    const Geoset after = readGeoset(text);
    ASSERT_EQ(after.Vertices.size(), 3U);
    EXPECT_EQ(after.Vertices[0], before.Vertices[0]);
    EXPECT_EQ(after.Vertices[1], before.Vertices[2]);
    EXPECT_EQ(after.Vertices[2], before.Vertices[3]);
    ASSERT_EQ(after.Faces.size(), 1U);
    EXPECT_EQ(after.Faces[0].corner, (std::array<std::int16_t, 3>{0, 1, 2}));
}

TEST(ComposeModel, KeepsADeletedFaceInTheHeadersCount) {
    const std::string text =
        saved(kSmallGeoset, 1, [](Geoset& geoset) { geoset.Faces[0].deleted = true; });
    EXPECT_NE(text.find("\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0, 2, 3 },\n\t\t}\n\t}\n"),
              std::string::npos)
        << text;
}

TEST(ComposeModel, DoesNotChangeTheGeoset) {
    const ModelText model("hero.mdl", kSmallGeoset);
    const auto geosets = scanGeosets(model.view());
    Geoset geoset = parseGeoset(model, geosets, 1);
    geoset.Vertices[1].deleted = true;
    const Geoset before = geoset;
    composeModel(model, geosets, 1, geoset);
    EXPECT_EQ(geoset, before);
}

TEST(ComposeModel, WritesOnlyTheSectionsThatTheFileHas) {
    const std::string text =
        "Geoset {\n\tVertices 1 {\n\t\t{ 1, 2, 3 },\n\t}\n\tMaterialID 0,\n}\n";
    EXPECT_EQ(saved(text, 1, [](Geoset& geoset) { geoset.Vertices[0].pos = {2, 3, 1}; }), text);
}

TEST(ComposeModel, TakesSectionsInTheOrderOfTheFile) {
    const std::string text =
        "Geoset {\n"
        "\tVertexGroup  {\n"
        "\t\t0,\n"
        "\t}\n"
        "\tMaterialID 0,\n"
        "\tVertices 1 {\n"
        "\t\t{ 1.0, 2, 3 },\n"
        "\t}\n"
        "}\n";
    EXPECT_EQ(saved(text),
              "Geoset {\n"
              "\tVertexGroup {\n"
              "\t\t0,\n"
              "\t}\n"
              "\tMaterialID 0,\n"
              "\tVertices 1 {\n"
              "\t\t{ 1, 2, 3 },\n"
              "\t}\n"
              "}\n");
}

TEST(ComposeModel, PassesFurtherTextureLayersThrough) {
    const std::string text =
        "Geoset {\n"
        "\tVertices 1 {\n"
        "\t\t{ 1, 2, 3 },\n"
        "\t}\n"
        "\tTVertices 1 {\n"
        "\t\t{ 0.500000, 0.500000 },\n"
        "\t}\n"
        "\tTVertices 1 {\n"
        "\t\t{ 0.750000, 0.750000 },\n"
        "\t}\n"
        "}\n";
    EXPECT_EQ(saved(text),
              "Geoset {\n"
              "\tVertices 1 {\n"
              "\t\t{ 1, 2, 3 },\n"
              "\t}\n"
              "\tTVertices 1 {\n"
              "\t\t{ 0.5, 0.5 },\n"
              "\t}\n"
              "\tTVertices 1 {\n"
              "\t\t{ 0.750000, 0.750000 },\n"
              "\t}\n"
              "}\n");
}

TEST(ComposeModel, EndsNewLinesAsTheSectionsHeaderEnds) {
    EXPECT_EQ(saved("Geoset {\n\tVertices 1 {\r\n\t\t{ 1.0, 2, 3 },\n\t}\n"
                    "\tVertexGroup {\n\t\t0,\r\n\t}\r\n}\n"),
              "Geoset {\n\tVertices 1 {\r\n\t\t{ 1, 2, 3 },\r\n\t}\n"
              "\tVertexGroup {\n\t\t0,\n\t}\r\n}\n");
}

TEST(ComposeModel, RefusesAGeosetWhoseSectionsDoNotEnd) {
    const ModelText model("hero_TMP.tdl", "Geoset {\n\tVertices 1 {\n\t\t{ 1, 2, 3 },\n}\n");
    const auto geosets = scanGeosets(model.view());
    try {
        composeModel(model, geosets, 1, Geoset{});
        ADD_FAILURE() << "was written";
    } catch (const ModelTextError& error) {
        EXPECT_EQ(std::string(error.what()).substr(0, 22), "hero_TMP.tdl, line 2: ");
    }
}

TEST(PiecedTextType, KeepsPiecesInOrder) {
    const std::string base = "one two";
    PiecedText text;
    EXPECT_EQ(text.size(), 0U);
    EXPECT_EQ(text.joined(), "");
    text.addView(std::string_view(base).substr(0, 3));
    text.addText(", ");
    text.addView("");
    text.addText("");
    text.addView(std::string_view(base).substr(4));
    EXPECT_EQ(text.joined(), "one, two");
    EXPECT_EQ(text.size(), 8U);
    EXPECT_EQ(text.pieces().size(), 3U);
}

TEST(PiecedTextType, HoldsItsTextsWhenItIsMoved) {
    PiecedText text;
    for (int i = 0; i < 1000; ++i) text.addText("a");  // short: kept inside the string object
    const PiecedText moved = std::move(text);
    EXPECT_EQ(moved.joined(), std::string(1000, 'a'));
}

}  // namespace
}  // namespace corvane
