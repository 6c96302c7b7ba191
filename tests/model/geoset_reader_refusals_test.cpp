// What the reader refuses, and that each message names the file, the line and the reason.
#include <gtest/gtest.h>

#include "model/geoset_reader.h"
#include "model_texts.h"

namespace corvane {
namespace {

// A geoset of two vertices; the header of `section`, which follows them, is line 6.
std::string geosetWith(const std::string& section) {
    return "Geoset {\n"
           "\tVertices 2 {\n"
           "\t\t{ 0, 0, 0 },\n"
           "\t\t{ 0, 0, 0 },\n"
           "\t}\n" +
           section + "}\n";
}

// The faces' header is line 6 and the first index line 8.
std::string geosetWithIndices(const std::string& indexLines, const std::string& count = "6") {
    return geosetWith("\tFaces 1 " + count + " {\n\t\tTriangles {\n" + indexLines + "\t\t}\n\t}\n");
}

// A geoset of so many vertices, whose header is line 2 and counts others.
std::string geosetOfVertices(const std::string& counted, int rows) {
    std::string text = "Geoset {\n\tVertices " + counted + " {\n";
    for (int i = 0; i < rows; ++i) text += "\t\t{ 0, 0, 0 },\n";
    return text + "\t}\n}\n";
}

// The row is the second of the vertices and line 4.
std::string vertexRow(const std::string& row) {
    return "Geoset {\n\tVertices 9 {\n\t\t{ 0, 0, 0 },\n" + row + "\n\t}\n}\n";
}

TEST(RefusedGeoset, HasAVertexFieldThatIsNoNumber) {
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, abc, 3 },")),
              "hero.mdl, line 4: \"abc\" is not a number.");
    EXPECT_EQ(readingError(vertexRow("\t\t{ , 2, 3 },")),
              "hero.mdl, line 4: \"\" is not a number.");
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, 2, nan },")),
              "hero.mdl, line 4: \"nan\" is not a number.");
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1e999, 2, 3 },")),
              "hero.mdl, line 4: \"1e999\" is not a number.");
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, 2, 3, 4 },")),
              "hero.mdl, line 4: \"3, 4\" is not a number.");
}

TEST(RefusedGeoset, HasNumbersWithDecimalCommas) {
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1,5, 2,5, 3,5 },")),
              "hero.mdl, line 4: \"2,5, 3,5\" is not a number.");
}

TEST(RefusedGeoset, HasARowWithTooFewNumbers) {
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, 2 },")),
              "hero.mdl, line 4: \"2 }\" is not a number.");
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, 2 }")),
              "hero.mdl, line 4: \"\t\t{ 1, 2 }\" does not hold 3 numbers in braces.");
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, 2, 3")),
              "hero.mdl, line 2: the section Vertices that starts here does not end (a closing "
              "brace \"}\" is missing in its geoset).");
    EXPECT_EQ(readingError(geosetWith("\tTVertices 2 {\n\t\t{ 1 },\n\t}\n")),
              "hero.mdl, line 7: \"1 }\" is not a number.");
}

TEST(RefusedGeoset, HasARowOfAnotherShape) {
    EXPECT_EQ(readingError(vertexRow("\t\t1, 2, 3,")),
              "hero.mdl, line 4: \"\t\t1, 2, 3,\" is not a row of 3 numbers in braces.");
    EXPECT_EQ(readingError(vertexRow("}")),
              "hero.mdl, line 6: there is a closing brace too many up to here, so that the geoset "
              "that starts in line 1 ended too early.");
}

TEST(RefusedGeoset, IsQuotedOnlyInPart) {
    EXPECT_EQ(readingError(vertexRow(std::string(130000, 'x'))),
              "hero.mdl, line 4: \"" + std::string(60, 'x') +
                  "...\" is not a row of 3 numbers in braces.");
}

TEST(RefusedGeoset, HasANormalOrTextureFieldThatIsNoNumber) {
    EXPECT_EQ(readingError(geosetWith("\tNormals 2 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, x },\n\t}\n")),
              "hero.mdl, line 8: \"x\" is not a number.");
    EXPECT_EQ(readingError(geosetWith("\tTVertices 2 {\n\t\t{ 1.2.3, 0 },\n\t}\n")),
              "hero.mdl, line 7: \"1.2.3\" is not a number.");
    EXPECT_EQ(readingError(geosetWith("\tNormals 2 {\n\t\t{ , 0, 1 },\n\t}\n")),
              "hero.mdl, line 7: \"\" is not a number.");
    EXPECT_EQ(readingError(geosetWith("\tTVertices 2 {\n\t\t{ 0, - },\n\t}\n")),
              "hero.mdl, line 7: \"-\" is not a number.");
}

TEST(RefusedGeoset, HasAVertexGroupThatIsNoWholeNumber) {
    const auto group = [](const std::string& row) {
        return geosetWith("\tVertexGroup {\n\t\t0,\n" + row + "\n\t}\n");
    };
    EXPECT_EQ(readingError(group("\t\tabc,")), "hero.mdl, line 8: \"abc\" is not a whole number.");
    EXPECT_EQ(readingError(group("\t\t1.5,")), "hero.mdl, line 8: \"1.5\" is not a whole number.");
    EXPECT_EQ(readingError(group("\t\t,")), "hero.mdl, line 8: \"\" is not a whole number.");
    EXPECT_EQ(readingError(group("\t\t12\n\t\t3,")),
              "hero.mdl, line 8: \"\t\t12\" is not a vertex group and a comma.");
}

TEST(RefusedGeoset, HasAVertexGroupOutsideOf16Bits) {
    EXPECT_EQ(readingError(geosetWith("\tVertexGroup {\n\t\t32768,\n\t}\n")),
              "hero.mdl, line 7: vertex group 32768 is outside -32768 to 32767.");
    EXPECT_EQ(readingError(geosetWith("\tVertexGroup {\n\t\t-32769,\n\t}\n")),
              "hero.mdl, line 7: vertex group -32769 is outside -32768 to 32767.");
}

TEST(RefusedGeoset, HasMoreVerticesThanItsHeaderSays) {
    std::string rows;
    for (int i = 0; i < 9; ++i) rows += "\t\t{ 0, 0, 0 },\n";
    EXPECT_EQ(readingError("Geoset {\n\tVertices 8 {\n" + rows + "\t}\n}\n"),
              "hero.mdl, line 11: the section Vertices has more rows than the geoset has vertices "
              "(8).");
}

TEST(RefusedGeoset, HasMoreRowsInAnotherSectionThanVertices) {
    EXPECT_EQ(readingError(geosetWith("\tNormals 3 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, 1 },\n"
                                      "\t\t{ 0, 0, 1 },\n\t}\n")),
              "hero.mdl, line 9: the section Normals has more rows than the geoset has vertices "
              "(2).");
    EXPECT_EQ(readingError(geosetWith("\tTVertices 3 {\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n"
                                      "\t\t{ 0, 0 },\n\t}\n")),
              "hero.mdl, line 9: the section TVertices has more rows than the geoset has vertices "
              "(2).");
    EXPECT_EQ(readingError(geosetWith("\tVertexGroup {\n\t\t0,\n\t\t0,\n\t\t0,\n\t}\n")),
              "hero.mdl, line 9: the section VertexGroup has more rows than the geoset has "
              "vertices (2).");
}

TEST(RefusedGeoset, HasACornerOutsideItsVertexList) {
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0, 1, 0 },\n\t\t\t{ 0, 2, 1 },\n")),
              "hero.mdl, line 9: a face uses vertex index 2, but the geoset has 2 vertices "
              "(indices start at 0).");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0, -1, 1 },\n")),
              "hero.mdl, line 8: a face uses vertex index -1, but the geoset has 2 vertices "
              "(indices start at 0).");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 65536, 0, 1 },\n")),
              "hero.mdl, line 8: a face uses vertex index 65536, but the geoset has 2 vertices "
              "(indices start at 0).");
}

TEST(RefusedGeoset, HasAnIndexThatIsNoWholeNumber) {
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0, x, 1 },\n")),
              "hero.mdl, line 8: \"x\" is not a vertex index.");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0, 1.5, 1 },\n")),
              "hero.mdl, line 8: \"1.5\" is not a vertex index.");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0 1 1 },\n")),
              "hero.mdl, line 8: \"0 1 1\" is not a vertex index.");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0,, 1 },\n")),
              "hero.mdl, line 8: \"\" is not a vertex index.");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 99999999999, 0, 1 },\n")),
              "hero.mdl, line 8: \"99999999999\" is not a vertex index.");
}

TEST(RefusedGeoset, HasAnIndexLineThatIsNoMultipleOfThree) {
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0, 1, 0, 1 },\n\t\t\t{ 0, 1 },\n")),
              "hero.mdl, line 8: the number of vertex indices in the list that starts in this line "
              "is not a multiple of three.");
}

TEST(RefusedGeoset, HasAnIndexLineOfAnotherShape) {
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t0, 1, 0,\n")),
              "hero.mdl, line 8: \"\t\t\t0, 1, 0,\" is not a list of vertex indices in braces.");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0, 1, 0\n")),
              "hero.mdl, line 6: the section Faces that starts here does not end (a closing "
              "brace \"}\" is missing in its geoset).");
}

TEST(RefusedGeoset, HasAGroupOfOtherShapesBesideTriangles) {
    EXPECT_EQ(readingError(geosetWith("\tFaces 2 6 {\n"
                                      "\t\tTriangles {\n"
                                      "\t\t\t{ 0, 1, 0 },\n"
                                      "\t\t}\n"
                                      "\t\tQuadrangles {\n"
                                      "\t\t\t{ 0, 1, 0 },\n"
                                      "\t\t}\n"
                                      "\t}\n")),
              "hero.mdl, line 10: \"\t\tQuadrangles {\" is not a group of triangles, and only "
              "triangles can be edited.");
}

TEST(RefusedGeoset, HasNoTriangles) {
    EXPECT_EQ(readingError(geosetWith("\tFaces 1 3 {\n"
                                      "\t\tQuadrangles {\n"
                                      "\t\t\t{ 0, 1, 0 },\n"
                                      "\t\t}\n"
                                      "\t}\n")),
              "hero.mdl, line 6: no \"Triangles {\" follows; only triangles can be edited.");
}

TEST(RefusedGeoset, HasATriangleListWithoutAnEnd) {
    EXPECT_EQ(readingError(geosetWith("\tFaces 1 3 {\n"
                                      "\t\tTriangles {\n"
                                      "\t\t\t{ 0, 1, 0 },\n"
                                      "\t}\n")),
              "hero.mdl, line 6: the section Faces that starts here does not end (a closing "
              "brace \"}\" is missing in its geoset).");
}

TEST(RefusedGeoset, HasAFacesHeaderWithoutACount) {
    const auto faces = [](const std::string& header) {
        return geosetWith(header + "\n\t\tTriangles {\n\t\t}\n\t}\n");
    };
    EXPECT_EQ(readingError(faces("\tFaces 1 {")),
              "hero.mdl, line 6: the header \"\tFaces 1 {\" holds no count.");
    EXPECT_EQ(readingError(faces("\tFaces {")),
              "hero.mdl, line 6: the header \"\tFaces {\" holds no count.");
    EXPECT_EQ(readingError(faces("\tFaces")),
              "hero.mdl, line 6: the header of the section Faces has no opening brace \"{\".");
    EXPECT_EQ(readingError(faces("\tFaces 1 x {")),
              "hero.mdl, line 6: the header \"\tFaces 1 x {\" holds no count.");
    EXPECT_EQ(readingError(faces("\tFaces 1 -3 {")),
              "hero.mdl, line 6: the header \"\tFaces 1 -3 {\" holds no count.");
}

TEST(RefusedGeoset, HasAVerticesHeaderWithoutACount) {
    for (const std::string header :
         {"\tVertices {", "\tVertices x {", "\tVertices -1 {", "\tVertices 1.5 {"}) {
        EXPECT_EQ(readingError("Geoset {\n" + header + "\n\t}\n}\n"),
                  "hero.mdl, line 2: the header \"" + header + "\" holds no count.");
    }
}

// Taken for a property, the section would be passed over and its geoset emptied by a save.
TEST(RefusedGeoset, HasASectionWithoutItsOpeningBrace) {
    EXPECT_EQ(readingError("Geoset {\n\tVertices 1\n\tMaterialID 0,\n}\n"),
              "hero.mdl, line 2: the header of the section Vertices has no opening brace \"{\".");
    EXPECT_EQ(readingError(geosetWith("\tGroups 1 1,\n")),
              "hero.mdl, line 6: the header of the section Groups has no opening brace \"{\".");
}

TEST(RefusedGeoset, HasMoreThan32767Vertices) {
    EXPECT_EQ(readingError(geosetOfVertices("32768", 32768)),
              "hero.mdl, line 2: the geoset has 32768 vertices; at most 32767 can be edited.");
    EXPECT_EQ(readingError(geosetOfVertices("9000000000000000000", 32770)),
              "hero.mdl, line 2: the geoset has 32770 vertices; at most 32767 can be edited.");
}

TEST(RefusedGeoset, HasMoreThan32767Faces) {
    std::string triangles;
    for (int i = 0; i < 32768; ++i) triangles += "\t\t\t{ 0, 1, 0 },\n";
    for (const char* const count : {"98304", "6", "9223372036854775807"}) {
        EXPECT_EQ(readingError(geosetWithIndices(triangles, count)),
                  "hero.mdl, line 6: the geoset has 32768 faces; at most 32767 can be edited.");
    }
}

// Nothing in its text is wrong, so the user is told other things than to mend it.
TEST(RefusedGeoset, ThatIsTooLargeIsToldFromOneThatIsWrong) {
    EXPECT_THROW(readGeoset(geosetOfVertices("32768", 32768)), GeosetTooLarge);
    try {
        readGeoset(geosetOfVertices("1", 2));
        FAIL() << "it was read";
    } catch (const ModelTextError& error) {
        EXPECT_EQ(dynamic_cast<const GeosetTooLarge*>(&error), nullptr);
    }
}

TEST(RefusedGeoset, HasFacesButNoVertices) {
    EXPECT_EQ(readingError("Geoset {\n"
                           "\tVertices 0 {\n"
                           "\t}\n"
                           "\tFaces 1 3 {\n"
                           "\t\tTriangles {\n"
                           "\t\t\t{ 0, 0, 0 },\n"
                           "\t\t}\n"
                           "\t}\n"
                           "}\n"),
              "hero.mdl, line 4: the geoset has faces but no vertices.");
}

TEST(RefusedGeoset, HasAMatrixGroupOfMoreThan7Indices) {
    EXPECT_EQ(readingError(geosetWith("\tGroups 2 9 {\n"
                                      "\t\tMatrices { 0 },\n"
                                      "\t\tMatrices { 0, 1, 2, 3, 4, 5, 6, 7 },\n"
                                      "\t}\n")),
              "hero.mdl, line 8: the matrix group has more than 7 matrix indices.");
}

TEST(RefusedGeoset, HasAMatrixIndexThatCannotBeHeld) {
    const auto group = [](const std::string& indices) {
        return geosetWith("\tGroups 1 1 {\n\t\tMatrices {" + indices + "},\n\t}\n");
    };
    EXPECT_EQ(readingError(group(" 0, x ")), "hero.mdl, line 7: \"x\" is not a whole number.");
    EXPECT_EQ(readingError(group(" 32768 ")),
              "hero.mdl, line 7: matrix index 32768 is outside -32768 to 32767.");
}

TEST(RefusedGeoset, HasAMatrixLineOfAnotherShape) {
    EXPECT_EQ(readingError(geosetWith("\tGroups 1 1 {\n\t\t{ 0 },\n\t}\n")),
              "hero.mdl, line 7: \"\t\t{ 0 },\" is not a matrix group.");
    EXPECT_EQ(readingError(geosetWith("\tGroups 1 1 {\n\t\tMatrices { 0,\n\t}\n")),
              "hero.mdl, line 6: the section Groups that starts here does not end (a closing "
              "brace \"}\" is missing in its geoset).");
}

TEST(RefusedGeoset, HasNoVertices) {
    const char* const reason = "the geoset that starts here has no section \"Vertices\".";
    EXPECT_EQ(readingError("Version {\n}\nGeoset {\n\tMaterialID 0,\n}\n"),
              std::string("hero.mdl, line 3: ") + reason);
    EXPECT_EQ(readingError("Geoset {\n\tLayer {\n\t\tVertices 1 {\n\t\t}\n\t}\n}\n"),
              std::string("hero.mdl, line 1: ") + reason);
    EXPECT_EQ(readingError("Geoset {"), std::string("hero.mdl, line 1: ") + reason);
}

TEST(RefusedGeoset, EndsInsideASection) {
    EXPECT_EQ(readingError("Geoset {\n\tVertices 2 {\n\t\t{ 0, 0, 0 },\n"),
              "hero.mdl, line 2: the section Vertices that starts here does not end (a closing "
              "brace \"}\" is missing in its geoset).");
    EXPECT_EQ(readingError("Geoset {\n\tVertices 1 {\n\t\t{ 0, 0, 0 },\n\t}\n\tNormals 1 {"),
              "hero.mdl, line 5: the section Normals that starts here does not end (a closing "
              "brace \"}\" is missing in its geoset).");
}

TEST(RefusedGeoset, HasASecondSectionOfAKind) {
    EXPECT_EQ(readingError(geosetWith("\tVertices 1 {\n\t\t{ 0, 0, 0 },\n\t}\n")),
              "hero.mdl, line 6: a second section Vertices in a geoset.");
}

TEST(RefusedGeoset, IsCountedByLinesWithCarriageReturnsToo) {
    EXPECT_EQ(readingError(withCrLf(vertexRow("\t\t{ 1, abc, 3 },"))),
              "hero.mdl, line 4: \"abc\" is not a number.");
    EXPECT_EQ(readingError(withCrLf(vertexRow("\t\t1, 2, 3,"))),
              "hero.mdl, line 4: \"\t\t1, 2, 3,\" is not a row of 3 numbers in braces.");
}

TEST(RefusedGeoset, IsNamedByItsPlaceInTheWholeFile) {
    const std::string good = geosetWith("");  // 6 lines
    EXPECT_EQ(readingError(good + vertexRow("\t\t{ 1, abc, 3 },") + good, 2),
              "hero.mdl, line 10: \"abc\" is not a number.");
    EXPECT_EQ(readingError(good + vertexRow("\t\t{ 1, abc, 3 },") + good, 3), "was read");
}

TEST(RefusedGeoset, HasBracesWhereANumberBelongs) {
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, { 2 }, 3 },")),
              "hero.mdl, line 4: \"{ 2 }\" is not a number.");
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, 2, { 3 } },")),
              "hero.mdl, line 4: \"{ 3\" is not a number.");
    EXPECT_EQ(readingError(vertexRow("\t\t{ 1, 2, 3 4, },")),
              "hero.mdl, line 4: \"3 4\" is not a number.");
    EXPECT_EQ(readingError(geosetWith("\tVertexGroup {\n\t\t0,\n\t\t1 { 2 },\n\t}\n")),
              "hero.mdl, line 8: \"\t\t1 { 2 },\" is not a vertex group and a comma.");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0, { 1 }, 0 },\n")),
              "hero.mdl, line 8: \"{ 1\" is not a vertex index.");
    EXPECT_EQ(readingError(geosetWithIndices("\t\t\t{ 0, 1 { 1 }, 0 },\n")),
              "hero.mdl, line 8: \"1 { 1\" is not a vertex index.");
    EXPECT_EQ(readingError(geosetWith("\tGroups 1 1 {\n\t\tMatrices { 0 { 1 } },\n\t}\n")),
              "hero.mdl, line 7: \"\t\tMatrices { 0 { 1 } },\" is not a matrix group.");
}

TEST(RefusedGeoset, HasAGroupWithoutItsOpeningBrace) {
    EXPECT_EQ(readingError(geosetWith("\tFaces 1 3 {\n\t\tTriangles 0, 1, 0,\n\t}\n")),
              "hero.mdl, line 6: no \"Triangles {\" follows; only triangles can be edited.");
    EXPECT_EQ(readingError(geosetWith("\tFaces 2 6 {\n"
                                      "\t\tTriangles {\n"
                                      "\t\t\t{ 0, 1, 0 },\n"
                                      "\t\t}\n"
                                      "\t\tTriangles 0, 1, 0,\n"
                                      "\t}\n")),
              "hero.mdl, line 10: \"\t\tTriangles 0, 1, 0,\" is not a group of triangles, and only "
              "triangles can be edited.");
    EXPECT_EQ(readingError(geosetWith("\tGroups 1 1 {\n\t\tMatrices 0,\n\t}\n")),
              "hero.mdl, line 7: \"\t\tMatrices 0,\" is not a matrix group.");
}

}  // namespace
}  // namespace corvane
