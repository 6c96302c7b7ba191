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

/// A geoset with more vertices or faces than can be edited: nothing in its text is wrong.
class GeosetTooLarge : public ModelTextError {
public:
    using ModelTextError::ModelTextError;
};

// Lines of a text. A line is named by the offset of any byte in it, its line break included; the
// offset of the text's end stands for its last line. LF and CR LF end a line.

/// The offset at which the line begins; 0 for the first line, whatever it begins with.
std::size_t lineBeginOf(std::string_view text, std::size_t offset);

/// The offset after the line's break, or the end of the text.
std::size_t lineEndOf(std::string_view text, std::size_t offset);

/// Whether a line begins here, or would but for a byte order mark before it.
bool isLineBegin(std::string_view text, std::size_t offset);

/// The line without its break and byte order mark.
std::string_view lineAt(std::string_view text, std::size_t offset);

/// The 1-based number of the line.
std::size_t lineNumberAt(std::string_view text, std::size_t offset);

/// The line's break. A last line that has none gets the text's first; "\n" where that has none.
std::string_view lineBreakAt(std::string_view text, std::size_t offset);

/// The line break that the text uses first; "\n" where it has none.
std::string_view lineBreakOf(std::string_view text);

/// Whether nothing but blanks and a comment is left of the line from `offset` on.
bool isRestOfLineBlank(std::string_view text, std::size_t offset);

/// True when `checkIn` begins with `checkFor`.
constexpr bool startsWith(std::string_view checkIn, std::string_view checkFor) {
    return checkIn.starts_with(checkFor);
}

/// The number of times that `ch` occurs in `text`.
std::size_t countChar(std::string_view text, char ch);

}  // namespace corvane
