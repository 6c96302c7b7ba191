// What the readers of a geoset's sections share: the text of one section, the numbers in its
// header, and the messages about what is wrong with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/lexer.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

/// A piece of the text as messages show it: in quotes, and cut where it is long.
std::string quoted(std::string_view text);

/// A piece of the text without the blanks and line breaks around it.
std::string_view withoutBlanks(std::string_view field);

/// One section in the text of its model. Offsets are bytes from the start of that text.
class SectionText {
public:
    /// Both must live longer than this.
    SectionText(const ModelText& text, const Section& section) : text_(text), section_(section) {}

    SectionKind kind() const { return section_.kind; }
    /// A lexer over what the section holds.
    Lexer body() const { return {text_.view(), section_.bodyBegin, section_.bodyEnd}; }
    std::size_t lineEnd(std::size_t offset) const { return lineEndOf(text_.view(), offset); }
    /// The offset of a piece of the text.
    std::size_t offsetOf(std::string_view piece) const {
        return static_cast<std::size_t>(piece.data() - text_.view().data());
    }
    /// The line with an offset, as messages show it.
    std::string quotedLine(std::size_t offset) const;

    /// The count in the header behind so many words; nothing where there is none.
    std::optional<std::int64_t> countInHeader(int words) const;
    /// The same. Throws ModelTextError where there is none.
    std::int64_t headerCount(int words) const;
    /// A piece of the text as a number. Throws ModelTextError, calling it `what`, where it is none
    /// of 16 bits.
    std::int16_t int16(std::string_view field, const char* what) const;

    /// These throw ModelTextError for the line with an offset, a piece of the text, or the header.
    [[noreturn]] void failAt(std::size_t offset, const std::string& reason) const;
    [[noreturn]] void fail(std::string_view piece, const std::string& reason) const;
    [[noreturn]] void failAtHeader(const std::string& reason) const;
    /// Throws GeosetTooLarge for so many `things`, such as "faces", where only `limit` can be
    /// edited.
    [[noreturn]] void failTooLarge(std::size_t count, const char* things, int limit) const;

private:
    const ModelText& text_;
    const Section& section_;
};

}  // namespace corvane
