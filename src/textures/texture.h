// Textures as the game and its tools write them: BLP, DDS and TGA, from a file's bytes to pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace corvane {

/// A texture that cannot be read. what() is the reason, as what a file does: "ends before its
/// picture does".
class TextureError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A picture.
struct Texture {
    std::uint32_t width = 0;  ///< pixels; neither side is 0
    std::uint32_t height = 0;
    std::unique_ptr<std::uint32_t[]> pixels;  ///< 0xAARRGGBB, row by row from the top left

    std::size_t size() const { return std::size_t{width} * height; }
    std::uint32_t at(std::uint32_t x, std::uint32_t y) const {
        return pixels[std::size_t{y} * width + x];
    }
};

/// Whether a file begins as one of these formats does, whatever follows.
bool isTexture(std::string_view bytes);

/// The largest picture in a file for which isTexture() holds. Colours are as they are stored, those
/// of transparent pixels too. Takes no memory for a picture that the file is too short for, or that
/// has more than so many pixels. Throws TextureError and std::bad_alloc.
Texture decodeTexture(std::string_view bytes, std::size_t mostPixels);

}  // namespace corvane
