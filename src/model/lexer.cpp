#include "model/lexer.h"

// CORVANE_NO_SSE2 builds what other processors get, so that it can be tested on this one.
#if defined(__SSE2__) && !defined(CORVANE_NO_SSE2)
#define CORVANE_LOOK_AT_CHUNKS
#include <emmintrin.h>
#endif

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

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

// Where a string ends whose content begins at `from`: after its closing quote, or without one at
// the end of its line, before the line break.
const char* stringEnd(const char* from, const char* to) {
    const char* const end = std::find_if(from, to, [](char c) { return c == '"' || c == '\n'; });
    return end != to && *end == '"' ? end + 1 : end;
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

#ifdef CORVANE_LOOK_AT_CHUNKS

// How many bytes are looked at together where nothing but depths may change.
constexpr std::ptrdiff_t kChunk = 16;

// Few bits are set, if any, and std::popcount is a call where the processor is not known to have an
// instruction for it: scanning a model would take half as long again.
int countBits(unsigned bits) {
    int count = 0;
    for (; bits != 0; bits &= bits - 1) ++count;
    return count;
}

// Passes over a chunk in which the depth stays above `least` and nothing is to be looked at closer;
// false, and nothing done, for any other. One byte more than the chunk must be there.
bool skipChunk(const char*& at, int& depth, int least, bool lookAtLines) {
    const __m128i chunk = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const auto matches = [&](char ch) { return _mm_cmpeq_epi8(chunk, _mm_set1_epi8(ch)); };
    const auto placesOf = [](__m128i matched) {
        return static_cast<unsigned>(_mm_movemask_epi8(matched));
    };
    if (depth <= least) return false;
    const __m128i quotesAndSlashes = _mm_or_si128(matches('"'), matches('/'));
    const __m128i opening = matches('{');
    const __m128i closing = matches('}');
    const __m128i lineBreaks = matches('\n');
    if (placesOf(_mm_or_si128(_mm_or_si128(quotesAndSlashes, lineBreaks),
                              _mm_or_si128(opening, closing))) == 0) {
        at += kChunk;
        return true;
    }
    if (placesOf(quotesAndSlashes) != 0) return false;
    const unsigned open = placesOf(opening);
    const unsigned close = placesOf(closing);
    int change = 0;
    if ((open | close) != 0) {
        const int closed = countBits(close);
        change = countBits(open) - closed;
        // A row that opens and closes does not come down.
        const bool isRow = change == 0 && closed == 1 && open < close;
        if (!isRow && closed > 0 && depth - closed <= least) return false;
    }
    if (lookAtLines) {
        for (unsigned lines = placesOf(lineBreaks); lines != 0; lines &= lines - 1) {
            const char next = at[std::countr_zero(lines) + 1];
            if (next >= 'A' && next <= 'Z') return false;
        }
    }
    depth += change;
    at += kChunk;
    return true;
}

#else

constexpr std::ptrdiff_t kChunk = 64;

bool skipChunk(const char*&, int&, int, bool) { return false; }

#endif

// Finds the brace that closes a block, from the first byte of its content on.
class BlockEndFinder {
public:
    BlockEndFinder(std::string_view text, std::size_t from, std::size_t to, bool topLevel,
                   bool ownLevel)
        : begin_(text.data()),
          at_(text.data() + from),
          end_(text.data() + to),
          topLevel_(topLevel),
          ownLevel_(ownLevel) {}

    // The brace; nothing where there is none up to unclosedAt().
    std::optional<std::size_t> find();
    std::size_t unclosedAt() const { return unclosedAt_; }

private:
    enum class Step : std::uint8_t { GoOn, Closed, Unclosed };
    // Not put into the loop that calls it: that is faster where it holds little else.
    [[gnu::noinline]] Step step();
    bool anotherBlockBegins() const;

    const char* begin_;
    const char* at_;
    const char* end_;
    bool topLevel_;
    bool ownLevel_;
    int depth_ = 1;
    std::size_t unclosedAt_ = 0;
};

// Whether the line after the line break here begins another block at the top.
bool BlockEndFinder::anotherBlockBegins() const {
    const char* word = at_ + 1;
    if (ownLevel_ && depth_ == 1) {
        while (word != end_ && (*word == ' ' || *word == '\t')) ++word;
    }
    return opensTopLevelBlock({begin_, static_cast<std::size_t>(end_ - begin_)},
                              static_cast<std::size_t>(word - begin_));
}

// Looks at one byte, and at what begins with it, and goes past it.
BlockEndFinder::Step BlockEndFinder::step() {
    switch (kStops[static_cast<unsigned char>(*at_)]) {
        case Stop::None:
            break;
        case Stop::Open:
            ++depth_;
            break;
        case Stop::Close:
            if (--depth_ == 0) return Step::Closed;
            break;
        case Stop::Quote:
            at_ = stringEnd(at_ + 1, end_);
            return Step::GoOn;
        case Stop::Slash:
            if (at_ + 1 != end_ && at_[1] == '/') {
                at_ = std::find(at_, end_, '\n');
                return Step::GoOn;
            }
            break;
        case Stop::LineBreak:
            if (topLevel_ && anotherBlockBegins()) {
                unclosedAt_ = static_cast<std::size_t>(at_ + 1 - begin_);
                return Step::Unclosed;
            }
            break;
    }
    ++at_;
    return Step::GoOn;
}

std::optional<std::size_t> BlockEndFinder::find() {
    const int least = ownLevel_ ? 1 : 0;
    while (at_ < end_) {
        if (end_ - at_ > kChunk && skipChunk(at_, depth_, least, topLevel_)) continue;
        const char* const chunkEnd = end_ - at_ > kChunk ? at_ + kChunk : end_;
        while (at_ < chunkEnd) {
            if (kStops[static_cast<unsigned char>(*at_)] == Stop::None) {
                ++at_;
                continue;
            }
            const Step done = step();
            if (done == Step::Closed) return static_cast<std::size_t>(at_ - begin_);
            if (done == Step::Unclosed) return std::nullopt;
        }
    }
    unclosedAt_ = static_cast<std::size_t>(end_ - begin_);
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

// The end of the word that begins here.
const char* Lexer::wordEnd() const {
    const auto ends = [this](const char* at) {
        return isBlank(*at) || *at == '{' || *at == '}' || *at == ',' || *at == '"' ||
               (*at == '/' && at + 1 != end_ && at[1] == '/');
    };
    const char* at = at_;
    while (at != end_ && !ends(at)) ++at;
    return at;
}

Token Lexer::next() {
    const bool found = skipBlanks();
    Token token;
    token.offset = offset();
    if (!found) return token;
    const char* const from = at_;
    const auto mark = [&](Token::Kind kind) {
        token.kind = kind;
        at_ = from + 1;
    };
    switch (*from) {
        case '{':
            mark(Token::Kind::Open);
            break;
        case '}':
            mark(Token::Kind::Close);
            break;
        case ',':
            mark(Token::Kind::Comma);
            break;
        case '"':
            token.kind = Token::Kind::String;
            at_ = stringEnd(from + 1, end_);
            break;
        default:
            token.kind = Token::Kind::Word;
            at_ = wordEnd();
            break;
    }
    token.text = {from, static_cast<std::size_t>(at_ - from)};
    return token;
}

std::optional<std::size_t> findBlockEnd(std::string_view text, std::size_t from, std::size_t to) {
    return BlockEndFinder(text, from, to, false, false).find();
}

std::optional<std::size_t> findTopLevelBlockEnd(std::string_view text, std::size_t from,
                                                std::size_t to, bool ownLevel,
                                                std::size_t& unclosedAt) {
    BlockEndFinder finder(text, from, to, true, ownLevel);
    const std::optional<std::size_t> brace = finder.find();
    unclosedAt = finder.unclosedAt();
    return brace;
}

bool isTopLevelKeyword(std::string_view keyword) {
    return std::ranges::find(kTopLevelKeywords, keyword) != kTopLevelKeywords.end();
}

bool opensTopLevelBlock(std::string_view text, std::size_t wordBegin) {
    const std::string_view rest = text.substr(wordBegin);
    if (rest.empty() || rest.front() < 'A' || rest.front() > 'Z') return false;
    Lexer lexer(text, wordBegin, text.size());
    if (!isTopLevelKeyword(lexer.next().text)) return false;
    const std::size_t lineEnd = lineEndOf(text, wordBegin);
    Token token = lexer.next();
    while (token.isWord() && token.offset < lineEnd) token = lexer.next();
    return token.kind == Token::Kind::Open;
}

}  // namespace corvane
