#include "textures/blp.h"

#include <algorithm>
#include <array>
#include <string>

#include "textures/blp_jpeg.h"
#include "textures/s3tc.h"
#include "textures/texture_bytes.h"

namespace corvane {

namespace {

constexpr std::size_t kColours = 256;  // of a palette: blue, green, red and a byte without meaning

// What both versions of the header say of the picture.
struct Picture {
    TextureSize size;
    std::uint32_t alphaBits = 0;
    std::uint32_t offset = 0;    // of the largest mipmap
    std::uint32_t length = 0;    // bytes, as far as the header can be believed
    std::size_t headerSize = 0;  // what follows it is the palette, or the size of the JPEG header
};

constexpr std::size_t kLengthAfterOffset = 64;  // 16 offsets stand before the lengths

Alpha alphaOf(const Picture& picture) {
    return picture.alphaBits == 0 ? Alpha::Opaque : Alpha::Own;
}

[[noreturn]] void failKind(const char* what, std::uint32_t number) {
    throw TextureError("is a BLP file of a kind that is not read (" + std::string(what) + " " +
                       std::to_string(number) + ")");
}

// The transparency of a pixel in a plane of 1, 4 or 8 bits each, lowest bits first.
std::uint32_t alphaAt(std::string_view plane, std::size_t pixel, std::uint32_t bits) {
    if (bits == 8) return byteAt(plane, pixel);
    if (bits == 4) return (byteAt(plane, pixel / 2) >> pixel % 2 * 4 & 15U) * 17;
    return (byteAt(plane, pixel / 8) >> pixel % 8 & 1U) * kOpaque;
}

// One byte a pixel, then the plane of their transparency, if there is one.
Texture decodePalette(const TextureBytes& file, const Picture& picture, std::size_t mostPixels) {
    checkSize(picture.size, mostPixels);
    const std::uint32_t bits = picture.alphaBits;
    if (bits != 0 && bits != 1 && bits != 4 && bits != 8) failKind("bits of transparency", bits);
    const std::string_view palette = file.piece(picture.headerSize, 4 * kColours);
    const std::uint64_t count = picture.size.pixels();
    const std::string_view indices = file.piece(picture.offset, count);
    const std::string_view plane = file.piece(picture.offset + count, (count * bits + 7) / 8);

    std::array<std::uint32_t, kColours> colours{};
    for (std::size_t i = 0; i < kColours; ++i) {
        colours[i] = pixelOf(byteAt(palette, 4 * i + 2), byteAt(palette, 4 * i + 1),
                             byteAt(palette, 4 * i), 0);
    }
    Texture texture = textureOfSize(picture.size);
    for (std::size_t i = 0; i < texture.size(); ++i) {
        const std::uint32_t alpha = bits == 0 ? kOpaque : alphaAt(plane, i, bits);
        texture.pixels[i] = colours[byteAt(indices, i)] | alpha << 24U;
    }
    return texture;
}

Texture decodeJpeg(const TextureBytes& file, const Picture& picture, std::size_t mostPixels) {
    const std::string_view header =
        file.piece(picture.headerSize + 4, file.u32(picture.headerSize));
    const std::string_view data = file.from(picture.offset).substr(0, picture.length);
    return decodeBlpJpeg({header, data}, alphaOf(picture), mostPixels);
}

Texture decodeBlp1(const TextureBytes& file, std::size_t mostPixels) {
    const Picture picture = {.size = {.width = file.u32(12), .height = file.u32(16)},
                             .alphaBits = file.u32(8),
                             .offset = file.u32(28),
                             .length = file.u32(28 + kLengthAfterOffset),
                             .headerSize = 156};
    const std::uint32_t compression = file.u32(4);
    if (compression > 1) failKind("compression", compression);
    return compression == 0 ? decodeJpeg(file, picture, mostPixels)
                            : decodePalette(file, picture, mostPixels);
}

Texture decodeBlp2(const TextureBytes& file, std::size_t mostPixels) {
    const Picture picture = {.size = {.width = file.u32(12), .height = file.u32(16)},
                             .alphaBits = file.u8(9),
                             .offset = file.u32(20),
                             .length = file.u32(20 + kLengthAfterOffset),
                             .headerSize = 148};
    if (file.u32(4) != 1) failKind("type", file.u32(4));
    const std::uint32_t compression = file.u8(8);
    if (compression == 1) return decodePalette(file, picture, mostPixels);
    if (compression != 2) failKind("compression", compression);
    const auto blocks = [&](BlockKind kind, Alpha alpha) {
        return decodeBlocks(file.from(picture.offset), kind, alpha, picture.size, mostPixels);
    };
    const std::uint32_t blockKind = file.u8(10);
    switch (blockKind) {
        case 0:
            return blocks(BlockKind::Dxt1, alphaOf(picture));
        case 1:
            return blocks(BlockKind::Dxt3, Alpha::Own);
        case 7:
            return blocks(BlockKind::Dxt5, Alpha::Own);
        default:
            failKind("blocks", blockKind);
    }
}

}  // namespace

bool isBlp(std::string_view bytes) {
    return bytes.starts_with("BLP1") || bytes.starts_with("BLP2");
}

Texture decodeBlp(std::string_view bytes, std::size_t mostPixels) {
    const TextureBytes file(bytes);
    return bytes[3] == '1' ? decodeBlp1(file, mostPixels) : decodeBlp2(file, mostPixels);
}

}  // namespace corvane
