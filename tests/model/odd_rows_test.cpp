// Rows in shapes at the border of what is read, and blocks without a name in and around a geoset.
#include <gtest/gtest.h>

#include "model_texts.h"

namespace corvane {
namespace {

// The rows begin in line 3.
std::string geosetOf(const std::string& rows) {
    return "Geoset {\n\tVertices 2 {\n" + rows + "\t}\n}\n";
}

// The section begins in line 6.
std::string geosetWith(const std::string& section) {
    return "Geoset {\n\tVertices 2 {\n\t\t{ 1, 2, 3 },\n\t\t{ 4, 5, 6 },\n\t}\n" + section + "}\n";
}

TEST(OddRows, MayHaveACommaBeforeTheirBrace) {
    const Geoset geoset = readGeoset(geosetOf("\t\t{ 1, 2, 3, },\n\t\t{ 4, 5, 6 , } ,\n"));
    ASSERT_EQ(geoset.Vertices.size(), 2U);
    EXPECT_EQ(geoset.Vertices[0].pos, (Triple{2, 3, 1}));
    EXPECT_EQ(geoset.Vertices[1].pos, (Triple{5, 6, 4}));
}

TEST(OddRows, MayHaveACommentBetweenThatCommaAndTheBrace) {
    const Geoset geoset =
        readGeoset(geosetOf("\t\t{ 1, 2, 3, // up\n },\n\t\t{ 4, 5, 6 ,// { }\n\t\t},\n"));
    ASSERT_EQ(geoset.Vertices.size(), 2U);
    EXPECT_EQ(geoset.Vertices[0].pos, (Triple{2, 3, 1}));
    EXPECT_EQ(geoset.Vertices[1].pos, (Triple{5, 6, 4}));
}

TEST(OddRows, HoldOneRowEachUnlessAnotherBraceFollows) {
    EXPECT_EQ(readGeoset(geosetOf("\t\t{ 1, 2, 3 }, { 4, 5, 6 },\n")).Vertices.size(), 2U);
    EXPECT_EQ(readingError(geosetOf("\t\t{ 1, 2, 3 }, 4, 5, 6,\n")),
              "hero.mdl, line 3: \"\t\t{ 1, 2, 3 }, 4, 5, 6,\" holds more than a row.");
    EXPECT_EQ(readingError(geosetOf("\t\t{ 1, 2, 3 } 4\n")),
              "hero.mdl, line 3: \"\t\t{ 1, 2, 3 } 4\" holds more than a row.");
    EXPECT_EQ(readingError(geosetOf("\t\t{ 1, 2, 3 },\n\t\t4, 5, 6,\n")),
              "hero.mdl, line 4: \"\t\t4, 5, 6,\" is not a row of 3 numbers in braces.");
}

TEST(OddRows, OfVertexGroupsMayHaveCommentsAndTheLastNoComma) {
    const Geoset geoset =
        readGeoset(geosetWith("\tVertexGroup {\n\t\t1 // left\n\t\t,\n\t\t2// right, {\n\t}\n"));
    EXPECT_EQ(geoset.Vertices[0].group, 1);
    EXPECT_EQ(geoset.Vertices[1].group, 2);
    EXPECT_EQ(readGeoset(geosetWith("\tVertexGroup { 3, 4 }\n")).Vertices[1].group, 4);
    EXPECT_EQ(readingError(geosetWith("\tVertexGroup {\n\t\t1 // left\n\t\t2,\n\t}\n")),
              "hero.mdl, line 7: \"\t\t1 // left\" is not a vertex group and a comma.");
}

TEST(OddRows, OfMatricesNeedTheirCommas) {
    EXPECT_EQ(readGeoset(geosetWith("\tGroups 1 2 {\n\t\tMatrices { 0,\n1, }\n\t}\n")).matrixGroups,
              (std::vector<MatrixGroup>{{0, 1, -1, -1, -1, -1, -1}}));
    EXPECT_EQ(readingError(geosetWith("\tGroups 1 2 {\n\t\tMatrices { 0\n1 },\n\t}\n")),
              "hero.mdl, line 7: \"\t\tMatrices { 0\" is not a matrix group.");
    EXPECT_EQ(readingError(geosetWith("\tGroups 1 2 {\n\t\tMatrices { 0, 1\n\t}\n\t}\n")),
              "was read");
}

TEST(OddRows, OfFacesMayBeOtherThanTheirHeaderCounts) {
    for (const std::string count : {"0", "3", "4", "5", "6", "7", "600", "5000000000000000000"}) {
        const Geoset geoset = readGeoset(
            geosetWith("\tFaces 1 " + count +
                       " {\n\t\tTriangles {\n\t\t\t{ 0, 1, 0, 1, 1, 0 },\n\t\t}\n\t}\n"));
        ASSERT_EQ(geoset.Faces.size(), 2U) << count;
        EXPECT_EQ(geoset.Faces[1].corner, (std::array<std::int16_t, 3>{1, 1, 0})) << count;
    }
}

const std::string kVertices = "\tVertices 1 {\n\t\t{ 1, 2, 3 },\n\t}\n";
const std::string kNormals = "\tNormals 1 {\n\t\t{ 0, 0, 1 },\n\t}\n";

TEST(NamelessBlocks, InAGeosetArePassedOver) {
    const std::string text = "Geoset {\n\t{ 5 }\n" + kVertices +
                             "\t{ 5, { 6 } }\n\t{\n\t\t7\n\t}\n" + kNormals + "\t{ }\n}\n";
    EXPECT_EQ(readGeoset(text).Vertices.at(0).normal, (Triple{0, 1, 0}));
}

TEST(NamelessBlocks, AroundAGeosetAreBlocksOfTheirOwn) {
    const std::string text = "{ 5 }\nGeoset {\n" + kVertices + "}\n{ 6 }\n{\n\t7\n}\nGeoset {\n" +
                             kVertices + kNormals + "}\n{ 8 }\n";
    const std::vector<ModelBlock> blocks = scanBlocks(text);
    ASSERT_EQ(blocks.size(), 6U);
    for (const std::size_t i : {0U, 2U, 3U, 5U}) EXPECT_EQ(blocks[i].keyword, "") << i;
    for (const ModelBlock& block : blocks) EXPECT_TRUE(block.closed) << block.begin;
    EXPECT_EQ(text.substr(blocks[2].begin, blocks[2].end - blocks[2].begin), "{ 6 }\n");
    EXPECT_EQ(scanGeosets(text).size(), 2U);
    EXPECT_EQ(readGeoset(text, 2).Vertices.at(0).normal, (Triple{0, 1, 0}));
}

// The nameless block has no place of its own at the top: it does not hide that the geoset before it
// ended too early.
TEST(NamelessBlocks, BehindAGeosetThatEndedTooEarlyAreNoReasonToLoseItsSections) {
    EXPECT_EQ(readingError("Geoset {\n" + kVertices + "\t}\n\t{ 5 }\n" +
                           "\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 0, 0 },\n\t\t}\n\t}\n}\n"),
              "hero.mdl, line 7: there is a closing brace too many up to here, so that the geoset "
              "that starts in line 1 ended too early.");
}

TEST(NamelessBlocks, ThatAreNotClosedEndBeforeTheNextBlockOfTheTop) {
    const std::string text = "{ 5\nGeoset {\n" + kVertices + "}\n{ 6\nBone \"A\" {\n}\n";
    const std::vector<ModelBlock> blocks = scanBlocks(text);
    ASSERT_EQ(blocks.size(), 4U);
    EXPECT_FALSE(blocks[0].closed);
    EXPECT_EQ(blocks[0].end, text.find("Geoset"));
    EXPECT_TRUE(blocks[1].closed);
    EXPECT_FALSE(blocks[2].closed);
    EXPECT_EQ(blocks[2].end, text.find("Bone"));
    EXPECT_EQ(readGeoset(text).Vertices.size(), 1U);
}

TEST(NamelessBlocks, ThatAreNotClosedInAGeosetAreNamedWithoutAGap) {
    EXPECT_EQ(readingError("Geoset {\n" + kVertices + "\t{ 5\n" + kNormals + "}\n"),
              "hero.mdl, line 5: the block that starts here does not end (a closing brace \"}\" is "
              "missing in its geoset).");
}

}  // namespace
}  // namespace corvane
