// BLP files, the game's own: BLP1 with JPEG data or a palette, BLP2 with a palette or S3TC blocks.
#pragma once

#include <cstddef>
#include <string_view>

#include "textures/texture.h"

namespace corvane {

/// Whether a file begins as one of these does.
bool isBlp(std::string_view bytes);

/// Reads one of these, as decodeTexture() does.
Texture decodeBlp(std::string_view bytes, std::size_t mostPixels);

}  // namespace corvane
