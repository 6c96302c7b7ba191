#include "textures/texture_bytes.h"

namespace corvane {

namespace {

// Of either side, pixels. Painting counts in 16 bits.
constexpr std::uint32_t kLongestSide = 32767;

}  // namespace

void failCutOff() { throw TextureError("ends before its picture does"); }

std::uint8_t TextureBytes::u8(std::size_t offset) const { return byteAt(piece(offset, 1), 0); }

std::uint16_t TextureBytes::u16(std::size_t offset) const {
    const std::string_view bytes = piece(offset, 2);
    return static_cast<std::uint16_t>(byteAt(bytes, 0) | byteAt(bytes, 1) << 8U);
}

std::uint32_t TextureBytes::u32(std::size_t offset) const {
    return u16(offset) | std::uint32_t{u16(offset + 2)} << 16U;
}

std::string_view TextureBytes::piece(std::uint64_t offset, std::uint64_t size) const {
    if (offset > bytes_.size() || size > bytes_.size() - offset) failCutOff();
    return bytes_.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(size));
}

std::string_view TextureBytes::from(std::uint64_t offset) const {
    if (offset > bytes_.size()) failCutOff();
    return bytes_.substr(static_cast<std::size_t>(offset));
}

void checkSize(const TextureSize& size, std::size_t mostPixels) {
    if (size.width == 0 || size.height == 0) throw TextureError("has a picture without a pixel");
    if (size.width > kLongestSide || size.height > kLongestSide || size.pixels() > mostPixels) {
        throw TextureError("has " + std::to_string(size.width) + " by " +
                           std::to_string(size.height) + " pixels, too many");
    }
}

Texture textureOfSize(const TextureSize& size) {
    const auto count = static_cast<std::size_t>(size.pixels());
    return {.width = size.width,
            .height = size.height,
            .pixels = std::make_unique_for_overwrite<std::uint32_t[]>(count)};
}

}  // namespace corvane
