#include "model/model_scanner.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "model/lexer.h"

namespace corvane {

namespace {

constexpr std::string_view kGeoset = "Geoset";

struct SectionName {
    SectionKind kind;
    std::string_view keyword;
};

constexpr std::array<SectionName, 6> kSectionNames = {{
    {SectionKind::Vertices, "Vertices"},
    {SectionKind::Normals, "Normals"},
    {SectionKind::TVertices, "TVertices"},
    {SectionKind::VertexGroup, "VertexGroup"},
    {SectionKind::Faces, "Faces"},
    {SectionKind::Groups, "Groups"},
}};

constexpr std::array<std::string_view, 2> kRowSectionNames = {"Tangents", "SkinWeights"};

std::optional<SectionKind> kindOf(std::string_view keyword) {
    const auto* const found = std::ranges::find(kSectionNames, keyword, &SectionName::keyword);
    if (found != kSectionNames.end()) return found->kind;
    if (std::ranges::find(kRowSectionNames, keyword) != kRowSectionNames.end()) {
        return SectionKind::Rows;
    }
    return std::nullopt;
}

// Where a thing that begins at `offset` begins with its indentation, if nothing else stands before
// it on its line and the line does not begin before `least`. A byte order mark stays outside.
std::size_t withIndentation(std::string_view text, std::size_t offset, std::size_t least) {
    std::size_t begin = offset;
    while (begin > least && (text[begin - 1] == ' ' || text[begin - 1] == '\t')) --begin;
    return isLineBegin(text, begin) ? begin : offset;
}

// Where the content of a block begins whose opening brace is the byte before `afterBrace`.
std::size_t contentBegin(std::string_view text, std::size_t afterBrace) {
    return isRestOfLineBlank(text, afterBrace) ? lineEndOf(text, afterBrace) : afterBrace;
}

// A block's keyword, and the place of the brace that opens it. Skips anything else on the way.
struct Opening {
    std::string_view keyword;
    std::size_t keywordAt = 0;
    std::size_t brace = 0;
};

// The next opening of a block, the lexer after its brace; nothing at the end. What has no block,
// such as "MaterialID 0,", is passed over, after `onBare` had a look at it, and so is a brace that
// closes nothing, after `onStray` was told its offset. `onWord` sees what follows a keyword.
template <typename OnBare, typename OnWord, typename OnStray>
std::optional<Opening> nextOpening(Lexer& lexer, std::string_view text, OnBare onBare,
                                   OnWord onWord, OnStray onStray) {
    Opening opening;
    bool inHeader = false;
    std::size_t headerEnd = 0;
    const auto leaveHeader = [&] {
        if (inHeader) onBare(opening);
        inHeader = false;
    };
    while (true) {
        const Token token = lexer.next();
        if (token.kind == Token::Kind::Open) {
            opening.brace = token.offset;
            if (!inHeader) {
                opening.keyword = {};
                opening.keywordAt = opening.brace;
            }
            return opening;
        }
        if (!token.isWord()) {
            if (token.kind == Token::Kind::Close) onStray(token.offset);
            leaveHeader();
            if (token.kind == Token::Kind::End) return std::nullopt;
            continue;
        }
        // A header may have its brace on the next line, but not more of its words.
        const std::string_view between = text.substr(headerEnd, token.offset - headerEnd);
        if (inHeader && between.find('\n') != std::string_view::npos) leaveHeader();
        if (inHeader) {
            onWord(token.text, token.offset);
        } else {
            opening.keyword = token.text;
            opening.keywordAt = token.offset;
            inHeader = true;
        }
        headerEnd = token.end();
    }
}

constexpr auto kIgnoreBare = [](const Opening&) {};
constexpr auto kIgnoreWord = [](std::string_view, std::size_t) {};
constexpr auto kIgnoreStray = [](std::size_t) {};

void endAfterBrace(ModelBlock& block, std::string_view text, std::size_t brace) {
    block.bodyEnd = withIndentation(text, brace, block.bodyBegin);
    block.end = isRestOfLineBlank(text, brace + 1) ? lineEndOf(text, brace) : brace + 1;
}

ModelBlock blockAt(std::string_view text, const Opening& opening, std::size_t least) {
    ModelBlock block;
    block.keyword = opening.keyword;
    block.begin = withIndentation(text, opening.keywordAt, least);
    const std::size_t afterBrace = opening.brace + 1;
    block.bodyBegin = contentBegin(text, afterBrace);
    std::size_t unclosedAt = 0;
    // What models have at the top only never stands in a geoset.
    if (const auto brace =
            findTopLevelBlockEnd(text, afterBrace, text.size(), isGeoset(block), unclosedAt)) {
        endAfterBrace(block, text, *brace);
    } else {
        block.bodyBegin = std::min(block.bodyBegin, unclosedAt);
        block.bodyEnd = block.end = unclosedAt;
        block.closed = false;
    }
    return block;
}

// The parts of a geoset that have one of the known keywords, in file order.
std::vector<Section> scanKnownParts(const ModelText& model, const GeosetBlock& geoset) {
    const std::string_view text = model.view().substr(0, geoset.bodyEnd);
    std::vector<Section> sections;
    Lexer lexer(text, geoset.bodyBegin, geoset.bodyEnd);
    std::size_t least = geoset.bodyBegin;
    // Passing over a section as if it were a property would lose what it holds.
    const auto refuseBare = [&](const Opening& bare) {
        if (!kindOf(bare.keyword)) return;
        throw ModelTextError(model, bare.keywordAt,
                             "the header of the section " + std::string(bare.keyword) +
                                 " has no opening brace \"{\".");
    };
    const auto refuseKeyword = [&](std::string_view word, std::size_t offset) {
        if (!kindOf(word)) return;
        throw ModelTextError(model, offset,
                             "a comma is missing before the section " + std::string(word) + ".");
    };
    while (const std::optional<Opening> opening =
               nextOpening(lexer, text, refuseBare, refuseKeyword, kIgnoreStray)) {
        const std::size_t afterBrace = opening->brace + 1;
        const std::optional<SectionKind> kind = kindOf(opening->keyword);
        Section section;
        section.begin = withIndentation(text, opening->keywordAt, least);
        section.header = text.substr(section.begin, afterBrace - section.begin);
        section.bodyBegin = contentBegin(text, afterBrace);
        const auto brace = findBlockEnd(text, afterBrace, geoset.bodyEnd);
        // Where the geoset lacks a brace, one that is not indented is the geoset's.
        const bool takesTheGeosets = brace && !geoset.closed &&
                                     *brace == lineBeginOf(text, *brace) &&
                                     section.begin != opening->keywordAt;
        if (!brace || takesTheGeosets) {
            throw ModelTextError(
                model, opening->keywordAt,
                "the " +
                    (opening->keyword.empty() ? "block"
                                              : "section " + std::string(opening->keyword)) +
                    " that starts here does not end (a closing brace \"}\" is missing in its "
                    "geoset).");
        }
        section.bodyEnd = withIndentation(text, *brace, section.bodyBegin);
        section.end = *brace + 1;
        lexer.moveTo(text.data() + section.end);
        least = section.end;
        if (!kind) continue;
        section.kind = *kind;
        section.lineBreak = lineBreakAt(model.view(), section.begin);
        sections.push_back(section);
    }
    return sections;
}

// The further sections of a kind after the first: texture coordinates of other layers are rows like
// any other, and of anything else there may not be a second section.
void sortOutRepeated(const ModelText& model, std::vector<Section>& sections) {
    for (auto section = sections.begin(); section != sections.end(); ++section) {
        if (section->kind == SectionKind::Rows ||
            std::find_if(sections.begin(), section, [&](const Section& earlier) {
                return earlier.kind == section->kind;
            }) == section) {
            continue;
        }
        if (section->kind != SectionKind::TVertices) {
            throw ModelTextError(
                model, section->begin,
                "a second section " + std::string(keywordOf(section->kind)) + " in a geoset.");
        }
        section->kind = SectionKind::Rows;
    }
}

}  // namespace

std::string_view keywordOf(SectionKind kind) {
    const auto* const found = std::ranges::find(kSectionNames, kind, &SectionName::kind);
    return found == kSectionNames.end() ? std::string_view() : found->keyword;
}

std::vector<ModelBlock> scanBlocks(std::string_view text) {
    std::vector<ModelBlock> blocks;
    Lexer lexer(text, 0, text.size());
    std::size_t least = 0;
    // It may belong to any block from the latest one that has its place at the top.
    const auto noteOutside = [&](std::size_t offset) {
        auto block = blocks.rbegin();
        bool hasItsPlace = false;
        while (block != blocks.rend() && !hasItsPlace && block->strayAt == std::string_view::npos) {
            block->strayAt = offset;
            hasItsPlace = isTopLevelKeyword(block->keyword);
            ++block;
        }
    };
    // One brace more behind a block that ended without indentation took nothing from it.
    const auto noteStray = [&](std::size_t brace) {
        if (blocks.empty() || blocks.back().bodyEnd >= text.size()) return;
        const std::size_t closing = blocks.back().bodyEnd;
        if (text[closing] == '}' && (closing == 0 || text[closing - 1] == '\n')) return;
        noteOutside(brace);
    };
    while (const std::optional<Opening> opening =
               nextOpening(lexer, text, kIgnoreBare, kIgnoreWord, noteStray)) {
        // A section outside of its geoset, which then ended too early.
        if (kindOf(opening->keyword)) noteOutside(opening->keywordAt);
        blocks.push_back(blockAt(text, *opening, least));
        least = blocks.back().end;
        lexer.moveTo(text.data() + least);
    }
    return blocks;
}

bool isGeoset(const ModelBlock& block) { return block.keyword == kGeoset; }

ModelBlock scanBlockAt(std::string_view text, std::size_t begin) {
    Lexer lexer(text, begin, text.size());
    const auto opening = nextOpening(lexer, text, kIgnoreBare, kIgnoreWord, kIgnoreStray);
    return opening ? blockAt(text, *opening, begin) : ModelBlock();
}

std::vector<ModelBlock> scanInside(std::string_view text, const ModelBlock& block) {
    const std::string_view within = text.substr(0, block.bodyEnd);
    std::vector<ModelBlock> blocks;
    Lexer lexer(within, block.bodyBegin, block.bodyEnd);
    std::size_t least = block.bodyBegin;
    while (const std::optional<Opening> opening =
               nextOpening(lexer, within, kIgnoreBare, kIgnoreWord, kIgnoreStray)) {
        const std::size_t afterBrace = opening->brace + 1;
        ModelBlock inner;
        inner.keyword = opening->keyword;
        inner.begin = withIndentation(within, opening->keywordAt, least);
        inner.bodyBegin = contentBegin(within, afterBrace);
        if (const auto brace = findBlockEnd(within, afterBrace, block.bodyEnd)) {
            endAfterBrace(inner, within, *brace);
        } else {
            inner.bodyEnd = inner.end = block.bodyEnd;
            inner.closed = false;
        }
        blocks.push_back(inner);
        least = inner.end;
        lexer.moveTo(text.data() + inner.end);
    }
    return blocks;
}

std::vector<GeosetBlock> scanGeosets(std::string_view text) {
    std::vector<GeosetBlock> blocks = scanBlocks(text);
    std::erase_if(blocks, [](const ModelBlock& block) { return !isGeoset(block); });
    return blocks;
}

std::vector<Section> scanParts(const ModelText& text, const GeosetBlock& geoset) {
    std::vector<Section> sections = scanKnownParts(text, geoset);
    if (geoset.strayAt != std::string_view::npos) {
        throw ModelTextError(text, geoset.strayAt,
                             "there is a closing brace too many up to here, so that the geoset "
                             "that starts in line " +
                                 std::to_string(lineNumberAt(text.view(), geoset.begin)) +
                                 " ended too early.");
    }
    sortOutRepeated(text, sections);
    return sections;
}

std::string_view keywordIn(const Section& section) {
    Lexer lexer(section.header, 0, section.header.size());
    return lexer.next().text;
}

}  // namespace corvane
