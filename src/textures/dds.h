// DDS files: S3TC blocks, and pixels of 24 or 32 bits.
#pragma once

#include <cstddef>
#include <string_view>

#include "textures/texture.h"

namespace corvane {

/// Whether a file begins as one of these does.
bool isDds(std::string_view bytes);

/// Reads one of these, as decodeTexture() does.
Texture decodeDds(std::string_view bytes, std::size_t mostPixels);

}  // namespace corvane
