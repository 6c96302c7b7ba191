#include "model/model_text.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace corvane {
namespace {

TEST(LinesOfAText, AreFoundByAnyByteInThem) {
    const std::string_view text = "ab\r\n\ncd";
    struct Expected {
        std::size_t begin;
        std::size_t end;
        std::string_view line;
        std::size_t number;
    };
    const Expected first = {0, 4, "ab", 1};
    const Expected second = {4, 5, "", 2};
    const Expected third = {5, 7, "cd", 3};
    const Expected lines[] = {first, first, first, first, second, third, third, third};
    for (std::size_t offset = 0; offset <= text.size(); ++offset) {
        EXPECT_EQ(lineBeginOf(text, offset), lines[offset].begin) << offset;
        EXPECT_EQ(lineEndOf(text, offset), lines[offset].end) << offset;
        EXPECT_EQ(lineAt(text, offset), lines[offset].line) << offset;
        EXPECT_EQ(lineNumberAt(text, offset), lines[offset].number) << offset;
        EXPECT_EQ(isLineBegin(text, offset), offset == lines[offset].begin) << offset;
    }
}

TEST(LinesOfAText, AreEmptyInAnEmptyText) {
    EXPECT_EQ(lineBeginOf("", 0), 0U);
    EXPECT_EQ(lineEndOf("", 0), 0U);
    EXPECT_EQ(lineAt("", 0), "");
    EXPECT_EQ(lineNumberAt("", 0), 1U);
    EXPECT_TRUE(isLineBegin("", 0));
}

TEST(LineAt, LeavesALoneCarriageReturnInTheLine) {
    EXPECT_EQ(lineAt("a\rb\r\r\nc\n", 0), "a\rb\r");
}

// The file's first bytes, which no line's text begins with.
TEST(LinesOfAText, TakeAByteOrderMarkAtTheBeginningOnly) {
    const std::string_view text = "\xEF\xBB\xBFGeoset {\r\n\xEF\xBB\xBF}\r\n";
    EXPECT_EQ(lineAt(text, 5), "Geoset {");
    EXPECT_EQ(lineBeginOf(text, 5), 0U);
    EXPECT_EQ(lineEndOf(text, 5), 13U);
    EXPECT_EQ(lineAt(text, 14), "\xEF\xBB\xBF}");
    EXPECT_TRUE(isLineBegin(text, 0));
    EXPECT_TRUE(isLineBegin(text, 3));
    EXPECT_FALSE(isLineBegin(text, 2));
    EXPECT_TRUE(isLineBegin(text, 13));
    EXPECT_FALSE(isLineBegin(text, 16));
    EXPECT_EQ(lineAt("\xEF\xBB\xBF", 0), "");
    EXPECT_EQ(lineEndOf("\xEF\xBB\xBF", 0), 3U);
}

TEST(LinesOfAText, MayHave130000CharactersOfAnyValue) {
    std::string line = "\t\t\t{ " + std::string(130000, '7') + " },\x1A\x80\xFF";
    line += '\0';
    const std::string text = line + "\r\n\t\t}\r\n";
    EXPECT_EQ(lineAt(text, 65000), line);
    EXPECT_EQ(lineEndOf(text, 65000), line.size() + 2);
    EXPECT_EQ(lineBeginOf(text, 65000), 0U);
    EXPECT_EQ(lineAt(text, line.size() + 3), "\t\t}");
}

TEST(LineBreakAt, IsThatOfTheLine) {
    const std::string_view text = "a\r\nb\n\r\nc\r\r\n\nd";
    EXPECT_EQ(lineBreakAt(text, 0), "\r\n");
    EXPECT_EQ(lineBreakAt(text, 2), "\r\n");
    EXPECT_EQ(lineBreakAt(text, 3), "\n");
    EXPECT_EQ(lineBreakAt(text, 5), "\r\n");
    EXPECT_EQ(lineBreakAt(text, 7), "\r\n");
    EXPECT_EQ(lineBreakAt(text, 11), "\n");
}

TEST(LineBreakAt, IsTheTextsFirstWhereTheLineHasNone) {
    EXPECT_EQ(lineBreakAt("a\r\nb\nc", 5), "\r\n");
    EXPECT_EQ(lineBreakAt("a\nb\r\nc", 5), "\n");
    EXPECT_EQ(lineBreakAt("ab\r", 1), "\n");
    EXPECT_EQ(lineBreakAt("", 0), "\n");
}

TEST(RestOfALine, IsBlankUpToItsBreakOrAComment) {
    EXPECT_TRUE(isRestOfLineBlank("{ \t\r\nx", 1));
    EXPECT_TRUE(isRestOfLineBlank("{ // x\ny", 1));
    EXPECT_TRUE(isRestOfLineBlank("{", 1));
    EXPECT_FALSE(isRestOfLineBlank("{ x\n", 1));
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

TEST(LineBreakAt, IsTheFirstOneInTheTextWhereItsOwnLineHasNone) {
    EXPECT_EQ(lineBreakAt("\nb\r\nc", 4), "\n");
    EXPECT_EQ(lineBreakAt("\nb\r\nc", 1), "\r\n");
}

TEST(LineBreakOf, IsTheFirstOneInTheText) {
    EXPECT_EQ(lineBreakOf("a\r\nb\n"), "\r\n");
    EXPECT_EQ(lineBreakOf("a\nb\r\n"), "\n");
    EXPECT_EQ(lineBreakOf("\r\n"), "\r\n");
    EXPECT_EQ(lineBreakOf("\nb\r\n"), "\n");
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
