#include "textures/texture.h"

#include "textures/blp.h"
#include "textures/dds.h"
#include "textures/tga.h"

namespace corvane {

bool isTexture(std::string_view bytes) { return isBlp(bytes) || isDds(bytes) || isTga(bytes); }

Texture decodeTexture(std::string_view bytes, std::size_t mostPixels) {
    if (isBlp(bytes)) return decodeBlp(bytes, mostPixels);
    if (isDds(bytes)) return decodeDds(bytes, mostPixels);
    if (isTga(bytes)) return decodeTga(bytes, mostPixels);
    throw TextureError("is no BLP, DDS or TGA file");
}

}  // namespace corvane
