// Rows that follow their vertices: how they are told apart, and put together again.
#include "model/row_sections.h"

#include <gtest/gtest.h>

#include "model/model_writer.h"
#include "model_texts.h"

namespace corvane {
namespace {

using FileRows = std::vector<std::int16_t>;

// A geoset of two vertices that also holds `section`, which begins in line 6.
std::string geosetWith(const std::string& section) {
    return "Geoset {\n\tVertices 2 {\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 0 },\n\t}\n" + section + "}\n";
}

RowSection read(const std::string& section) {
    const Geoset geoset = readGeoset(geosetWith(section));
    EXPECT_EQ(geoset.rowSections.size(), 1U);
    return geoset.rowSections.at(0);
}

// The section written for vertices with these rows, and how many got the neutral one.
std::string composed(const std::string& section, const FileRows& fileRows,
                     std::size_t expectedNeutral = 0) {
    std::size_t neutral = 0;
    std::string text = composeRowSection(read(section), fileRows, neutral);
    EXPECT_EQ(neutral, expectedNeutral);
    return text;
}

const std::string kTangents =
    "\tTangents 2 {\n"
    "\t\t{ 1.50, 0, 0,1 },\n"
    "\t\t{ 2, 0, 0, -1 },\n"
    "\t}\n";

TEST(RowSectionType, KnowsWhatItHolds) {
    const RowSection tangents = read(kTangents);
    EXPECT_EQ(tangents.keyword, "Tangents");
    EXPECT_EQ(tangents.ordinal, 0);
    EXPECT_EQ(tangents.vertexCount, 2U);
    EXPECT_EQ(tangents.problem, "");
    ASSERT_EQ(tangents.rows.size(), 2U);
    EXPECT_EQ(tangents.text.substr(tangents.countBegin, tangents.countEnd - tangents.countBegin),
              "2");
    EXPECT_EQ(tangents.text + "\n", kTangents);
}

TEST(RowSectionType, NumbersTheVerticesOfItsGeoset) {
    const Geoset geoset = readGeoset(geosetWith(kTangents));
    EXPECT_EQ(geoset.Vertices[0].fileRow, 0);
    EXPECT_EQ(geoset.Vertices[1].fileRow, 1);
    EXPECT_EQ(readGeoset(geosetWith("")).Vertices[1].fileRow, kNoRow);
}

TEST(RowSectionType, CountsTextureLayersAfterTheFirst) {
    const std::string layer = "\tTVertices 2 {\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n\t}\n";
    const Geoset geoset = readGeoset(geosetWith(layer + kTangents + layer + layer));
    ASSERT_EQ(geoset.rowSections.size(), 3U);
    EXPECT_EQ(geoset.rowSections[0].keyword, "Tangents");
    EXPECT_EQ(geoset.rowSections[1].keyword, "TVertices");
    EXPECT_EQ(geoset.rowSections[1].ordinal, 0);
    EXPECT_EQ(geoset.rowSections[2].ordinal, 1);
}

TEST(ComposeRowSection, ReturnsWhatWasReadWhereNothingCameOrWent) {
    EXPECT_EQ(composed(kTangents, {0, 1}) + "\n", kTangents);
    const std::string odd = "\tSkinWeights { // none yet\n\t\t}\n";
    EXPECT_EQ(composed(odd, {0, 1}) + "\n", odd);
}

TEST(ComposeRowSection, DropsAndRepeatsRowsAndCountsThem) {
    EXPECT_EQ(composed(kTangents, {1}), "\tTangents 1 {\n\t\t{ 2, 0, 0, -1 },\n\t}");
    EXPECT_EQ(composed(kTangents, {0, 1, 0}),
              "\tTangents 3 {\n\t\t{ 1.50, 0, 0,1 },\n\t\t{ 2, 0, 0, -1 },\n"
              "\t\t{ 1.50, 0, 0,1 },\n\t}");
    EXPECT_EQ(composed(kTangents, {}), "\tTangents 0 {\n\t}");
}

TEST(ComposeRowSection, LeavesAHeaderWithoutACountAsItIs) {
    EXPECT_EQ(composed("\tSkinWeights  {\n\t\t5, 0, 0, 0, 255, 0, 0, 0,\n"
                       "\t\t1, 0, 0, 0, 255, 0, 0, 0,\n\t}\n",
                       {1}),
              "\tSkinWeights  {\n\t\t1, 0, 0, 0, 255, 0, 0, 0,\n\t}");
}

TEST(ComposeRowSection, AddsTheCommaThatTheLastRowOfTheFileLacked) {
    const std::string section =
        "\tTangents 2 {\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 2, 0, 0, 1 } // b\n\t}\n";
    EXPECT_EQ(composed(section, {1, 0}),
              "\tTangents 2 {\n\t\t{ 2, 0, 0, 1 }, // b\n\t\t{ 1, 0, 0, 1 },\n\t}");
    EXPECT_EQ(composed(section, {1}), "\tTangents 1 {\n\t\t{ 2, 0, 0, 1 } // b\n\t}");
}

TEST(ComposeRowSection, TakesSeveralRowsOnOneLine) {
    EXPECT_EQ(composed("\tTangents 2 { { 1, 0, 0, 1 }, { 2, 0, 0, 1 } }\n", {1, 1, 0}),
              "\tTangents 3 { { 2, 0, 0, 1 }, { 2, 0, 0, 1 }, { 1, 0, 0, 1 }, }");
    EXPECT_EQ(composed("\tSkinWeights { 5,0,0,0,255,0,0,0, 1,0,0,0,255,0,0,0 }\n", {1}),
              "\tSkinWeights { 1,0,0,0,255,0,0,0 }");
}

TEST(ComposeRowSection, TakesRowsThatAreWrapped) {
    EXPECT_EQ(composed("\tSkinWeights {\n5,0,0,0,\n255,0,0,0,\n1,0,0,0,\n255,0,0,0,\n\t}\n", {1}),
              "\tSkinWeights {\n1,0,0,0,\n255,0,0,0,\n\t}");
}

TEST(ComposeRowSection, TakesARowThatHoldsNothing) {
    EXPECT_EQ(composed("\tTangents 2 {\n\t\t{},\n\t\t{ 2, 0, 0, 1 },\n\t}\n", {1, 0}),
              "\tTangents 2 {\n\t\t{ 2, 0, 0, 1 },\n\t\t{},\n\t}");
}

TEST(ComposeRowSection, GivesAVertexWithoutARowTheNeutralOneInTheSectionsLayout) {
    EXPECT_EQ(composed(kTangents, {0, kNoRow}, 1),
              "\tTangents 2 {\n\t\t{ 1.50, 0, 0,1 },\n\t\t{ 1, 0, 0, 1 },\n\t}");
    EXPECT_EQ(composed("  SkinWeights 2 {\r\n    5, 0, 0, 0, 255, 0, 0, 0,\r\n"
                       "    1, 0, 0, 0, 255, 0, 0, 0,\r\n  }\r\n",
                       {1, kNoRow, kNoRow}, 2),
              "  SkinWeights 3 {\r\n    1, 0, 0, 0, 255, 0, 0, 0,\r\n"
              "    0, 0, 0, 0, 255, 0, 0, 0,\r\n    0, 0, 0, 0, 255, 0, 0, 0,\r\n  }");
    EXPECT_EQ(composed("\tTangents 0 {\n\t}\n", {kNoRow}, 1),
              "\tTangents 1 {\n\t\t{ 1, 0, 0, 1 },\n\t}");
}

// The file has fewer rows than vertices: the vertices without are like merged ones.
TEST(ComposeRowSection, GivesAVertexBehindTheLastRowTheNeutralOne) {
    EXPECT_EQ(composed("\tTangents 1 {\n\t\t{ 2, 0, 0, 1 },\n\t}\n", {1}, 1),
              "\tTangents 1 {\n\t\t{ 1, 0, 0, 1 },\n\t}");
}

TEST(ComposeRowSection, RefusesRowsThatCannotBeToldApartOnlyWhereTheyWouldHaveToFollow) {
    const std::string section = "\tSkinWeights {\n\t\t5, 0, 0, 0, 255, 0,\n\t}\n";
    EXPECT_EQ(composed(section, {0, 1}) + "\n", section);
    std::size_t neutral = 0;
    try {
        composeRowSection(read(section), {0}, neutral);
        ADD_FAILURE() << "was written";
    } catch (const RowsCannotFollow& error) {
        EXPECT_STREQ(error.what(),
                     "hero.mdl, line 7: in the section SkinWeights, the row that starts here does "
                     "not hold 8 numbers.");
    }
}

TEST(ComposeModelWithRows, LeavesASectionBehindAnotherInItsLine) {
    const ModelText text("hero.mdl",
                         "Geoset {\n\tVertices 1 {\n\t\t{ 1, 2, 3 },\n\t} Tangents 1 {\n"
                         "\t\t{ 2, 0, 0, 1 },\n\t}\n}\n");
    const auto geosets = scanGeosets(text.view());
    const Geoset geoset = parseGeoset(text, geosets, 1);
    EXPECT_EQ(composeModel(text, geosets, 1, geoset).joined(), text.view());
}

TEST(ComposeModelWithRows, TellsRowsThatCannotFollowFromOtherFailures) {
    const ModelText text("hero.mdl",
                         geosetWith("\tTangents 2 {\n\t\t{ 1, 0, 0, 1 },\n\t\t5,\n\t}\n"));
    const auto geosets = scanGeosets(text.view());
    Geoset geoset = parseGeoset(text, geosets, 1);
    EXPECT_EQ(composeModel(text, geosets, 1, geoset).joined().find("Geoset"), 0U);
    geoset.Vertices[0].deleted = true;
    EXPECT_THROW(composeModel(text, geosets, 1, geoset), RowsCannotFollow);
    EXPECT_THROW(composeSingleGeoset(text, geosets, 1, geoset), RowsCannotFollow);
}

TEST(ComposeRowSection, FollowsWrappedRowsThatEndWithTheirLinesHoweverManyThereAre) {
    EXPECT_EQ(composed("\tSkinWeights {\n5,0,0,0,\n255,0,0,0,\n1,0,0,0,\n255,0,0,0,\n"
                       "2,0,0,0,\n255,0,0,0\n\t}\n",
                       {1}),
              "\tSkinWeights {\n1,0,0,0,\n255,0,0,0,\n\t}");
}

TEST(ComposeRowSection, NamesARowWithoutItsClosingBrace) {
    const std::string head = "Geoset {\n\tVertices 1 {\n\t\t{ 0, 0, 0 },\n\t}\n";
    const std::string rows = "\tTangents 1 {\n\t\t{ 1, 0, 0, 1,\n\t}\n";
    // The section's brace closes the row, and the geoset's the section.
    EXPECT_EQ(readingError(head + rows + "}\n"),
              "hero.mdl, line 5: the section Tangents that starts here does not end (a closing "
              "brace \"}\" is missing in its geoset).");
}

TEST(ComposeRowSection, KeepsACommentBeforeTheFirstRowWithIt) {
    const std::string section =
        "\tSkinWeights {\n\t\t// of the left\n\t\t5,0,0,0,255,0,0,0,\n"
        "\t\t1,0,0,0,255,0,0,0,\n\t}\n";
    EXPECT_EQ(composed(section, {1, kNoRow}, 1),
              "\tSkinWeights {\n\t\t1,0,0,0,255,0,0,0,\n\t\t0, 0, 0, 0, 255, 0, 0, 0,\n\t}");
    EXPECT_EQ(composed(section, {0, 0}),
              "\tSkinWeights {\n\t\t// of the left\n\t\t5,0,0,0,255,0,0,0,\n"
              "\t\t5,0,0,0,255,0,0,0,\n\t}");
}

TEST(ComposeRowSection, NamesWhatIsNoRow) {
    EXPECT_EQ(read("\tTangents 2 {\n\t\t{ 1, 0, 0, 1 },\n\t\t5,\n\t}\n").problem,
              "hero.mdl, line 8: in the section Tangents, a row in braces was expected here.");
}

// Taken together, 7 numbers in one line and 9 in the next are two rows, but whose is not known
// where there are three vertices' rows or one.
TEST(ComposeRowSection, NamesARowThatEndsWithinALineWhereTheRowsAreNotThoseOfTheVertices) {
    EXPECT_EQ(read("\tSkinWeights {\n\t\t5, 0, 0, 0, 255, 0, 0,\n\t\t1, 0, 0, 0, 255, 0, 0, 0, 0,\n"
                   "\t\t0, 0, 0, 0, 0, 0, 0, 0,\n\t}\n")
                  .problem,
              "hero.mdl, line 7: in the section SkinWeights, the row that starts here does not end "
              "with a line.");
}

TEST(ComposeRowSection, TakesRowsWrappedAnywhereWhereThereIsOneForEachVertex) {
    EXPECT_EQ(composed("\tSkinWeights {\n5,0,0,0,255,0,0,0, 1,0,0,\n0,255,0,0,0\n\t}\n", {1, 0}),
              "\tSkinWeights {\n 1,0,0,\n0,255,0,0,0,\n5,0,0,0,255,0,0,0,\t}");
    EXPECT_EQ(composed("\tSkinWeights {\n5,0,0,0,\n255,0,0,0, 1,0,0,0,\n255,0,0,0\n\t}\n", {1, 0}),
              "\tSkinWeights {\n 1,0,0,0,\n255,0,0,0,\n5,0,0,0,\n255,0,0,0,\t}");
}

TEST(ComposeRowSection, TakesAllRowsOnOneLineHoweverManyThereAre) {
    EXPECT_EQ(composed("\tSkinWeights {\n\t\t5,0,0,0,255,0,0,0, 1,0,0,0,255,0,0,0, "
                       "2,0,0,0,255,0,0,0,\n\t}\n",
                       {1}),
              "\tSkinWeights {\n 1,0,0,0,255,0,0,0,\t}");
}

// The geoset's own coordinates come first.
TEST(ComposeRowSection, TakesATextureLayersRowsWithoutBraces) {
    const std::string own = "\tTVertices 2 {\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n\t}\n";
    EXPECT_EQ(composed(own + "\tTVertices 2 {\n\t\t0, 1,\n\t\t2, 3,\n\t}\n", {1, 0}),
              "\tTVertices 2 {\n\t\t2, 3,\n\t\t0, 1,\n\t}");
    EXPECT_EQ(composed(own + "\tTVertices {\n\t}\n", {1}, 1), "\tTVertices {\n\t\t{ 0, 0 },\n\t}");
}

TEST(ComposeRowSection, CountsTheNumbersOfARowForTheNeutralOne) {
    EXPECT_EQ(composed("\tTangents 2 {\n\t\t{ 1, 0, // , ,\n0, 1, },\n\t\t{ 2, 0, 0, 1, },\n\t}\n",
                       {1, kNoRow}, 1),
              "\tTangents 2 {\n\t\t{ 2, 0, 0, 1, },\n\t\t{ 1, 0, 0, 1 },\n\t}");
}

TEST(ComposeRowSection, KeepsCommentsBetweenRowsOnce) {
    const std::string section =
        "\tTangents 2 {\n\t\t// left\n\t\t{ 1, 0, 0, 1 },\n\t\t// right\n\t\t{ 2, 0, 0, 1 },\n"
        "\t\t// end\n\t}\n";
    EXPECT_EQ(
        composed(section, {0, 1, 1, 0}),
        "\tTangents 4 {\n\t\t// left\n\t\t{ 1, 0, 0, 1 },\n\t\t// right\n\t\t{ 2, 0, 0, 1 },\n"
        "\t\t{ 2, 0, 0, 1 },\n\t\t{ 1, 0, 0, 1 },\n\t\t// end\n\t}");
}

}  // namespace
}  // namespace corvane
