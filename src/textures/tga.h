// TGA files: pixels of 8 to 32 bits, with a palette or without, packed or not.
#pragma once

#include <cstddef>
#include <string_view>

#include "textures/texture.h"

namespace corvane {

/// Whether a file begins as one of these does. The format has no mark to know it by, so all of its
/// header has to make sense.
bool isTga(std::string_view bytes);

/// Reads one of these, as decodeTexture() does.
Texture decodeTga(std::string_view bytes, std::size_t mostPixels);

}  // namespace corvane
