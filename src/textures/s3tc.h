// S3TC blocks: squares of 4 by 4 pixels in 8 or 16 bytes each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "textures/texture_bytes.h"

namespace corvane {

/// Of BC4 the one channel is grey; of BC5 the two are red and green, and there is no blue.
enum class BlockKind : std::uint8_t { Dxt1, Dxt3, Dxt5, Bc4, Bc5 };

/// Whether a picture's pixels have a transparency of their own.
enum class Alpha : std::uint8_t { Own, Opaque };

/// A picture in blocks, row by row from the first byte on. Of blocks that reach beyond the picture
/// only what lies in it counts. Throws TextureError.
Texture decodeBlocks(std::string_view blocks, BlockKind kind, Alpha alpha, const TextureSize& size,
                     std::size_t mostPixels);

}  // namespace corvane
