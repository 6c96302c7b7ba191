#include "textures/dds.h"

#include <array>
#include <bit>
#include <optional>
#include <string>

#include "textures/s3tc.h"
#include "textures/texture_bytes.h"

namespace corvane {

namespace {

constexpr std::string_view kMagic = "DDS ";

// Places in the header, and its size.
constexpr std::size_t kHeaderSizeAt = 4;
constexpr std::size_t kHeightAt = 12;
constexpr std::size_t kWidthAt = 16;
constexpr std::size_t kFlagsAt = 80;  // of the pixels
constexpr std::size_t kFourCcAt = 84;
constexpr std::size_t kBitsAt = 88;
constexpr std::size_t kMasksAt = 92;  // red, green, blue, alpha
constexpr std::size_t kHeaderSize = 124;
constexpr std::size_t kPixelsAt = 128;
// A further header, which names the format.
constexpr std::size_t kFormatAt = 128;
constexpr std::size_t kPixelsAfterFormatAt = 148;

constexpr std::uint32_t kHasAlpha = 0x1;
constexpr std::uint32_t kIsUncompressed = 0x40;

// Pixels without compression: which bits of their little-endian number mean what.
struct PixelLayout {
    std::uint32_t bits = 0;
    std::array<std::uint32_t, 4> masks{};  // red, green, blue, alpha; 0 where there is none
};

// What a format's name says.
struct NamedBlocks {
    std::string_view fourCc;
    BlockKind kind;
};
constexpr std::array kNamedBlocks = {
    NamedBlocks{"DXT1", BlockKind::Dxt1}, NamedBlocks{"DXT3", BlockKind::Dxt3},
    NamedBlocks{"DXT5", BlockKind::Dxt5}, NamedBlocks{"ATI1", BlockKind::Bc4},
    NamedBlocks{"BC4U", BlockKind::Bc4},  NamedBlocks{"ATI2", BlockKind::Bc5},
    NamedBlocks{"BC5U", BlockKind::Bc5},
};

// What a format's number in the further header says: three in a row that differ in what the
// colours are for.
struct NumberedBlocks {
    std::uint32_t first;
    std::uint32_t last;
    BlockKind kind;
};
constexpr std::array kNumberedBlocks = {
    NumberedBlocks{70, 72, BlockKind::Dxt1}, NumberedBlocks{73, 75, BlockKind::Dxt3},
    NumberedBlocks{76, 78, BlockKind::Dxt5}, NumberedBlocks{79, 80, BlockKind::Bc4},
    NumberedBlocks{82, 83, BlockKind::Bc5},
};

struct NumberedLayout {
    std::array<std::uint32_t, 3> formats;
    PixelLayout layout;
};
constexpr std::array kNumberedLayouts = {
    NumberedLayout{{27, 28, 29}, {32, {0xFF, 0xFF00, 0xFF0000, 0xFF000000}}},
    NumberedLayout{{90, 87, 91}, {32, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}}},
    NumberedLayout{{92, 88, 93}, {32, {0xFF0000, 0xFF00, 0xFF, 0}}},
};

// The part of a pixel that a mask cuts out, from 0 to 255.
std::uint32_t channelOf(std::uint32_t pixel, std::uint32_t mask) {
    if (mask == 0) return 0;
    const int shift = std::countr_zero(mask);
    const std::uint64_t most = mask >> shift;
    return static_cast<std::uint32_t>(std::uint64_t{(pixel & mask) >> shift} * 255 / most);
}

Texture decodePixels(std::string_view bytes, const PixelLayout& layout, const TextureSize& size,
                     std::size_t mostPixels) {
    if (layout.bits != 24 && layout.bits != 32) {
        throw TextureError("has pixels of " + std::to_string(layout.bits) +
                           " bits, which are not read in a DDS file; those of 24 and 32 are");
    }
    checkSize(size, mostPixels);
    const std::size_t step = layout.bits / 8;
    const std::string_view pixels = TextureBytes(bytes).piece(0, size.pixels() * step);
    Texture texture = textureOfSize(size);
    const auto& [red, green, blue, alpha] = layout.masks;
    for (std::size_t i = 0; i < texture.size(); ++i) {
        std::uint32_t pixel = 0;
        for (std::size_t byte = 0; byte < step; ++byte) {
            pixel |= std::uint32_t{byteAt(pixels, i * step + byte)} << 8 * byte;
        }
        texture.pixels[i] =
            pixelOf(channelOf(pixel, red), channelOf(pixel, green), channelOf(pixel, blue),
                    alpha == 0 ? kOpaque : channelOf(pixel, alpha));
    }
    return texture;
}

Texture decodeNumbered(const TextureBytes& file, const TextureSize& size, std::size_t mostPixels) {
    const std::uint32_t format = file.u32(kFormatAt);
    const std::string_view pixels = file.from(kPixelsAfterFormatAt);
    for (const NumberedBlocks& blocks : kNumberedBlocks) {
        if (format < blocks.first || format > blocks.last) continue;
        return decodeBlocks(pixels, blocks.kind, Alpha::Own, size, mostPixels);
    }
    for (const NumberedLayout& numbered : kNumberedLayouts) {
        for (const std::uint32_t number : numbered.formats) {
            if (format == number) return decodePixels(pixels, numbered.layout, size, mostPixels);
        }
    }
    throw TextureError("is a DDS file of format " + std::to_string(format) +
                       ", which is not read; DXT1, DXT3, DXT5, BC4, BC5 and plain pixels are");
}

// A name as messages show it, whatever its bytes are.
std::string shownName(std::string_view fourCc) {
    std::string name;
    for (const char ch : fourCc) name += ch >= ' ' && ch <= '~' ? ch : '?';
    return name;
}

}  // namespace

bool isDds(std::string_view bytes) { return bytes.starts_with(kMagic); }

Texture decodeDds(std::string_view bytes, std::size_t mostPixels) {
    const TextureBytes file(bytes);
    if (file.u32(kHeaderSizeAt) != kHeaderSize) {
        throw TextureError("is no DDS file: its header is of another size");
    }
    const TextureSize size = {.width = file.u32(kWidthAt), .height = file.u32(kHeightAt)};
    const std::uint32_t flags = file.u32(kFlagsAt);
    if ((flags & kIsUncompressed) != 0) {
        PixelLayout layout = {.bits = file.u32(kBitsAt)};
        for (std::size_t i = 0; i < layout.masks.size(); ++i) {
            layout.masks[i] = file.u32(kMasksAt + 4 * i);
        }
        if ((flags & kHasAlpha) == 0) layout.masks[3] = 0;
        return decodePixels(file.from(kPixelsAt), layout, size, mostPixels);
    }
    const std::string_view fourCc = file.piece(kFourCcAt, 4);
    if (fourCc == "DX10") return decodeNumbered(file, size, mostPixels);
    for (const NamedBlocks& blocks : kNamedBlocks) {
        if (fourCc != blocks.fourCc) continue;
        return decodeBlocks(file.from(kPixelsAt), blocks.kind, Alpha::Own, size, mostPixels);
    }
    throw TextureError("is a DDS file of the kind \"" + shownName(fourCc) +
                       "\", which is not read; DXT1, DXT3, DXT5, BC4, BC5 and plain pixels are");
}

}  // namespace corvane
