// What reading a geoset yields. What is refused is in geoset_reader_refusals_test.cpp.
#include "model/geoset_reader.h"

#include <gtest/gtest.h>

#include "model_texts.h"

namespace corvane {
namespace {

constexpr MatrixGroup kUnusedGroup = {-1, -1, -1, -1, -1, -1, -1};

// A triangle at number `n`, to tell geosets apart.
std::string triangleGeoset(const std::string& n) {
    return "Geoset {\n"
           "\tVertices 3 {\n"
           "\t\t{ " +
           n +
           ", 0, 0 },\n"
           "\t\t{ " +
           n +
           ", 1, 0 },\n"
           "\t\t{ " +
           n +
           ", 0, 1 },\n"
           "\t}\n"
           "\tFaces 1 3 {\n"
           "\t\tTriangles {\n"
           "\t\t\t{ 0, 1, 2 },\n"
           "\t\t}\n"
           "\t}\n"
           "}\n";
}

// A geoset of `count` vertices at the origin with the given section after them.
std::string geosetWith(int count, const std::string& section) {
    std::string text = "Geoset {\n\tVertices " + std::to_string(count) + " {\n";
    for (int i = 0; i < count; ++i) text += "\t\t{ 0, 0, 0 },\n";
    return text + "\t}\n" + section + "}\n";
}

std::string facesSection(const std::string& indexCount, const std::string& indexLines) {
    return "\tFaces 1 " + indexCount + " {\n\t\tTriangles {\n" + indexLines + "\t\t}\n\t}\n";
}

FaceRecord face(std::int16_t a, std::int16_t b, std::int16_t c) { return {{a, b, c}, false}; }

const char* const kFullGeoset =
    "// a comment\n"
    "Version {\n"
    "\tFormatVersion 800,\n"
    "}\n"
    "Geoset {\n"
    "\tVertices 4 {\n"
    "\t\t{ 1.5, -2, 0.03 },\n"
    "\t\t{ -0.000000, 8.32939e-004, 1.044562E-08 },\n"
    "\t\t{ 1, 2, 3 },\n"
    "\t\t{ -33.3333333333333333333, +1.5, 100000 },\n"
    "\t}\n"
    "\tNormals 4 {\n"
    "\t\t{ 0, 0.6, -0.8 },\n"
    "\t\t{ 1, 0, 0 },\n"
    "\t\t{ 0, 1, 0 },\n"
    "\t\t{ 0, 0, 1 },\n"
    "\t}\n"
    "\tTVertices 4 {\n"
    "\t\t{ 0.25, 0.75 },\n"
    "\t\t{ 1, 0 },\n"
    "\t\t{ 0, 1 },\n"
    "\t\t{ -1.5, 2.5 },\n"
    "\t}\n"
    "\tVertexGroup {\n"
    "\t\t3,\n"
    "\t\t0,\n"
    "\t\t1,\n"
    "\t\t12,\n"
    "\t}\n"
    "\tFaces 1 6 {\n"
    "\t\tTriangles {\n"
    "\t\t\t{ 0, 1, 2, 0, 2, 3 },\n"
    "\t\t}\n"
    "\t}\n"
    "\tGroups 3 9 {\n"
    "\t\tMatrices { 5 },\n"
    "\t\tMatrices { 0, 1, 2 },\n"
    "\t\tMatrices { 10, 11, 12, 13, 14, 15, 16 },\n"
    "\t}\n"
    "\tMinimumExtent { 0, 0, 0 },\n"
    "\tAnim {\n"
    "\t\tBoundsRadius 7,\n"
    "\t}\n"
    "\tMaterialID 0,\n"
    "}\n";

TEST(ParseGeoset, PutsTheFilesTriplesIntoSlots) {
    const Geoset geoset = readGeoset(kFullGeoset);
    ASSERT_EQ(geoset.Vertices.size(), 4U);
    EXPECT_EQ(geoset.Vertices[0].pos, (Triple{-2, 0.03, 1.5}));
    EXPECT_EQ(geoset.Vertices[2].pos, (Triple{2, 3, 1}));
    EXPECT_EQ(geoset.Vertices[0].normal, (Triple{0.6, -0.8, 0}));
    EXPECT_EQ(geoset.Vertices[1].normal, (Triple{0, 0, 1}));
}

TEST(ParseGeoset, ReadsNumbersAsRealFilesHaveThem) {
    const Geoset geoset = readGeoset(kFullGeoset);
    ASSERT_EQ(geoset.Vertices.size(), 4U);
    EXPECT_EQ(geoset.Vertices[1].pos, (Triple{0.000832939, 1.044562e-8, 0}));
    EXPECT_EQ(geoset.Vertices[3].pos, (Triple{1.5, 100000, -33.333333333333336}));
}

TEST(ParseGeoset, ReadsTextureCoordinatesAndVertexGroups) {
    const Geoset geoset = readGeoset(kFullGeoset);
    ASSERT_EQ(geoset.Vertices.size(), 4U);
    EXPECT_EQ(geoset.Vertices[0].tu, 0.25);
    EXPECT_EQ(geoset.Vertices[0].tv, 0.75);
    EXPECT_EQ(geoset.Vertices[3].tu, -1.5);
    EXPECT_EQ(geoset.Vertices[3].tv, 2.5);
    EXPECT_EQ(geoset.Vertices[0].group, 3);
    EXPECT_EQ(geoset.Vertices[1].group, 0);
    EXPECT_EQ(geoset.Vertices[3].group, 12);  // beyond the groups there are, and kept
}

TEST(ParseGeoset, ReadsFacesWithCornersInFileOrder) {
    const Geoset geoset = readGeoset(kFullGeoset);
    EXPECT_EQ(geoset.Faces, (std::vector<FaceRecord>{face(0, 1, 2), face(0, 2, 3)}));
}

TEST(ParseGeoset, ReadsMatrixGroupsAndFillsUnusedRows) {
    const Geoset geoset = readGeoset(kFullGeoset);
    ASSERT_EQ(geoset.matrixGroupCount(), 3U);
    EXPECT_EQ(geoset.matrixGroups[0], (MatrixGroup{5, -1, -1, -1, -1, -1, -1}));
    EXPECT_EQ(geoset.matrixGroups[1], (MatrixGroup{0, 1, 2, -1, -1, -1, -1}));
    EXPECT_EQ(geoset.matrixGroups[2], (MatrixGroup{10, 11, 12, 13, 14, 15, 16}));
}

TEST(ParseGeoset, LeavesEveryFlagClear) {
    const Geoset geoset = readGeoset(kFullGeoset);
    ASSERT_EQ(geoset.Vertices.size(), 4U);
    for (const VertexRecord& vertex : geoset.Vertices) {
        EXPECT_FALSE(vertex.selected);
        EXPECT_FALSE(vertex.deleted);
    }
    ASSERT_EQ(geoset.Faces.size(), 2U);
    for (const FaceRecord& f : geoset.Faces) EXPECT_FALSE(f.deleted);
}

TEST(ParseGeoset, ReadsTheSameWithCarriageReturns) {
    const Geoset geoset = readGeoset(kFullGeoset);
    EXPECT_EQ(geoset.Vertices.size(), 4U);
    EXPECT_EQ(readGeoset(withCrLf(kFullGeoset)), geoset);
}

TEST(ParseGeoset, ReadsAGeosetBehindAByteOrderMark) {
    const Geoset geoset = readGeoset("\xEF\xBB\xBF" + triangleGeoset("4"));
    ASSERT_EQ(geoset.Vertices.size(), 3U);
    EXPECT_EQ(geoset.Vertices[0].pos, (Triple{0, 0, 4}));
}

TEST(ParseGeoset, ReadsTheGeosetWithTheNumber) {
    const std::string text = triangleGeoset("10") + triangleGeoset("20") + triangleGeoset("30");
    for (int n = 1; n <= 3; ++n) {
        const Geoset geoset = readGeoset(text, n);
        ASSERT_EQ(geoset.Vertices.size(), 3U);
        EXPECT_EQ(geoset.Vertices[0].pos, (Triple{0, 0, 10.0 * n}));
    }
}

TEST(ParseGeoset, DoesNotExamineWhatIsOutsideTheGeoset) {
    const Geoset geoset = readGeoset("\tVertices abc {\n\t\t{ x },\n}\n" + triangleGeoset("4") +
                                     "Geoset {\n\tVertices abc {\n\t\t{ x },\n");
    ASSERT_EQ(geoset.Vertices.size(), 3U);
    EXPECT_EQ(geoset.Vertices[1].pos, (Triple{1, 0, 4}));
}

TEST(ParseGeoset, ReturnsAnEmptyGeosetForANumberThatTheFileDoesNotHave) {
    const Geoset empty;
    EXPECT_EQ(readGeoset(kFullGeoset, 2), empty);
    EXPECT_EQ(readGeoset(kFullGeoset, 0), empty);
    EXPECT_EQ(readGeoset(kFullGeoset, -1), empty);
    EXPECT_EQ(readGeoset("", 1), empty);
    EXPECT_EQ(readGeoset("Version {\n}\n", 1), empty);
}

TEST(ParseGeoset, SizesTheVertexListByItsRows) {
    const Geoset geoset = readGeoset(
        "Geoset {\n"
        "\tVertices 4 {\n"
        "\t\t{ 1, 2, 3 },\n"
        "\t\t{ 0, 0, 0 },\n"
        "\t\t{ 0, 0, 0 },\n"
        "\t}\n"
        "\tNormals 3 {\n"
        "\t\t{ 0, 0, 1 },\n"
        "\t\t{ 0, 0, 1 },\n"
        "\t}\n"
        "\tTVertices 3 {\n"
        "\t}\n"
        "\tVertexGroup {\n"
        "\t\t1,\n"
        "\t}\n"
        "}\n");
    ASSERT_EQ(geoset.Vertices.size(), 3U);
    EXPECT_EQ(geoset.Vertices[0].pos, (Triple{2, 3, 1}));
    EXPECT_EQ(geoset.Vertices[0].group, 1);
    EXPECT_EQ(geoset.Vertices[1].pos, (Triple{0, 0, 0}));
    EXPECT_EQ(geoset.Vertices[1].normal, (Triple{0, 1, 0}));
    EXPECT_EQ(geoset.Vertices[2], VertexRecord{});
}

TEST(ParseGeoset, ReadsAVertexGroupHeaderWithTwoBlanks) {
    const Geoset geoset = readGeoset(geosetWith(2, "\tVertexGroup  {\n\t\t3,\n\t\t4,\n\t}\n"));
    ASSERT_EQ(geoset.Vertices.size(), 2U);
    EXPECT_EQ(geoset.Vertices[0].group, 3);
    EXPECT_EQ(geoset.Vertices[1].group, 4);
}

TEST(ParseGeoset, KeepsVertexGroupsOf16Bits) {
    const Geoset geoset =
        readGeoset(geosetWith(2, "\tVertexGroup {\n\t\t32767,\n\t\t-32768,\n\t}\n"));
    ASSERT_EQ(geoset.Vertices.size(), 2U);
    EXPECT_EQ(geoset.Vertices[0].group, 32767);
    EXPECT_EQ(geoset.Vertices[1].group, -32768);
}

TEST(ParseGeoset, ReadsSectionsThatStandBeforeTheVertices) {
    const Geoset geoset = readGeoset(
        "Geoset {\n"
        "\tFaces 1 3 {\n"
        "\t\tTriangles {\n"
        "\t\t\t{ 2, 1, 0 },\n"
        "\t\t}\n"
        "\t}\n"
        "\tVertexGroup {\n"
        "\t\t1,\n"
        "\t}\n"
        "\tVertices 3 {\n"
        "\t\t{ 1, 2, 3 },\n"
        "\t\t{ 0, 0, 0 },\n"
        "\t\t{ 0, 0, 0 },\n"
        "\t}\n"
        "}\n");
    ASSERT_EQ(geoset.Vertices.size(), 3U);
    EXPECT_EQ(geoset.Vertices[0].pos, (Triple{2, 3, 1}));
    EXPECT_EQ(geoset.Vertices[0].group, 1);
    EXPECT_EQ(geoset.Faces, (std::vector<FaceRecord>{face(2, 1, 0)}));
}

TEST(ParseGeoset, ReadsRowsWithoutBlanksOrATrailingComma) {
    const Geoset geoset = readGeoset(
        "Geoset {\n"
        "\tVertices 2 {\n"
        "\t\t{1,2,3},\n"
        "\t\t{ 4 ,\t5 , 6 }\n"
        "\t}\n"
        "}\n");
    ASSERT_EQ(geoset.Vertices.size(), 2U);
    EXPECT_EQ(geoset.Vertices[0].pos, (Triple{2, 3, 1}));
    EXPECT_EQ(geoset.Vertices[1].pos, (Triple{5, 6, 4}));
}

TEST(ParseGeoset, ReadsIndexListsOverSeveralLines) {
    const Geoset geoset = readGeoset(geosetWith(
        4, facesSection(
               "15",
               "\t\t\t{ 0, 1, 2, 1, 2, 3 },\n\t\t\t{ 3, 2, 1 },\n\t\t\t{ 3, 0, 1, 0, 0, 0 },\n")));
    EXPECT_EQ(geoset.Faces, (std::vector<FaceRecord>{face(0, 1, 2), face(1, 2, 3), face(3, 2, 1),
                                                     face(3, 0, 1), face(0, 0, 0)}));
}

TEST(ParseGeoset, ReadsIndexLinesOf130000Characters) {
    std::string list;
    for (int i = 0; i < 10000; ++i) list += "1000, 1001, ";
    for (int i = 0; i < 9998; ++i) list += "2, ";
    list += "1, 0";
    ASSERT_GT(list.size(), 130000U);
    const Geoset geoset =
        readGeoset(geosetWith(1002, facesSection("30000", "\t\t\t{ " + list + " },\n")));
    ASSERT_EQ(geoset.Faces.size(), 10000U);
    EXPECT_EQ(geoset.Faces[0], face(1000, 1001, 1000));
    EXPECT_EQ(geoset.Faces[1], face(1001, 1000, 1001));
    EXPECT_EQ(geoset.Faces[9999], face(2, 1, 0));
}

TEST(ParseGeoset, ReadsTheFaceCountFromTheHeader) {
    std::string list = "0, 1, 2";
    for (int i = 1; i < 12; ++i) list += ", 2, 1, 0";
    const Geoset geoset =
        readGeoset(geosetWith(3, facesSection("36", "\t\t\t{ " + list + " },\n")));
    ASSERT_EQ(geoset.Faces.size(), 12U);
    EXPECT_EQ(geoset.Faces[0], face(0, 1, 2));
    EXPECT_EQ(geoset.Faces[11], face(2, 1, 0));
}

// A save after Delete Face writes a header that counts more faces than the list holds.
TEST(ParseGeoset, ReadsTheFacesThatAreListedWhateverTheHeaderCounts) {
    for (const char* const count : {"3", "9", "0", "4", "5", "32767", "9223372036854775807"}) {
        EXPECT_EQ(readGeoset(geosetWith(3, facesSection(count, "\t\t\t{ 0, 1, 2 },\n"))).Faces,
                  (std::vector<FaceRecord>{face(0, 1, 2)}))
            << count;
        EXPECT_TRUE(readGeoset(geosetWith(3, facesSection(count, ""))).Faces.empty()) << count;
    }
    EXPECT_TRUE(readGeoset(geosetWith(3, "\tFaces 1 3 {\n\t}\n")).Faces.empty());
}

TEST(ParseGeoset, ReadsMoreFacesThanTheHeaderCounts) {
    const std::string two = "\t\t\t{ 0, 1, 2, 2, 1, 0 },\n";
    for (const char* const count : {"0", "3", "4", "5"}) {
        EXPECT_EQ(readGeoset(geosetWith(3, facesSection(count, two))).Faces,
                  (std::vector<FaceRecord>{face(0, 1, 2), face(2, 1, 0)}))
            << count;
    }
}

TEST(ParseGeoset, ReadsAnEmptyIndexList) {
    EXPECT_TRUE(readGeoset(geosetWith(3, facesSection("3", "\t\t\t{ },\n"))).Faces.empty());
    EXPECT_TRUE(readGeoset(geosetWith(3, facesSection("0", "\t\t\t{ },\n"))).Faces.empty());
}

TEST(ParseGeoset, ReadsAFileThatEndsAfterTheSectionsOfItsLastGeoset) {
    const std::string whole = triangleGeoset("4");
    const std::string unclosed = whole.substr(0, whole.size() - 2);  // without "}" and the break
    EXPECT_EQ(readGeoset(unclosed), readGeoset(whole));
    EXPECT_EQ(readGeoset(unclosed).Vertices.size(), 3U);
    const std::string withoutBreak = unclosed.substr(0, unclosed.size() - 1);
    EXPECT_EQ(readGeoset(withoutBreak), readGeoset(whole));
}

TEST(ParseGeoset, KeepsTheFirstOfSeveralTextureLayers) {
    const Geoset geoset = readGeoset(geosetWith(1,
                                                "\tTVertices 1 {\n"
                                                "\t\t{ 0.25, 0.5 },\n"
                                                "\t}\n"
                                                "\tTVertices 1 {\n"
                                                "\t\t{ 9, 9 },\n"
                                                "\t}\n"));
    ASSERT_EQ(geoset.Vertices.size(), 1U);
    EXPECT_EQ(geoset.Vertices[0].tu, 0.25);
    EXPECT_EQ(geoset.Vertices[0].tv, 0.5);
}

TEST(ParseGeoset, ReadsAGeosetOfTheLargestSize) {
    std::string list;
    for (int i = 0; i < 32767; ++i) list += "\t\t\t{ 32766, 0, 32765 },\n";
    const Geoset geoset = readGeoset(geosetWith(32767, facesSection("98301", list)));
    ASSERT_EQ(geoset.Vertices.size(), 32767U);
    ASSERT_EQ(geoset.Faces.size(), 32767U);
    EXPECT_EQ(geoset.Faces[0], face(32766, 0, 32765));
}

TEST(ParseGeoset, HasNoMatrixGroupsWithoutASectionForThem) {
    EXPECT_EQ(readGeoset(triangleGeoset("4")).matrixGroupCount(), 0U);
    EXPECT_EQ(readGeoset(geosetWith(1, "\tGroups 0 0 {\n\t}\n")).matrixGroupCount(), 0U);
}

TEST(ParseGeoset, KeepsAMatrixIndexOfMinusOneAsAnUnusedRow) {
    const Geoset geoset = readGeoset(geosetWith(1, "\tGroups 1 0 {\n\t\tMatrices { -1 },\n\t}\n"));
    EXPECT_EQ(geoset.matrixGroups, (std::vector<MatrixGroup>{kUnusedGroup}));
}

TEST(ParseGeoset, PassesCommentsInAMatrixGroup) {
    const Geoset geoset = readGeoset(geosetWith(1,
                                                "\tGroups 1 2 {\n"
                                                "\t\tMatrices { 3 // the hand, and its\n"
                                                "\t\t, 4 // fingers\n"
                                                "\t\t},\n"
                                                "\t}\n"));
    MatrixGroup group = kUnusedGroup;
    group[0] = 3;
    group[1] = 4;
    EXPECT_EQ(geoset.matrixGroups, std::vector<MatrixGroup>{group});
}

TEST(ParseGeoset, ReadsVertexGroupsUpToTheClosingBrace) {
    const Geoset geoset = readGeoset(geosetWith(2, "\tVertexGroup { 5, 7 }\n"));
    EXPECT_EQ(geoset.Vertices[0].group, 5);
    EXPECT_EQ(geoset.Vertices[1].group, 7);
}

}  // namespace
}  // namespace corvane
