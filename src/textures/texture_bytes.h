// What the readers of textures share: numbers and pieces of a file that may end anywhere, and the
// memory for a picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "textures/texture.h"

namespace corvane {

/// Throws the TextureError of a file that is too short for its picture.
[[noreturn]] void failCutOff();

/// A file's bytes. Numbers are little-endian; reading beyond the end is failCutOff().
class TextureBytes {
public:
    explicit TextureBytes(std::string_view bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }
    std::uint8_t u8(std::size_t offset) const;
    std::uint16_t u16(std::size_t offset) const;
    std::uint32_t u32(std::size_t offset) const;
    /// So many bytes from an offset on.
    std::string_view piece(std::uint64_t offset, std::uint64_t size) const;
    /// All bytes from an offset on.
    std::string_view from(std::uint64_t offset) const;

private:
    std::string_view bytes_;
};

/// The number that one byte of a piece stands for.
inline std::uint8_t byteAt(std::string_view piece, std::size_t offset) {
    return static_cast<std::uint8_t>(piece[offset]);
}

/// A pixel; each part is 0 to 255.
constexpr std::uint32_t pixelOf(std::uint32_t red, std::uint32_t green, std::uint32_t blue,
                                std::uint32_t alpha) {
    return alpha << 24U | red << 16U | green << 8U | blue;
}
inline constexpr std::uint32_t kOpaque = 255;

/// How large a picture is said to be, pixels.
struct TextureSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    std::uint64_t pixels() const { return std::uint64_t{width} * height; }
};

/// Throws TextureError for a picture without a pixel, or with too many.
void checkSize(const TextureSize& size, std::size_t mostPixels);

/// Memory for a picture of a size that was checked; what is in it is undefined.
Texture textureOfSize(const TextureSize& size);

}  // namespace corvane
