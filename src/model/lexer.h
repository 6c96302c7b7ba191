// The smallest things in a model's text: words, quoted strings, braces and commas, with blanks and
// comments between them. The scanner and the readers of sections all walk over the text with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "model/model_text.h"

namespace corvane {

/// One of these things.
struct Token {
    enum class Kind : std::uint8_t { Word, String, Open, Close, Comma, End };

    Kind kind = Kind::End;
    std::string_view text;   ///< a string's with its quotes; empty at the end
    std::size_t offset = 0;  ///< of its first byte; at the end, the end of the stretch

    std::size_t end() const { return offset + text.size(); }
    /// Whether it may be a name or a value.
    bool isWord() const { return kind == Kind::Word || kind == Kind::String; }
};

/// Walks over a stretch of a text, token by token, or by blanks and bytes where a reader knows what
/// must follow. Comments ("//" to the end of the line) and a byte order mark at
/// the beginning of the text count as blanks.
class Lexer {
public:
    /// Walks from offset `from` up to offset `to` of `text`.
    Lexer(std::string_view text, std::size_t from, std::size_t to)
        : begin_(text.data()), at_(text.data() + from), end_(text.data() + to) {}

    /// Skips blanks and the token after them, and returns it. A string ends with its line at the
    /// latest.
    Token next();

    bool atEnd() const { return at_ == end_; }
    /// The byte here; 0 at the end.
    char peek() const { return at_ != end_ ? *at_ : '\0'; }
    std::size_t offset() const { return static_cast<std::size_t>(at_ - begin_); }
    const char* at() const { return at_; }
    const char* end() const { return end_; }
    /// Goes on from a place in this stretch.
    void moveTo(const char* place) { at_ = place; }

    /// Skips blanks, line breaks and comments; false at the end.
    bool skipBlanks() {
        while (at_ != end_ && isBlank(*at_)) ++at_;
        return at_ == end_ || isRare(*at_) ? skipRareBlanks() : true;
    }

    /// Skips one byte if it is `ch`.
    bool skip(char ch) {
        if (at_ == end_ || *at_ != ch) return false;
        ++at_;
        return true;
    }

    /// Skips blanks, and then one byte if it is `ch`.
    bool skipPast(char ch) { return skipBlanks() && skip(ch); }

    static constexpr bool isBlank(char ch) {
        return ch == ' ' || ch == '\t' || ch == '\n' || ch == '\r' || ch == '\v' || ch == '\f';
    }

private:
    // What may begin a comment or a byte order mark.
    static constexpr bool isRare(char ch) { return ch == '/' || ch == kByteOrderMark[0]; }
    bool skipRareBlanks();
    const char* wordEnd() const;

    const char* begin_;
    const char* at_;
    const char* end_;
};

/// The offset of the brace that closes the block whose content begins at `from`; nothing where none
/// does before `to`. Braces in strings and comments do not count.
std::optional<std::size_t> findBlockEnd(std::string_view text, std::size_t from, std::size_t to);

/// The same for a block at the top of a model, which also ends, unclosed, where a line begins
/// another such block (see opensTopLevelBlock) and is not indented, or, with `ownLevel`, stands at
/// the block's own level. Then `unclosedAt` is the beginning of that line, or `to` where the text
/// ends, and nothing is returned.
std::optional<std::size_t> findTopLevelBlockEnd(std::string_view text, std::size_t from,
                                                std::size_t to, bool ownLevel,
                                                std::size_t& unclosedAt);

/// Whether blocks with this keyword stand at the top of a model, and only there.
bool isTopLevelKeyword(std::string_view keyword);

/// Whether the first word of a line, which begins at `wordBegin`, begins a block that models have
/// at the top only, such as "Geoset {" or "Bone \"Head\" {". Its brace may be on the next line.
bool opensTopLevelBlock(std::string_view text, std::size_t wordBegin);

}  // namespace corvane
