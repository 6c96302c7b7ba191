#include "model/model_text.h"

#include <algorithm>
#include <cstring>

namespace corvane {

ModelText::ModelText(std::string path, std::string_view text)
    : path_(std::move(path)),
      bytes_(std::make_unique_for_overwrite<char[]>(text.size())),
      size_(text.size()) {
    std::copy(text.begin(), text.end(), bytes_.get());
}

ModelTextError::ModelTextError(const ModelText& text, std::size_t offset, const std::string& reason)
    : std::runtime_error(text.path() + ", line " +
                         std::to_string(lineNumberAt(text.view(), offset)) + ": " + reason) {}

std::size_t lineBeginOf(std::string_view text, std::size_t offset) {
    const std::size_t lineBreak = text.substr(0, offset).rfind('\n');
    return lineBreak == std::string_view::npos ? 0 : lineBreak + 1;
}

std::size_t lineEndOf(std::string_view text, std::size_t offset) {
    if (offset >= text.size()) return text.size();
    const void* const found = std::memchr(text.data() + offset, '\n', text.size() - offset);
    if (found == nullptr) return text.size();
    return static_cast<std::size_t>(static_cast<const char*>(found) - text.data()) + 1;
}

bool isLineBegin(std::string_view text, std::size_t offset) {
    return offset == 0 || text[offset - 1] == '\n' || text.substr(0, offset) == kByteOrderMark;
}

std::string_view lineAt(std::string_view text, std::size_t offset) {
    const std::size_t begin = lineBeginOf(text, offset);
    std::string_view line = text.substr(begin, lineEndOf(text, offset) - begin);
    if (begin == 0 && line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
    if (line.ends_with('\n')) line.remove_suffix(1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::size_t lineNumberAt(std::string_view text, std::size_t offset) {
    return 1 + countChar(text.substr(0, offset), '\n');
}

std::string_view lineBreakAt(std::string_view text, std::size_t offset) {
    for (const std::size_t end : {lineEndOf(text, offset), lineEndOf(text, 0)}) {
        const std::string_view upToEnd = text.substr(0, end);
        if (upToEnd.ends_with("\r\n")) return upToEnd.substr(end - 2);
        if (upToEnd.ends_with('\n')) return upToEnd.substr(end - 1);
    }
    return "\n";
}

std::string_view lineBreakOf(std::string_view text) { return lineBreakAt(text, 0); }

bool isRestOfLineBlank(std::string_view text, std::size_t offset) {
    const std::size_t at = text.find_first_not_of(" \t\r\v\f", offset);
    return at == std::string_view::npos || text[at] == '\n' || text.substr(at, 2) == "//";
}

std::size_t countChar(std::string_view text, char ch) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), ch));
}

}  // namespace corvane
