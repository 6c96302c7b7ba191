#include "model/model_scanner.h"

#include <gtest/gtest.h>

#include "model_texts.h"

namespace corvane {
namespace {

// A block as the text that it covers.
std::string_view whole(std::string_view text, const GeosetBlock& block) {
    return text.substr(block.begin, block.end - block.begin);
}

std::string_view body(std::string_view text, const GeosetBlock& block) {
    return text.substr(block.bodyBegin, block.bodyEnd - block.bodyBegin);
}

TEST(ScanGeosets, FindsEveryBlockInFileOrder) {
    const std::string_view text =
        "Version {\n"
        "\tFormatVersion 800,\n"
        "}\n"
        "Geoset {\n"
        "\tMaterialID 0,\n"
        "}\n"
        "Geoset {\n"
        "\tMaterialID 1,\n"
        "}\n"
        "Bone \"A\" {\n"
        "}\n";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 2U);
    EXPECT_EQ(whole(text, geosets[0]), "Geoset {\n\tMaterialID 0,\n}\n");
    EXPECT_EQ(body(text, geosets[0]), "\tMaterialID 0,\n");
    EXPECT_EQ(whole(text, geosets[1]), "Geoset {\n\tMaterialID 1,\n}\n");
    EXPECT_EQ(body(text, geosets[1]), "\tMaterialID 1,\n");
}

TEST(ScanGeosets, IgnoresTheLineBreak) {
    const std::string_view text = "Geoset {\r\n\tMaterialID 0,\r\n}\r\nGeoset {\n}\n";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 2U);
    EXPECT_EQ(whole(text, geosets[0]), "Geoset {\r\n\tMaterialID 0,\r\n}\r\n");
    EXPECT_EQ(body(text, geosets[0]), "\tMaterialID 0,\r\n");
}

TEST(ScanGeosets, TakesOnlyThatKeyword) {
    EXPECT_TRUE(scanGeosets("").empty());
    EXPECT_TRUE(scanGeosets("Version {\n}\n").empty());
    EXPECT_TRUE(scanGeosets("GeosetAnim {\n}\n").empty());
    EXPECT_TRUE(scanGeosets("geoset {\n}\n").empty());
    EXPECT_TRUE(scanGeosets("// Geoset {\n").empty());
    EXPECT_TRUE(scanGeosets("Bone \"Geoset {\" {\n}\n").empty());
    EXPECT_TRUE(scanGeosets("Layer {\n\tGeoset {\n\t}\n}\n").empty());
}

TEST(ScanGeosets, TakesTheKeywordInAnyLayout) {
    for (const std::string_view text :
         {"Geoset{\n}\n", "Geoset { \t\n}\n", "\tGeoset {\n\t}\n", "  Geoset  {\n  }\n",
          "Geoset\n{\n}\n", "Geoset { MaterialID 0, }", "Geoset { // the hero's {\n}\n",
          "Version { } Geoset { }\n"}) {
        const auto geosets = scanGeosets(text);
        ASSERT_EQ(geosets.size(), 1U) << text;
        EXPECT_TRUE(geosets[0].closed) << text;
        EXPECT_EQ(geosets[0].end, text.size()) << text;
    }
}

TEST(ScanGeosets, BeginsWithTheIndentationOfItsLine) {
    for (const std::string indentation : {"", "\t", " \t", "    "}) {
        const std::string text = indentation + "Geoset {\n}\n";
        const std::vector<GeosetBlock> blocks = scanGeosets(text + text);
        ASSERT_EQ(blocks.size(), 2U);
        EXPECT_EQ(blocks[0].begin, 0U);
        EXPECT_EQ(blocks[1].begin, text.size());
    }
}

TEST(ScanGeosets, FindsTheEndByItsBracesWhereLinesAreNotIndented) {
    const std::string_view text =
        "Geoset {\n"
        "Vertices 1 {\n"
        "{ 0, 0, 0 },\n"
        "}\n"
        "// }\n"
        "Name \"}\",\n"
        "}\n"
        "Bone \"A\" {\n"
        "}\n";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 1U);
    EXPECT_EQ(text.substr(geosets[0].end), "Bone \"A\" {\n}\n");
    EXPECT_TRUE(geosets[0].closed);
}

TEST(ScanGeosets, EndsAnUnclosedGeosetWhereAnotherBlockStarts) {
    const std::string_view text = "Geoset {\n\tVertices 1 {\n\t}\nBone \"A\" {\n\tObjectId 0,\n}\n";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 1U);
    EXPECT_EQ(whole(text, geosets[0]), "Geoset {\n\tVertices 1 {\n\t}\n");
    EXPECT_FALSE(geosets[0].closed);
}

TEST(ScanGeosets, SeesTheHeaderBehindAByteOrderMark) {
    const std::string_view text = "\xEF\xBB\xBFGeoset {\n}\n";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 1U);
    EXPECT_EQ(geosets[0].bodyBegin, 12U);
}

TEST(ScanGeosets, EndsAnUnclosedGeosetWhereTheNextOneStarts) {
    const std::string_view text = "Geoset {\n\tMaterialID 0,\nGeoset {\n}\n";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 2U);
    EXPECT_EQ(whole(text, geosets[0]), "Geoset {\n\tMaterialID 0,\n");
    EXPECT_EQ(body(text, geosets[0]), "\tMaterialID 0,\n");
    EXPECT_EQ(whole(text, geosets[1]), "Geoset {\n}\n");
}

TEST(ScanGeosets, EndsAnUnclosedLastGeosetAtTheEndOfTheText) {
    const std::string_view text = "Geoset {\n\tMaterialID 0,";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 1U);
    EXPECT_EQ(whole(text, geosets[0]), text);
    EXPECT_EQ(body(text, geosets[0]), "\tMaterialID 0,");
}

TEST(ScanGeosets, ClosesOnALastLineWithoutABreak) {
    const std::string_view text = "Geoset {\n\tMaterialID 0,\n}";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 1U);
    EXPECT_EQ(body(text, geosets[0]), "\tMaterialID 0,\n");
    EXPECT_EQ(geosets[0].end, text.size());
}

TEST(ScanGeosets, ClosesOnAnyLineThatBeginsWithABrace) {
    const std::string_view text = "Geoset {\n\tMaterialID 0,\n} // of the hero\nBone \"A\" {\n}\n";
    const auto geosets = scanGeosets(text);
    ASSERT_EQ(geosets.size(), 1U);
    EXPECT_EQ(whole(text, geosets[0]), "Geoset {\n\tMaterialID 0,\n} // of the hero\n");
}

TEST(KeywordOf, NamesEverySection) {
    EXPECT_EQ(keywordOf(SectionKind::Vertices), "Vertices");
    EXPECT_EQ(keywordOf(SectionKind::Normals), "Normals");
    EXPECT_EQ(keywordOf(SectionKind::TVertices), "TVertices");
    EXPECT_EQ(keywordOf(SectionKind::VertexGroup), "VertexGroup");
    EXPECT_EQ(keywordOf(SectionKind::Faces), "Faces");
    EXPECT_EQ(keywordOf(SectionKind::Groups), "Groups");
}

// The sections of the first geoset that are written anew.
std::vector<Section> sectionsOf(const ModelText& model) {
    std::vector<Section> sections = scanParts(model, scanGeosets(model.view()).at(0));
    std::erase_if(sections, [](const Section& s) { return s.kind == SectionKind::Rows; });
    return sections;
}

TEST(ScanSections, FindsTheSixSectionsInFileOrder) {
    const ModelText model("hero.mdl",
                          "Geoset {\n"
                          "\tFaces 1 3 {\n"
                          "\t\tTriangles {\n"
                          "\t\t\t{ 0, 0, 0 },\n"
                          "\t\t}\n"
                          "\t}\n"
                          "\tVertices 1 {\n"
                          "\t\t{ 0, 0, 0 },\n"
                          "\t}\n"
                          "\tNormals 1 {\n"
                          "\t}\n"
                          "\tTVertices 1 {\n"
                          "\t}\n"
                          "\tVertexGroup {\n"
                          "\t}\n"
                          "\tGroups 1 1 {\n"
                          "\t}\n"
                          "\tAnim {\n"
                          "\t\tBoundsRadius 1,\n"
                          "\t}\n"
                          "\tMaterialID 0,\n"
                          "}\n");
    const auto sections = sectionsOf(model);
    ASSERT_EQ(sections.size(), 6U);
    EXPECT_EQ(sections[0].kind, SectionKind::Faces);
    EXPECT_EQ(sections[1].kind, SectionKind::Vertices);
    EXPECT_EQ(sections[2].kind, SectionKind::Normals);
    EXPECT_EQ(sections[3].kind, SectionKind::TVertices);
    EXPECT_EQ(sections[4].kind, SectionKind::VertexGroup);
    EXPECT_EQ(sections[5].kind, SectionKind::Groups);

    EXPECT_EQ(sections[0].header, "\tFaces 1 3 {");
    const Section& vertices = sections[1];
    EXPECT_EQ(vertices.header, "\tVertices 1 {");
    EXPECT_EQ(model.view().substr(vertices.begin, 13), "\tVertices 1 {");
    EXPECT_EQ(model.view().substr(vertices.bodyBegin, vertices.bodyEnd - vertices.bodyBegin),
              "\t\t{ 0, 0, 0 },\n");
    EXPECT_EQ(model.view().substr(vertices.bodyEnd, 3), "\t}\n");
}

TEST(ScanSections, KeepsTheHeadersOwnLineBreak) {
    const ModelText model("hero.mdl",
                          "Geoset {\n"
                          "\tVertices 1 {\r\n"
                          "\t}\n"
                          "\tVertexGroup  {\n"
                          "\t}\r\n"
                          "}\n");
    const auto sections = sectionsOf(model);
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].lineBreak, "\r\n");
    EXPECT_EQ(sections[0].header, "\tVertices 1 {");
    EXPECT_EQ(sections[1].lineBreak, "\n");
    EXPECT_EQ(sections[1].header, "\tVertexGroup  {");
}

TEST(ScanSections, LooksOnlyAtTheGeosetsOwnLevel) {
    const ModelText model("hero.mdl",
                          "Geoset {\n"
                          "\tLayer {\n"
                          "\t\tVertices 1 {\n"
                          "\t\t}\n"
                          "\t\tNormals 1 { }\n"
                          "\t}\n"
                          "\tMinimumExtent { 0, 0, 0 },\n"
                          "\t// Faces 1 3 {\n"
                          "\tName \"Groups 1 1 {\",\n"
                          "}\n");
    EXPECT_TRUE(sectionsOf(model).empty());
}

TEST(ScanSections, ListsOnlyTheFirstOfSeveralTVertices) {
    const ModelText model("hero.mdl",
                          "Geoset {\n"
                          "\tTVertices 2 {\n"
                          "\t}\n"
                          "\tTVertices 3 {\n"
                          "\t}\n"
                          "\tGroups 0 0 {\n"
                          "\t}\n"
                          "}\n");
    const auto sections = sectionsOf(model);
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].header, "\tTVertices 2 {");
    EXPECT_EQ(sections[1].kind, SectionKind::Groups);
}

TEST(ScanSections, RefusesASecondSectionOfAnyOtherKind) {
    for (const std::string name : {"Vertices", "Normals", "VertexGroup", "Faces", "Groups"}) {
        std::string text = "Geoset {\n";
        for (int i = 0; i < 2; ++i) text.append("\t").append(name).append(" {\n\t}\n");
        const ModelText model("hero.mdl", text + "}\n");
        try {
            sectionsOf(model);
            ADD_FAILURE() << name << " was accepted";
        } catch (const ModelTextError& error) {
            EXPECT_EQ(std::string(error.what()),
                      "hero.mdl, line 4: a second section " + name + " in a geoset.");
        }
    }
}

TEST(ScanSections, RefusesASectionThatDoesNotEndInItsGeoset) {
    const ModelText model("hero.mdl",
                          "Geoset {\n"
                          "\tVertices 1 {\n"
                          "\t}\n"
                          "\tNormals 1 {\n"
                          "\t\t{ 0, 0, 1 },\n"
                          "}\n"
                          "Geoset {\n"
                          "\tVertices 1 {\n"
                          "\t}\n"
                          "}\n");
    try {
        sectionsOf(model);
        ADD_FAILURE() << "was accepted";
    } catch (const ModelTextError& error) {
        EXPECT_STREQ(error.what(),
                     "hero.mdl, line 4: the section Normals that starts here does not end (a "
                     "closing brace \"}\" is missing in its geoset).");
    }
}

TEST(ScanSections, RefusesABlockWithoutANameThatDoesNotEnd) {
    const ModelText model("hero.mdl",
                          "Geoset {\n"
                          "\tVertices 1 {\n"
                          "\t}\n"
                          "\t{ 5\n"
                          "}\n");
    try {
        sectionsOf(model);
        ADD_FAILURE() << "was accepted";
    } catch (const ModelTextError& error) {
        EXPECT_STREQ(error.what(),
                     "hero.mdl, line 4: the block that starts here does not end (a closing brace "
                     "\"}\" is missing in its geoset).");
    }
}

TEST(ScanSections, TakesTheClosingBraceInAnyLayout) {
    for (const std::string line : {"\t} ", "\t},", " \t}", "\t\t}", "    }", "\t} // of { them"}) {
        const ModelText model("hero.mdl", "Geoset {\n\tNormals 1 {\n" + line + "\n}\n");
        const auto sections = sectionsOf(model);
        ASSERT_EQ(sections.size(), 1U) << '"' << line << '"';
        EXPECT_EQ(model.view()[sections[0].end - 1], '}') << '"' << line << '"';
    }
}

TEST(ScanSections, SaysWhichSectionTheFileEndsIn) {
    const ModelText model("hero.mdl",
                          "Geoset {\r\n"
                          "\tVertices 2 {\r\n"
                          "\t\t{ 0, 0, 0 },\r\n"
                          "\t\t{ 0, 0");
    try {
        sectionsOf(model);
        ADD_FAILURE() << "was accepted";
    } catch (const ModelTextError& error) {
        EXPECT_STREQ(error.what(),
                     "hero.mdl, line 2: the section Vertices that starts here does not end (a "
                     "closing brace \"}\" is missing in its geoset).");
    }
}

}  // namespace
}  // namespace corvane
