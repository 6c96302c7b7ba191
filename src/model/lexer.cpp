#include "model/lexer.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace corvane {

namespace {

// The bytes at which the search for the end of a block has to look closer.
enum class Stop : std::uint8_t { None, Open, Close, Quote, Slash, LineBreak };

constexpr std::array<Stop, 256> makeStops() {
    std::array<Stop, 256> stops{};
    stops['{'] = Stop::Open;
    stops['}'] = Stop::Close;
    stops['"'] = Stop::Quote;
    stops['/'] = Stop::Slash;
    stops['\n'] = Stop::LineBreak;
    return stops;
}

constexpr std::array<Stop, 256> kStops = makeStops();

const char* findInLine(const char* from, const char* to, char ch) {
    const auto size = static_cast<std::size_t>(to - from);
    const void* const lineBreak = std::memchr(from, '\n', size);
    const char* const lineEnd = lineBreak != nullptr ? static_cast<const char*>(lineBreak) : to;
    return std::find(from, lineEnd, ch);
}

// The places, in the order of a file, that have blocks of their own only at the top of a model.
constexpr std::array<std::string_view, 24> kTopLevelKeywords = {"Version",
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

template <bool topLevel>
std::optional<std::size_t> findEnd(std::string_view text, std::size_t from, std::size_t to,
                                   std::size_t& unclosedAt) {
    const char* const begin = text.data();
    const char* const end = begin + to;
    int depth = 1;
    for (const char* at = begin + from; at != end; ++at) {
        switch (kStops[static_cast<unsigned char>(*at)]) {
            case Stop::None:
                break;
            case Stop::Open:
                ++depth;
                break;
            case Stop::Close:
                if (--depth == 0) return static_cast<std::size_t>(at - begin);
                break;
            case Stop::Quote: {
                const char* const close = findInLine(at + 1, end, '"');
                // Without an end the string is the rest of the line.
                at = close == end || *close == '\n' ? close - 1 : close;
                break;
            }
            case Stop::Slash:
                if (at + 1 != end && at[1] == '/') at = findInLine(at, end, '\n') - 1;
                break;
            case Stop::LineBreak:
                if constexpr (topLevel) {
                    const auto next = static_cast<std::size_t>(at + 1 - begin);
                    if (opensTopLevelBlock(text.substr(0, to), next)) {
                        unclosedAt = next;
                        return std::nullopt;
                    }
                }
                break;
        }
    }
    unclosedAt = to;
    return std::nullopt;
}

}  // namespace

bool Lexer::skipRareBlanks() {
    while (at_ != end_) {
        const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
        if (isBlank(*at_)) {
            ++at_;
        } else if (rest.starts_with("//")) {
            at_ = std::find(at_, end_, '\n');
        } else if (at_ == begin_ && rest.starts_with(kByteOrderMark)) {
            at_ += kByteOrderMark.size();
        } else {
            return true;
        }
    }
    return false;
}

std::string_view Lexer::word() {
    const char* const from = at_;
    if (*at_ == '"') {
        at_ = findInLine(at_ + 1, end_, '"');
        if (at_ != end_ && *at_ == '"') ++at_;
    } else {
        const auto ends = [&] {
            return isBlank(*at_) || *at_ == '{' || *at_ == '}' || *at_ == ',' || *at_ == '"' ||
                   (*at_ == '/' && at_ + 1 != end_ && at_[1] == '/');
        };
        while (at_ != end_ && !ends()) ++at_;
    }
    return {from, static_cast<std::size_t>(at_ - from)};
}

std::optional<std::size_t> findBlockEnd(std::string_view text, std::size_t from, std::size_t to) {
    std::size_t unclosedAt = 0;
    return findEnd<false>(text, from, to, unclosedAt);
}

std::optional<std::size_t> findTopLevelBlockEnd(std::string_view text, std::size_t from,
                                                std::size_t to, std::size_t& unclosedAt) {
    return findEnd<true>(text, from, to, unclosedAt);
}

bool opensTopLevelBlock(std::string_view text, std::size_t lineBegin) {
    if (lineBegin >= text.size() || text[lineBegin] < 'A' || text[lineBegin] > 'Z') return false;
    Lexer lexer(text, lineBegin, text.size());
    const std::string_view keyword = lexer.word();
    if (std::ranges::find(kTopLevelKeywords, keyword) == kTopLevelKeywords.end()) return false;
    const std::size_t lineEnd = lineEndOf(text, lineBegin);
    while (lexer.skipBlanks() && lexer.offset() < lineEnd) {
        if (lexer.peek() == '{') return true;
        if (lexer.peek() == '}' || lexer.peek() == ',') return false;
        lexer.word();
    }
    return false;
}

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

std::string_view lineAt(std::string_view text, std::size_t offset) {
    const std::size_t begin = lineBeginOf(text, offset);
    std::string_view line = text.substr(begin, lineEndOf(text, offset) - begin);
    if (begin == 0 && line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
    if (line.ends_with('\n')) line.remove_suffix(1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

bool isRestOfLineBlank(std::string_view text, std::size_t offset) {
    Lexer lexer(text, offset, lineEndOf(text, offset));
    return !lexer.skipBlanks();
}

}  // namespace corvane
