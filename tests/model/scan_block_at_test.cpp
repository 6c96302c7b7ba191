// One block by itself is the same as among all blocks of its text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/model_scanner.h"

namespace corvane {
namespace {

// Compares every block of a text with the one found by its begin, and returns their number.
std::size_t expectSameAlone(std::string_view text) {
    const std::vector<ModelBlock> blocks = scanBlocks(text);
    for (const ModelBlock& block : blocks) {
        const ModelBlock alone = scanBlockAt(text, block.begin);
        EXPECT_EQ(alone.keyword, block.keyword) << text;
        EXPECT_EQ(alone.keyword.data(), block.keyword.data()) << text;
        EXPECT_EQ(alone.begin, block.begin) << text;
        EXPECT_EQ(alone.bodyBegin, block.bodyBegin) << text;
        EXPECT_EQ(alone.bodyEnd, block.bodyEnd) << text;
        EXPECT_EQ(alone.end, block.end) << text;
        EXPECT_EQ(alone.closed, block.closed) << text;
    }
    return blocks.size();
}

TEST(ScanBlockAt, FindsABlockThatBeginsItsLine) {
    const std::string_view text = "Version {\n\tFormatVersion 800,\n}\nGeoset {\n\tA 1,\n}\nB 2,\n";
    const ModelBlock block = scanBlockAt(text, 32);
    EXPECT_EQ(block.keyword, "Geoset");
    EXPECT_EQ(block.begin, 32U);
    EXPECT_EQ(block.bodyBegin, 41U);
    EXPECT_EQ(block.bodyEnd, 47U);
    EXPECT_EQ(block.end, 49U);
    EXPECT_TRUE(block.closed);
    EXPECT_EQ(expectSameAlone(text), 2U);
}

TEST(ScanBlockAt, FindsABlockBehindAnotherOne) {
    EXPECT_EQ(expectSameAlone("Version { } Geoset { 1 } Bone \"A { }\" {\n} \t Geoset {\n}\n"), 4U);
    EXPECT_EQ(expectSameAlone("MaterialID 0, Geoset { } }Geoset{}"), 2U);
    EXPECT_EQ(expectSameAlone("Version {\n}  Geoset {\n}{\n}\n"), 3U);
}

TEST(ScanBlockAt, FindsABlockInAnyLayout) {
    EXPECT_EQ(expectSameAlone("\xEF\xBB\xBFVersion {\r\n}\r\n\tGeoset\r\n\t{\r\n\t}\r\n"), 2U);
    EXPECT_EQ(expectSameAlone("\xEF\xBB\xBF \tVersion {}\n"), 1U);
    EXPECT_EQ(expectSameAlone("\n\n  // Geoset {\n  Geoset // {\n {\n  } // }\n\t{ 5 }\n"), 2U);
    EXPECT_EQ(expectSameAlone("Geoset 1, {\n}\nGeoset\nBone \"B\" {\n}\n\"C\" {\n}\n"), 3U);
}

TEST(ScanBlockAt, EndsAnUnclosedBlockWhereTheNextOneStarts) {
    EXPECT_EQ(expectSameAlone("Geoset {\n\tVertices 1 {\n\t}\nBone \"A\" {\n}\n"), 2U);
    EXPECT_EQ(expectSameAlone("Geoset {\n\tA 1,\n\tBone \"A\" {\n\t}\n"), 2U);
    EXPECT_FALSE(scanBlockAt("Geoset {\n\tA 1,\n", 0).closed);
}

// Wherever a file is cut off.
TEST(ScanBlockAt, FindsTheBlocksOfEveryBeginningOfAText) {
    const std::string text =
        "\xEF\xBB\xBF// {\nVersion {\n\tFormatVersion 800,\n}\nModel \"a } {\" { Blend 1, } Geoset "
        "{\n"
        "\tVertices 2 {\n\t\t{ 1, 2, 3 },\n\t}\n\tMaterialID 0, } }\n  Geoset {\r\n\t\tA 1,\r\n"
        "Bone \"B\"\n{\n\tTangents 1 { { 5 }\n}\n{ }\n";
    std::size_t found = 0;
    for (std::size_t size = 0; size <= text.size(); ++size) {
        found += expectSameAlone(std::string_view(text).substr(0, size));
    }
    EXPECT_GT(found, text.size());
    EXPECT_EQ(scanBlocks(text).size(), 5U);
}

TEST(ScanBlockAt, GoesOnToTheNextBlockFromAnywhereElse) {
    const std::string_view text = "Version {\n}\nGeosetId 0,\nBone \"A\" {\n}\n";
    EXPECT_EQ(scanBlockAt(text, 12).keyword, "Bone");
    EXPECT_EQ(scanBlockAt(text, 12).begin, 24U);
}

TEST(ScanBlockAt, IsADefaultBlockWhereNoneFollows) {
    for (const std::size_t begin : {11U, 12U, 24U}) {
        const ModelBlock none = scanBlockAt("Version {\n}\nGeosetId 0,\n", begin);
        EXPECT_EQ(none.keyword, "");
        EXPECT_EQ(none.end, 0U);
    }
}

TEST(ScanBlockAt, PassesOverABraceThatClosesNothing) {
    const std::string_view text = "}\nGeoset {\n\t}\n";
    const ModelBlock block = scanBlockAt(text, 0);
    EXPECT_EQ(block.keyword, "Geoset");
    EXPECT_EQ(block.begin, 2U);
    EXPECT_EQ(block.end, text.size());
}

// A block that may have ended too early is no business of the one alone.
TEST(ScanBlockAt, KnowsOfNothingAfterTheBlock) {
    const std::string_view text = "Geoset {\n\t}\n\tVertices 1 {\n\t}\n}\n";
    ASSERT_EQ(scanBlocks(text).size(), 2U);
    EXPECT_NE(scanBlocks(text)[0].strayAt, std::string_view::npos);
    EXPECT_EQ(scanBlockAt(text, 0).strayAt, std::string_view::npos);
    expectSameAlone(text);
}

}  // namespace
}  // namespace corvane
