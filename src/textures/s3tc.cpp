#include "textures/s3tc.h"

#include <squish.h>

#include <algorithm>
#include <array>

namespace corvane {

namespace {

constexpr std::uint32_t kSide = 4;  // of a block, pixels
constexpr std::size_t kBlockPixels = 16;
constexpr std::size_t kHalf = 8;          // bytes: colours, or one channel of the other kinds
constexpr std::size_t kChannels = 4;      // red, green, blue, alpha
constexpr std::size_t kAlphaChannel = 3;  // in what is unpacked

using Pixels = std::array<squish::u8, kChannels * kBlockPixels>;

constexpr std::size_t bytesOf(BlockKind kind) {
    return kind == BlockKind::Dxt1 || kind == BlockKind::Bc4 ? kHalf : 2 * kHalf;
}

// One channel in 8 bytes. It is packed as the transparency of DXT5 is, and so it is unpacked.
std::array<std::uint8_t, kBlockPixels> channelOf(std::string_view half) {
    std::array<char, 2 * kHalf> block{};
    std::ranges::copy(half.substr(0, kHalf), block.begin());
    Pixels unpacked{};
    squish::Decompress(unpacked.data(), block.data(), squish::kDxt5);
    std::array<std::uint8_t, kBlockPixels> channel{};
    for (std::size_t i = 0; i < channel.size(); ++i) {
        channel[i] = unpacked[kChannels * i + kAlphaChannel];
    }
    return channel;
}

Pixels channelPixels(std::string_view block, BlockKind kind) {
    const auto first = channelOf(block);
    const auto second = kind == BlockKind::Bc5 ? channelOf(block.substr(kHalf)) : first;
    Pixels pixels{};
    for (std::size_t i = 0; i < first.size(); ++i) {
        pixels[kChannels * i] = first[i];
        pixels[kChannels * i + 1] = second[i];
        pixels[kChannels * i + 2] = kind == BlockKind::Bc5 ? std::uint8_t{0} : first[i];
        pixels[kChannels * i + kAlphaChannel] = kOpaque;
    }
    return pixels;
}

// The pixels of a block, row by row.
Pixels pixelsOf(std::string_view block, BlockKind kind) {
    if (kind == BlockKind::Bc4 || kind == BlockKind::Bc5) return channelPixels(block, kind);
    Pixels pixels{};
    const int flags = kind == BlockKind::Dxt1   ? squish::kDxt1
                      : kind == BlockKind::Dxt3 ? squish::kDxt3
                                                : squish::kDxt5;
    squish::Decompress(pixels.data(), block.data(), flags);
    return pixels;
}

// Puts the block at column x and row y into a picture, as far as it lies in it.
void place(const Pixels& block, Alpha alpha, std::uint32_t x, std::uint32_t y, Texture& texture) {
    const std::uint32_t rows = std::min(kSide, texture.height - y);
    const std::uint32_t columns = std::min(kSide, texture.width - x);
    for (std::uint32_t row = 0; row < rows; ++row) {
        std::uint32_t* const to = &texture.pixels[std::size_t{y + row} * texture.width + x];
        for (std::uint32_t column = 0; column < columns; ++column) {
            const squish::u8* const from = &block[kChannels * (std::size_t{row} * kSide + column)];
            to[column] = pixelOf(from[0], from[1], from[2],
                                 alpha == Alpha::Own ? from[kAlphaChannel] : kOpaque);
        }
    }
}

}  // namespace

Texture decodeBlocks(std::string_view blocks, BlockKind kind, Alpha alpha, const TextureSize& size,
                     std::size_t mostPixels) {
    checkSize(size, mostPixels);
    const std::size_t bytes = bytesOf(kind);
    const std::uint64_t columns = (size.width + kSide - 1) / kSide;
    const std::uint64_t rows = (size.height + kSide - 1) / kSide;
    std::string_view left = TextureBytes(blocks).piece(0, columns * rows * bytes);
    Texture texture = textureOfSize(size);
    for (std::uint32_t y = 0; y < size.height; y += kSide) {
        for (std::uint32_t x = 0; x < size.width; x += kSide) {
            place(pixelsOf(left.substr(0, bytes), kind), alpha, x, y, texture);
            left.remove_prefix(bytes);
        }
    }
    return texture;
}

}  // namespace corvane
