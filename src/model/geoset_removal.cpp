#include "model/geoset_removal.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "model/lexer.h"
#include "model/model_scanner.h"

namespace corvane {

namespace {

// A property that names a geoset or a geoset animation, and the value that names none.
struct IdProperty {
    std::string_view keyword;
    std::string_view unset;
};

constexpr IdProperty kGeosetId = {"GeosetId", "Multiple"};
constexpr IdProperty kGeosetAnimId = {"GeosetAnimId", "None"};

// A number after such a keyword.
struct IdReference {
    std::size_t begin = 0;  // offsets of the number in the text
    std::size_t end = 0;
    std::int64_t id = 0;
};

// A piece of the text and what takes its place.
struct Change {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string replacement;
};

// The number that a lexer comes to after a keyword; nothing where none can be read.
std::optional<IdReference> numberAfter(Lexer lexer) {
    const Token number = lexer.next();
    const std::optional<std::int64_t> id = parseInteger(number.text);
    const Token after = lexer.next();
    if (!id || after.isWord() || after.kind == Token::Kind::Open) return std::nullopt;
    return IdReference{.begin = number.offset, .end = number.end(), .id = *id};
}

// Adds the numbers after a keyword in a line, outside comments and strings.
void addReferences(std::string_view text, std::size_t lineBegin, std::size_t lineEnd,
                   const IdProperty& property, std::vector<IdReference>& references) {
    // A line of the tools' own that says anywhere that it names none is taken to mean it.
    const std::string_view line = text.substr(lineBegin, lineEnd - lineBegin);
    const bool alone = line.find_first_of("{}") == std::string_view::npos &&
                       isRestOfLineBlank(line, line.find(',') + 1);
    if (alone && line.starts_with('\t') && line.substr(1).starts_with(property.keyword) &&
        line.find(property.unset) != std::string_view::npos) {
        return;
    }
    Lexer lexer(text, lineBegin, lineEnd);
    for (Token token = lexer.next(); token.kind != Token::Kind::End; token = lexer.next()) {
        if (token.text != property.keyword) continue;
        if (const auto found = numberAfter(lexer)) references.push_back(*found);
    }
}

// All numbers after a keyword, in file order.
std::vector<IdReference> findReferences(std::string_view text, const IdProperty& property) {
    std::vector<IdReference> references;
    std::size_t at = text.find(property.keyword);
    while (at != std::string_view::npos) {
        const std::size_t lineEnd = lineEndOf(text, at);
        addReferences(text, lineBeginOf(text, at), lineEnd, property, references);
        at = text.find(property.keyword, lineEnd);
    }
    return references;
}

class Remover {
public:
    Remover(const ModelText& text, int geosetNumber)
        : text_(text.view()), geosetId_(geosetNumber - 1), blocks_(scanBlocks(text_)) {}

    PiecedText run();

private:
    bool isDropped(std::size_t offset) const;
    void drop(const ModelBlock& block);
    const ModelBlock* findGeoset() const;
    int dropAnimation(const std::vector<IdReference>& references);
    void renumber(const std::vector<IdReference>& references, const IdProperty& property,
                  std::int64_t removedId);

    std::string_view text_;
    std::int64_t geosetId_;
    std::vector<ModelBlock> blocks_;
    std::vector<Change> changes_;  // the dropped blocks come first
    std::size_t dropped_ = 0;
};

bool Remover::isDropped(std::size_t offset) const {
    return std::any_of(
        changes_.begin(), changes_.begin() + static_cast<std::ptrdiff_t>(dropped_),
        [&](const Change& change) { return offset >= change.begin && offset < change.end; });
}

// Leaves out a block and the line that follows, unless that line opens a block.
void Remover::drop(const ModelBlock& block) {
    std::size_t end = block.end;
    if (end == lineBeginOf(text_, end)) {
        const std::size_t lineEnd = lineEndOf(text_, end);
        const bool opensBlock = std::ranges::any_of(blocks_, [&](const ModelBlock& other) {
            return other.begin >= end && other.begin < lineEnd;
        });
        const std::string_view line = lineAt(text_, end);
        const std::size_t last = line.find_last_not_of(" \t");
        const bool endsInBrace = last != std::string_view::npos && line[last] == '{';
        if (!opensBlock && !endsInBrace) end = lineEnd;
    }
    changes_.push_back({block.begin, end, ""});
    ++dropped_;
}

const ModelBlock* Remover::findGeoset() const {
    std::int64_t id = 0;
    for (const ModelBlock& block : blocks_) {
        if (block.keyword == "Geoset" && id++ == geosetId_) return &block;
    }
    return nullptr;
}

// Leaves out the first geoset animation that names the geoset, and returns its 1-based ordinal; 0
// where there is none.
int Remover::dropAnimation(const std::vector<IdReference>& references) {
    int ordinal = 0;
    for (const ModelBlock& block : blocks_) {
        if (block.keyword != "GeosetAnim" || isDropped(block.begin)) continue;
        ++ordinal;
        const bool namesIt = std::ranges::any_of(references, [&](const IdReference& reference) {
            return reference.id == geosetId_ && reference.begin >= block.bodyBegin &&
                   reference.begin < block.bodyEnd;
        });
        if (namesIt) {
            drop(block);
            return ordinal;
        }
    }
    return 0;
}

void Remover::renumber(const std::vector<IdReference>& references, const IdProperty& property,
                       std::int64_t removedId) {
    for (const IdReference& reference : references) {
        if (reference.id < removedId || isDropped(reference.begin)) continue;
        changes_.push_back({reference.begin, reference.end,
                            reference.id == removedId ? std::string(property.unset)
                                                      : std::to_string(reference.id - 1)});
    }
}

PiecedText Remover::run() {
    const std::vector<IdReference> geosetIds = findReferences(text_, kGeosetId);
    int animation = 0;
    if (const ModelBlock* const geoset = findGeoset()) {
        drop(*geoset);
        animation = dropAnimation(geosetIds);
    }
    renumber(geosetIds, kGeosetId, geosetId_);
    if (animation > 0) {
        renumber(findReferences(text_, kGeosetAnimId), kGeosetAnimId, animation - 1);
    }

    std::ranges::sort(changes_, {}, &Change::begin);
    PiecedText out;
    std::size_t copied = 0;
    for (Change& change : changes_) {
        out.addView(text_.substr(copied, change.begin - copied));
        out.addText(std::move(change.replacement));
        copied = change.end;
    }
    out.addView(text_.substr(copied));
    return out;
}

}  // namespace

PiecedText removeGeoset(const ModelText& text, int geosetNumber) {
    return Remover(text, geosetNumber).run();
}

}  // namespace corvane
