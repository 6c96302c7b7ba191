#include "textures/jpeg_marks.h"

#include <cstddef>
#include <cstdint>

#include "textures/texture_bytes.h"

namespace corvane {

namespace {

constexpr std::uint8_t kMark = 0xFF;
// Frames whose picture comes in passes, with either kind of coding.
constexpr std::uint8_t kPasses = 0xC2;
constexpr std::uint8_t kPassesArithmetic = 0xCA;
constexpr std::uint8_t kScan = 0xDA;
constexpr std::uint8_t kFirstBare = 0xD0;  // marks without a length: restarts, start and end
constexpr std::uint8_t kLastBare = 0xD9;

// The offset of the mark at or after an offset, its last byte; the text's end where there is none.
std::size_t markAt(std::string_view bytes, std::size_t offset) {
    while (offset < bytes.size() && byteAt(bytes, offset) != kMark) ++offset;
    while (offset < bytes.size() && byteAt(bytes, offset) == kMark) ++offset;
    return offset;
}

}  // namespace

bool comesInPasses(std::string_view bytes) {
    std::size_t at = markAt(bytes, 0);
    while (at + 2 < bytes.size()) {
        const std::uint8_t mark = byteAt(bytes, at);
        if (mark == kPasses || mark == kPassesArithmetic) return true;
        // The colours themselves hold no mark, so that any other of these begins a further pass.
        if (mark == kScan) return bytes.find("\xFF\xDA", at) != std::string_view::npos;
        const bool isBare = mark <= 1 || (mark >= kFirstBare && mark <= kLastBare);
        const std::size_t length =
            isBare ? 0 : std::size_t{byteAt(bytes, at + 1)} << 8U | byteAt(bytes, at + 2);
        at = markAt(bytes, at + 1 + length);
    }
    return false;
}

}  // namespace corvane
