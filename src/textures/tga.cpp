#include "textures/tga.h"

#include <algorithm>
#include <vector>

#include "textures/texture_bytes.h"

namespace corvane {

namespace {

constexpr std::size_t kHeaderSize = 18;
constexpr std::uint64_t kLongestRun = 128;  // pixels of one packet

enum class Kind : std::uint8_t { Palette = 1, Colours = 2, Grey = 3 };
constexpr std::uint8_t kPacked = 8;  // added to the kind

// Bits of the descriptor: from which corner the pixels go, and what nobody uses.
constexpr std::uint8_t kFromRight = 0x10;
constexpr std::uint8_t kFromTop = 0x20;
constexpr std::uint8_t kReserved = 0xC0;
constexpr std::uint8_t kAlphaBits = 0x0F;

struct Header {
    std::size_t idSize = 0;  // bytes of a text between the header and what follows
    bool hasPalette = false;
    Kind kind{};
    bool packed = false;
    std::uint32_t paletteFirst = 0;  // the number of the palette's first colour
    std::uint32_t paletteCount = 0;
    std::uint32_t paletteBits = 0;
    TextureSize size;
    std::uint32_t bits = 0;  // of a pixel
    std::uint8_t descriptor = 0;

    std::size_t paletteAt() const { return kHeaderSize + idSize; }
    std::size_t paletteStep() const { return (paletteBits + 7) / 8; }
    std::size_t pixelsAt() const {
        return paletteAt() + (hasPalette ? paletteCount * paletteStep() : 0);
    }
    std::size_t step() const { return bits / 8; }
    // Colours of 16 bits hold one of transparency where the descriptor says so.
    bool hasAlphaBit() const { return (descriptor & kAlphaBits) == 1; }
};

Header headerOf(const TextureBytes& file) {
    const std::uint8_t kind = file.u8(2);
    return {.idSize = file.u8(0),
            .hasPalette = file.u8(1) == 1,
            .kind = static_cast<Kind>(kind & ~kPacked),
            .packed = (kind & kPacked) != 0,
            .paletteFirst = file.u16(3),
            .paletteCount = file.u16(5),
            .paletteBits = file.u8(7),
            .size = {.width = file.u16(12), .height = file.u16(14)},
            .bits = file.u8(16),
            .descriptor = file.u8(17)};
}

constexpr bool areColourBits(std::uint32_t bits) { return bits == 16 || bits == 24 || bits == 32; }

bool makesSense(const Header& header) {
    if (header.size.pixels() == 0 || (header.descriptor & kReserved) != 0) return false;
    switch (header.kind) {
        case Kind::Palette:
            return header.hasPalette && header.bits == 8 && header.paletteCount > 0 &&
                   (header.paletteBits == 15 || areColourBits(header.paletteBits));
        case Kind::Colours:
            return areColourBits(header.bits);
        case Kind::Grey:
            return header.bits == 8 || header.bits == 16;
    }
    return false;
}

// A colour of 15, 16, 24 or 32 bits.
std::uint32_t colourOf(std::string_view bytes, std::size_t at, std::size_t step, bool hasAlphaBit) {
    if (step == 2) {
        const std::uint32_t all = byteAt(bytes, at) | std::uint32_t{byteAt(bytes, at + 1)} << 8U;
        const auto scaled = [all](std::uint32_t shift) { return (all >> shift & 31U) * 255 / 31; };
        const std::uint32_t alpha = !hasAlphaBit || all >> 15U != 0 ? kOpaque : 0;
        return pixelOf(scaled(10), scaled(5), scaled(0), alpha);
    }
    return pixelOf(byteAt(bytes, at + 2), byteAt(bytes, at + 1), byteAt(bytes, at),
                   step == 4 ? byteAt(bytes, at + 3) : kOpaque);
}

// What turns the bytes of a pixel into its colour.
class Colours {
public:
    Colours(const TextureBytes& file, const Header& header) : header_(header) {
        if (header.kind != Kind::Palette) return;
        const std::size_t step = header.paletteStep();
        const std::string_view bytes = file.piece(header.paletteAt(), header.paletteCount * step);
        palette_.reserve(header.paletteCount);
        for (std::size_t i = 0; i < header.paletteCount; ++i) {
            palette_.push_back(colourOf(bytes, i * step, step, header.hasAlphaBit()));
        }
    }

    std::uint32_t of(std::string_view bytes, std::size_t at) const {
        const std::uint32_t first = byteAt(bytes, at);
        switch (header_.kind) {
            case Kind::Palette:
                if (first < header_.paletteFirst ||
                    first - header_.paletteFirst >= palette_.size()) {
                    throw TextureError("names a colour that its palette does not have");
                }
                return palette_[first - header_.paletteFirst];
            case Kind::Grey:
                return pixelOf(first, first, first,
                               header_.step() == 2 ? byteAt(bytes, at + 1) : kOpaque);
            case Kind::Colours:
                break;
        }
        return colourOf(bytes, at, header_.step(), header_.hasAlphaBit());
    }

private:
    const Header& header_;
    std::vector<std::uint32_t> palette_;
};

void readPlain(std::string_view bytes, const Header& header, const Colours& colours,
               Texture& texture) {
    for (std::size_t i = 0; i < texture.size(); ++i) {
        texture.pixels[i] = colours.of(bytes, i * header.step());
    }
}

// Packets: a byte that says how many pixels, and whether it is one of them so often or all.
void readPacked(const TextureBytes& bytes, const Header& header, const Colours& colours,
                Texture& texture) {
    const std::size_t step = header.step();
    std::size_t at = 0;
    std::size_t done = 0;
    while (done < texture.size()) {
        const std::uint8_t head = bytes.u8(at++);
        const std::size_t count = std::min<std::size_t>((head & 0x7FU) + 1, texture.size() - done);
        const bool isRun = (head & 0x80U) != 0;
        const std::string_view packet = bytes.piece(at, isRun ? step : count * step);
        for (std::size_t i = 0; i < count; ++i) {
            texture.pixels[done + i] = colours.of(packet, isRun ? 0 : i * step);
        }
        done += count;
        at += packet.size();
    }
}

// Brings the top left pixel to the front, whichever corner the file begins with.
void bringUpright(Texture& texture, std::uint8_t descriptor) {
    const auto rowAt = [&](std::uint32_t row) {
        return &texture.pixels[std::size_t{row} * texture.width];
    };
    if ((descriptor & kFromTop) == 0) {
        for (std::uint32_t row = 0; row < texture.height / 2; ++row) {
            std::swap_ranges(rowAt(row), rowAt(row) + texture.width,
                             rowAt(texture.height - 1 - row));
        }
    }
    if ((descriptor & kFromRight) == 0) return;
    for (std::uint32_t row = 0; row < texture.height; ++row) {
        std::reverse(rowAt(row), rowAt(row) + texture.width);
    }
}

}  // namespace

bool isTga(std::string_view bytes) {
    if (bytes.size() < kHeaderSize || byteAt(bytes, 1) > 1) return false;
    return makesSense(headerOf(TextureBytes(bytes)));
}

Texture decodeTga(std::string_view bytes, std::size_t mostPixels) {
    const TextureBytes file(bytes);
    const Header header = headerOf(file);
    checkSize(header.size, mostPixels);
    const Colours colours(file, header);
    const std::string_view pixels = file.from(header.pixelsAt());
    const std::uint64_t count = header.size.pixels();
    if (!header.packed) {
        const std::string_view exact = TextureBytes(pixels).piece(0, count * header.step());
        Texture texture = textureOfSize(header.size);
        readPlain(exact, header, colours, texture);
        bringUpright(texture, header.descriptor);
        return texture;
    }
    if (count > pixels.size() * kLongestRun) failCutOff();
    Texture texture = textureOfSize(header.size);
    readPacked(TextureBytes(pixels), header, colours, texture);
    bringUpright(texture, header.descriptor);
    return texture;
}

}  // namespace corvane
