#include "model/model_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace corvane {
namespace {

std::vector<Line> linesOf(std::string_view text, std::size_t from = 0) {
    std::vector<Line> lines;
    LineCursor cursor(text, from);
    Line line;
    while (cursor.next(line)) lines.push_back(line);
    return lines;
}

TEST(LineCursor, SplitsAtLineFeeds) {
    const auto lines = linesOf("Geoset {\n\n\t}\n");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].text, "Geoset {");
    EXPECT_EQ(lines[0].lineBreak, "\n");
    EXPECT_EQ(lines[0].begin, 0U);
    EXPECT_EQ(lines[0].end, 9U);
    EXPECT_EQ(lines[1].text, "");
    EXPECT_EQ(lines[1].begin, 9U);
    EXPECT_EQ(lines[1].end, 10U);
    EXPECT_EQ(lines[2].text, "\t}");
    EXPECT_EQ(lines[2].begin, 10U);
    EXPECT_EQ(lines[2].end, 13U);
}

TEST(LineCursor, TakesCarriageReturnAndLineFeedAsOneBreak) {
    const auto lines = linesOf("}\r\n\r\n\t}\r\n");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].text, "}");
    EXPECT_EQ(lines[0].lineBreak, "\r\n");
    EXPECT_EQ(lines[0].end, 3U);
    EXPECT_EQ(lines[1].text, "");
    EXPECT_EQ(lines[1].lineBreak, "\r\n");
    EXPECT_EQ(lines[2].text, "\t}");
    EXPECT_EQ(lines[2].end, 9U);
}

TEST(LineCursor, LeavesALoneCarriageReturnInTheText) {
    const auto lines = linesOf("a\rb\r\r\nc\n");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, "a\rb\r");
    EXPECT_EQ(lines[0].lineBreak, "\r\n");
    EXPECT_EQ(lines[1].text, "c");
}

TEST(LineCursor, ReadsALastLineWithoutABreak) {
    const auto lines = linesOf("{\n}");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1].text, "}");
    EXPECT_EQ(lines[1].lineBreak, "");
    EXPECT_EQ(lines[1].begin, 2U);
    EXPECT_EQ(lines[1].end, 3U);
}

TEST(LineCursor, FindsNoLineInAnEmptyText) {
    EXPECT_TRUE(linesOf("").empty());
    EXPECT_TRUE(linesOf("abc\n", 4).empty());
}

TEST(LineCursor, StartsAtAnOffset) {
    const auto lines = linesOf("one\ntwo\nthree\n", 4);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, "two");
    EXPECT_EQ(lines[0].begin, 4U);
    EXPECT_EQ(lines[1].text, "three");
}

TEST(LineCursor, LeavesAByteOrderMarkOutOfTheFirstLinesText) {
    const auto lines = linesOf("\xEF\xBB\xBFGeoset {\r\n\xEF\xBB\xBF}\r\n");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, "Geoset {");
    EXPECT_EQ(lines[0].begin, 0U);
    EXPECT_EQ(lines[0].end, 13U);
    EXPECT_EQ(lines[1].text, "\xEF\xBB\xBF}");  // only at the very start
}

TEST(LineCursor, TakesAFileThatIsOnlyAByteOrderMark) {
    const auto lines = linesOf("\xEF\xBB\xBF");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].text, "");
    EXPECT_EQ(lines[0].end, 3U);
}

TEST(LineCursor, ReadsLinesOf130000Characters) {
    const std::string text = "\t\t\t{ " + std::string(130000, '7') + " },\r\n\t\t}\r\n";
    const auto lines = linesOf(text);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text.size(), 130008U);
    EXPECT_EQ(lines[0].text.substr(130000), "77777 },");
    EXPECT_EQ(lines[1].text, "\t\t}");
}

TEST(LineCursor, PassesBytesOfAnyValue) {
    const std::string_view text("Bone \"B\xFChne\0\x80\xFF\" {\n\x1A\n", 20);
    const auto lines = linesOf(text);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, std::string_view("Bone \"B\xFChne\0\x80\xFF\" {", 17));
    EXPECT_EQ(lines[1].text, "\x1A");
}

TEST(ModelTextType, HoldsACopyOfTheBytes) {
    std::string bytes("a\0b\r\n", 5);
    const ModelText text("hero.mdl", bytes);
    bytes[0] = 'x';
    EXPECT_EQ(text.path(), "hero.mdl");
    EXPECT_EQ(text.view(), std::string_view("a\0b\r\n", 5));
    EXPECT_EQ(ModelText("empty.mdl", "").view(), "");
    EXPECT_EQ(ModelText().view(), "");
}

TEST(ModelTextErrorType, NamesTheFileTheLineAndTheReason) {
    const ModelText text("folder/hero.mdl", "one\ntwo\nthree");
    EXPECT_STREQ(ModelTextError(text, 0, "is wrong.").what(), "folder/hero.mdl, line 1: is wrong.");
    EXPECT_STREQ(ModelTextError(text, 3, "is wrong.").what(), "folder/hero.mdl, line 1: is wrong.");
    EXPECT_STREQ(ModelTextError(text, 4, "is wrong.").what(), "folder/hero.mdl, line 2: is wrong.");
    EXPECT_STREQ(ModelTextError(text, 12, "is wrong.").what(),
                 "folder/hero.mdl, line 3: is wrong.");
}

TEST(LineNumberAt, CountsFromOneWithEitherBreak) {
    const std::string_view text = "a\r\nb\r\n\r\nc";
    EXPECT_EQ(lineNumberAt(text, 0), 1U);
    EXPECT_EQ(lineNumberAt(text, 2), 1U);  // the break belongs to its line
    EXPECT_EQ(lineNumberAt(text, 3), 2U);
    EXPECT_EQ(lineNumberAt(text, 6), 3U);
    EXPECT_EQ(lineNumberAt(text, 8), 4U);
}

TEST(LineBreakOf, IsTheFirstOneInTheText) {
    EXPECT_EQ(lineBreakOf("a\r\nb\n"), "\r\n");
    EXPECT_EQ(lineBreakOf("a\nb\r\n"), "\n");
    EXPECT_EQ(lineBreakOf("\r\n"), "\r\n");
    EXPECT_EQ(lineBreakOf("no break"), "\n");
    EXPECT_EQ(lineBreakOf(""), "\n");
}

TEST(Trimmed, LeavesOutWhatIsBlankAtBothEnds) {
    const auto isDash = [](char ch) { return ch == '-'; };
    EXPECT_EQ(trimmed("--a-b---", isDash), "a-b");
    EXPECT_EQ(trimmed(" a-", isDash), " a");
    EXPECT_EQ(trimmed("---", isDash), "");
    EXPECT_EQ(trimmed("", isDash), "");
}

TEST(StartsWith, ComparesTheFirstCharacters) {
    EXPECT_TRUE(startsWith("\tVertices 8 {", "\tVertices"));
    EXPECT_TRUE(startsWith("\tVertices", "\tVertices"));
    EXPECT_TRUE(startsWith("abc", ""));
    EXPECT_FALSE(startsWith("\tVert", "\tVertices"));
    EXPECT_FALSE(startsWith("Vertices 8 {", "\tVertices"));
    EXPECT_FALSE(startsWith("\tvertices 8 {", "\tVertices"));
    EXPECT_FALSE(startsWith("", "a"));
}

TEST(CountChar, CountsEveryOccurrence) {
    EXPECT_EQ(countChar("\t\tMatrices { 0, 1, 2 },", ','), 3U);
    EXPECT_EQ(countChar("\t\tMatrices { 5 },", ','), 1U);
    EXPECT_EQ(countChar(",,,", ','), 3U);
    EXPECT_EQ(countChar("abc", ','), 0U);
    EXPECT_EQ(countChar("", ','), 0U);
}

}  // namespace
}  // namespace corvane
