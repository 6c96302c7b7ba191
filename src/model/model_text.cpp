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

bool LineCursor::next(Line& line) {
    if (next_ >= text_.size()) return false;
    line.begin = next_;
    const char* const from = text_.data() + next_;
    const void* const found = std::memchr(from, '\n', text_.size() - next_);
    std::size_t textEnd = text_.size();
    line.end = text_.size();
    if (found != nullptr) {
        textEnd = static_cast<std::size_t>(static_cast<const char*>(found) - text_.data());
        line.end = textEnd + 1;
        if (textEnd > next_ && text_[textEnd - 1] == '\r') --textEnd;
    }
    std::size_t textBegin = next_;
    if (next_ == 0 && text_.starts_with(kByteOrderMark)) textBegin = kByteOrderMark.size();
    line.text = text_.substr(textBegin, textEnd - textBegin);
    line.lineBreak = text_.substr(textEnd, line.end - textEnd);
    next_ = line.end;
    return true;
}

std::size_t lineNumberAt(std::string_view text, std::size_t offset) {
    return 1 + countChar(text.substr(0, offset), '\n');
}

std::string_view lineBreakOf(std::string_view text) {
    Line line;
    if (LineCursor(text).next(line) && !line.lineBreak.empty()) return line.lineBreak;
    return "\n";
}

std::size_t countChar(std::string_view text, char ch) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), ch));
}

}  // namespace corvane
