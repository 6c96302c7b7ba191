// The JPEG data of BLP files: four components, which are blue, green, red and transparency.
#pragma once

#include <cstddef>
#include <string_view>

#include "textures/s3tc.h"
#include "textures/texture.h"

namespace corvane {

/// The data in two pieces, one behind the other: what all mipmaps share, and what is one's own.
struct JpegPieces {
    std::string_view header;
    std::string_view data;
};

/// Decodes such data; three components are blue, green and red, one is grey. The picture has the
/// size that the data says. The mark of its end may be missing. Throws TextureError and
/// std::bad_alloc.
Texture decodeBlpJpeg(const JpegPieces& pieces, Alpha alpha, std::size_t mostPixels);

}  // namespace corvane
