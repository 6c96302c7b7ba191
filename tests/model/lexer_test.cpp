#include "model/lexer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane {
namespace {

// All tokens of a text.
std::vector<std::string> piecesOf(std::string_view text) {
    std::vector<std::string> pieces;
    Lexer lexer(text, 0, text.size());
    for (Token token = lexer.next(); token.kind != Token::Kind::End; token = lexer.next()) {
        pieces.emplace_back(token.text);
    }
    return pieces;
}

using Pieces = std::vector<std::string>;

TEST(LexerType, TellsWordsFromMarks) {
    EXPECT_EQ(piecesOf("Faces 1\t36{ { 0,1 } ,\r\n}"),
              (Pieces{"Faces", "1", "36", "{", "{", "0", ",", "1", "}", ",", "}"}));
    EXPECT_EQ(piecesOf(""), Pieces{});
    EXPECT_EQ(piecesOf(" \t\r\n\v\f"), Pieces{});
}

TEST(LexerType, NamesTheKindOfAToken) {
    using Kind = Token::Kind;
    const std::string_view text = "\tGeoset{ \"A b\", 1 }";
    Lexer lexer(text, 0, text.size());
    struct Expected {
        Kind kind;
        std::string_view text;
        std::size_t offset;
    };
    for (const Expected& expected :
         {Expected{Kind::Word, "Geoset", 1}, Expected{Kind::Open, "{", 7},
          Expected{Kind::String, "\"A b\"", 9}, Expected{Kind::Comma, ",", 14},
          Expected{Kind::Word, "1", 16}, Expected{Kind::Close, "}", 18}}) {
        const Token token = lexer.next();
        EXPECT_EQ(token.kind, expected.kind) << expected.text;
        EXPECT_EQ(token.text, expected.text);
        EXPECT_EQ(token.offset, expected.offset) << expected.text;
        EXPECT_EQ(token.end(), expected.offset + expected.text.size()) << expected.text;
        EXPECT_EQ(token.isWord(), expected.kind == Kind::Word || expected.kind == Kind::String);
        EXPECT_EQ(lexer.offset(), token.end()) << expected.text;
    }
    EXPECT_EQ(lexer.next().kind, Kind::End);
}

TEST(LexerType, StaysAtTheEndOfItsStretch) {
    const std::string_view text = "ab, cd // ef";
    Lexer lexer(text, 1, 5);
    EXPECT_EQ(lexer.next().text, "b");
    EXPECT_EQ(lexer.next().kind, Token::Kind::Comma);
    EXPECT_EQ(lexer.next().text, "c");
    for (int i = 0; i < 2; ++i) {
        const Token end = lexer.next();
        EXPECT_EQ(end.kind, Token::Kind::End);
        EXPECT_EQ(end.text, "");
        EXPECT_EQ(end.offset, 5U);
        EXPECT_FALSE(end.isWord());
        EXPECT_TRUE(lexer.atEnd());
        EXPECT_EQ(lexer.peek(), '\0');
        EXPECT_FALSE(lexer.skip('d'));
    }
}

TEST(LexerType, SkipsAMarkBehindBlanks) {
    const std::string_view text = " // ,\n , x";
    Lexer lexer(text, 0, text.size());
    EXPECT_FALSE(lexer.skip(','));
    EXPECT_TRUE(lexer.skipPast(','));
    EXPECT_EQ(lexer.offset(), 8U);
    EXPECT_FALSE(lexer.skipPast(','));
    EXPECT_EQ(lexer.peek(), 'x');
    EXPECT_TRUE(lexer.skipPast('x'));
    EXPECT_FALSE(lexer.skipPast(','));
}

TEST(LexerType, PassesOverComments) {
    EXPECT_EQ(piecesOf("a // b { c\nd//e\r\n//"), (Pieces{"a", "d"}));
    EXPECT_EQ(piecesOf("a/b / c"), (Pieces{"a/b", "/", "c"}));
}

TEST(LexerType, KeepsStringsWhole) {
    EXPECT_EQ(piecesOf("Bone \"a { // , }\" {"), (Pieces{"Bone", "\"a { // , }\"", "{"}));
    EXPECT_EQ(piecesOf("\"\"x\"y\""), (Pieces{"\"\"", "x", "\"y\""}));
}

TEST(LexerType, EndsAStringWithItsLine) {
    EXPECT_EQ(piecesOf("\"a {\n}"), (Pieces{"\"a {", "}"}));
    EXPECT_EQ(piecesOf("\"a"), (Pieces{"\"a"}));
}

TEST(LexerType, PassesOverAByteOrderMarkAtTheBeginningOnly) {
    EXPECT_EQ(piecesOf("\xEF\xBB\xBFVersion"), (Pieces{"Version"}));
    EXPECT_EQ(piecesOf("a \xEF\xBB\xBF"), (Pieces{"a", "\xEF\xBB\xBF"}));
    EXPECT_EQ(piecesOf("\xEF\xBB"), (Pieces{"\xEF\xBB"}));
}

std::optional<std::size_t> endOf(std::string_view text) {
    return findBlockEnd(text, 0, text.size());
}

TEST(FindBlockEnd, CountsBraces) {
    EXPECT_EQ(endOf("}"), 0U);
    EXPECT_EQ(endOf("{ { } } } }"), 8U);
    EXPECT_EQ(endOf("{ }"), std::nullopt);
    EXPECT_EQ(endOf(""), std::nullopt);
    EXPECT_EQ(findBlockEnd("a } }", 3, 5), 4U);
    EXPECT_EQ(findBlockEnd("a } }", 3, 4), std::nullopt);
}

TEST(FindBlockEnd, LooksIntoNoStringAndNoComment) {
    EXPECT_EQ(endOf("\"}\" }"), 4U);
    EXPECT_EQ(endOf("// }\n}"), 5U);
    EXPECT_EQ(endOf("/ }"), 2U);
    EXPECT_EQ(endOf("// }"), std::nullopt);
    EXPECT_EQ(endOf("\"}\n}"), 3U);
    EXPECT_EQ(endOf("\"}"), std::nullopt);
    EXPECT_EQ(endOf("\"\"}"), 2U);
    EXPECT_EQ(endOf("/"), std::nullopt);
}

// Where a block ends, or where it ends unclosed as a negative number less 1.
std::ptrdiff_t topLevelEndOf(std::string_view text, bool ownLevel = false) {
    std::size_t unclosedAt = 0;
    const auto end = findTopLevelBlockEnd(text, 0, text.size(), ownLevel, unclosedAt);
    return end ? static_cast<std::ptrdiff_t>(*end) : -static_cast<std::ptrdiff_t>(unclosedAt) - 1;
}

TEST(FindTopLevelBlockEnd, StopsWhereAnotherBlockBegins) {
    EXPECT_EQ(topLevelEndOf("{ 1, }\nBone \"A\" {\n}\n"), -7 - 1);
    EXPECT_EQ(topLevelEndOf("{ 1, }\nBone \"A\"\n{\n}\n"), -7 - 1);
    EXPECT_EQ(topLevelEndOf("{ 1, }\n"), -7 - 1);
    EXPECT_EQ(topLevelEndOf("{ 1, }\n}"), 7);
    // Blocks of these names may stand in others.
    EXPECT_EQ(topLevelEndOf("\nVertices {\n}\n}"), 14);
}

TEST(FindTopLevelBlockEnd, StopsAtAnIndentedBlockOnlyAtItsOwnLevel) {
    EXPECT_EQ(topLevelEndOf("\n\tBone {\n}\n}"), 11);
    EXPECT_EQ(topLevelEndOf("\n\tBone {\n}\n}", true), -1 - 1);
    EXPECT_EQ(topLevelEndOf("{\n\tBone {\n}\n} }", true), 14);
}

// Long texts are looked at in chunks, and whatever a chunk begins or ends with must count.
TEST(FindTopLevelBlockEnd, SeesEveryByteOfALongText) {
    for (std::size_t blanks = 0; blanks < 70; ++blanks) {
        const std::string gap(blanks, ' ');
        for (const bool ownLevel : {false, true}) {
            const std::string rows = gap + "\t{ 1, 2 },\n" + gap + "{{" + gap + "}" + gap + "}";
            EXPECT_EQ(topLevelEndOf(rows + "}" + gap + "}" + gap, ownLevel), std::ssize(rows));
            EXPECT_EQ(topLevelEndOf(gap + "\"}" + gap + "\"" + gap + "}" + gap, ownLevel),
                      3 + 3 * std::ssize(gap));
            EXPECT_EQ(topLevelEndOf(gap + "//}" + gap + "\n" + gap + "}" + gap, ownLevel),
                      4 + 3 * std::ssize(gap));
            EXPECT_EQ(topLevelEndOf("{{" + gap + "\nGeoset {" + gap + "}}}", ownLevel),
                      -3 - std::ssize(gap) - 1);
            EXPECT_EQ(topLevelEndOf("{{ " + gap + "}" + gap + "}" + gap, ownLevel),
                      -5 - 3 * std::ssize(gap) - 1);
        }
    }
}

const std::vector<std::string>& topLevelKeywords() {
    static const std::vector<std::string> all = {"Version",
                                                 "Model",
                                                 "Sequences",
                                                 "GlobalSequences",
                                                 "Textures",
                                                 "Materials",
                                                 "TextureAnims",
                                                 "Geoset",
                                                 "GeosetAnim",
                                                 "Bone",
                                                 "Light",
                                                 "Helper",
                                                 "Attachment",
                                                 "PivotPoints",
                                                 "ParticleEmitter",
                                                 "ParticleEmitter2",
                                                 "ParticleEmitterPopcorn",
                                                 "RibbonEmitter",
                                                 "Camera",
                                                 "EventObject",
                                                 "CollisionShape",
                                                 "FaceFX",
                                                 "BindPose",
                                                 "SoundEmitter"};
    return all;
}

// Wherever the line break comes to lie in a chunk, also as its last byte, and far from the end.
TEST(FindTopLevelBlockEnd, StopsBeforeEachBlockOfTheTopAtEveryPlaceOfAChunk) {
    const std::string tail(100, ' ');
    for (const std::string& keyword : topLevelKeywords()) {
        EXPECT_TRUE(isTopLevelKeyword(keyword)) << keyword;
        for (std::size_t before = 0; before < 130; ++before) {
            const std::string text =
                std::string(before, 'x') + '\n' + keyword + " \"A\" {\n}\n}\n" + tail;
            EXPECT_EQ(topLevelEndOf(text), -std::ssize(std::string(before, 'x')) - 2)
                << keyword << ' ' << before;
        }
    }
    for (const std::string keyword : {"Vertices", "Anim", "Geosets", "bone", "MaterialID"}) {
        EXPECT_FALSE(isTopLevelKeyword(keyword)) << keyword;
        for (std::size_t before = 0; before < 70; ++before) {
            const std::string text = std::string(before, 'x') + '\n' + keyword + " \"A\" {\n}\n";
            EXPECT_EQ(topLevelEndOf(text + "}" + tail), std::ssize(text)) << keyword;
        }
    }
}

TEST(OpensTopLevelBlock, WantsAKnownKeywordAndABrace) {
    EXPECT_TRUE(opensTopLevelBlock("Geoset {", 0));
    EXPECT_TRUE(opensTopLevelBlock("x\nBone \"A {\"{\n", 2));
    EXPECT_TRUE(opensTopLevelBlock("Geoset // here\n{", 0));
    EXPECT_FALSE(opensTopLevelBlock("Geoset\nMaterialID {", 0));
    EXPECT_FALSE(opensTopLevelBlock("GeosetId 0, {", 0));
    EXPECT_FALSE(opensTopLevelBlock("Geoset 0, {", 0));
    EXPECT_FALSE(opensTopLevelBlock("Bone \"A {\"", 0));
    EXPECT_FALSE(opensTopLevelBlock("Geoset // {", 0));
    EXPECT_FALSE(opensTopLevelBlock("Anim {", 0));
    EXPECT_FALSE(opensTopLevelBlock("\tGeoset {", 0));
    EXPECT_FALSE(opensTopLevelBlock("", 0));
}

}  // namespace
}  // namespace corvane
