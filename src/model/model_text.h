// The text of a model file as bytes, and the lines in it. Names in old code pages, byte order
// marks and either kind of line break pass through untouched.
#pragma once

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace corvane {

/// The byte order mark with which some editors begin a file.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// A model file's bytes in memory, and the path (UTF-8) that messages name.
class ModelText {
public:
    ModelText() = default;
    ModelText(std::string path, std::unique_ptr<char[]> bytes, std::size_t size)
        : path_(std::move(path)), bytes_(std::move(bytes)), size_(size) {}
    /// Copies `text`.
    ModelText(std::string path, std::string_view text);

    const std::string& path() const { return path_; }
    std::string_view view() const { return {bytes_.get(), size_}; }

private:
    std::string path_;
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

/// A place in a model file that cannot be read. what() is "PATH, line N: REASON".
class ModelTextError : public std::runtime_error {
public:
    /// `offset` is any byte of the line that is wrong, counted from 0.
    ModelTextError(const ModelText& text, std::size_t offset, const std::string& reason);
};

/// One line of a text.
struct Line {
    std::size_t begin = 0;       ///< offset of its first byte
    std::size_t end = 0;         ///< offset of the first byte after its line break
    std::string_view text;       ///< without its line break; CR LF is one break
    std::string_view lineBreak;  ///< "\n", "\r\n", or empty at the end of the file
};

/// Walks over the lines of a text from an offset on. A byte order mark at the very start of the
/// text belongs to the file but to no line's text.
class LineCursor {
public:
    explicit LineCursor(std::string_view text, std::size_t from = 0) : text_(text), next_(from) {}

    /// Reads the next line; false at the end of the text.
    bool next(Line& line);

private:
    std::string_view text_;
    std::size_t next_;
};

/// The 1-based number of the line that holds the byte at `offset`.
std::size_t lineNumberAt(std::string_view text, std::size_t offset);

/// The line break that the text uses first; "\n" where it has none.
std::string_view lineBreakOf(std::string_view text);

/// `text` without the characters at both its ends that `isBlank` is true for.
template <typename IsBlank>
constexpr std::string_view trimmed(std::string_view text, IsBlank isBlank) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// True when `checkIn` begins with `checkFor`.
constexpr bool startsWith(std::string_view checkIn, std::string_view checkFor) {
    return checkIn.starts_with(checkFor);
}

/// The number of times that `ch` occurs in `text`.
std::size_t countChar(std::string_view text, char ch);

}  // namespace corvane
