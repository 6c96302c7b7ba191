// Texture files for tests, composed byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Numbers as these files hold them, the lowest byte first.
std::string le16(std::uint32_t number);
std::string le32(std::uint32_t number);

/// Bytes from their numbers.
std::string bytes(const std::vector<int>& numbers);

/// JPEG data: one byte a component, pixel by pixel. Each component may have one value in each
/// square of 8 by 8 pixels and still be exact.
struct JpegPicture {
    int width = 8;
    int height = 8;
    int components = 4;
    std::vector<std::uint8_t> samples{};
    bool inPasses = false;
};
std::string jpegData(const JpegPicture& picture);

/// A picture of squares of 8 by 8 pixels, each of one colour: blue, green, red and transparency.
JpegPicture jpegSquares(const std::vector<std::vector<std::uint8_t>>& squares);

/// A BLP1 file. `content` stands behind the header, the largest mipmap at its offset in that.
struct Blp1 {
    std::uint32_t compression = 1;  ///< 0 JPEG, 1 palette
    std::uint32_t alphaBits = 0;
    std::uint32_t width = 4;
    std::uint32_t height = 1;
    std::string content{};
    std::uint32_t offset = 0;  ///< in the content
    std::uint32_t length = 0;  ///< of the mipmap, bytes
};
std::string blp1(const Blp1& file);

/// A BLP1 file with JPEG data, so many bytes of which are in the header for all mipmaps.
std::string blp1Jpeg(const JpegPicture& picture, std::uint32_t alphaBits, std::size_t headerSize);

/// A BLP2 file.
struct Blp2 {
    int compression = 2;  ///< 1 palette, 2 blocks
    int alphaBits = 0;
    int blocks = 0;  ///< 0 DXT1, 1 DXT3, 7 DXT5
    std::uint32_t width = 4;
    std::uint32_t height = 4;
    std::string palette = std::string(1024, '\0');
    std::string mipmap{};
};
std::string blp2(const Blp2& file);

/// A palette of 256 colours: the first are these, as blue, green and red.
std::string palette(const std::vector<std::vector<int>>& colours);

/// A DDS file. Without a name it has pixels of so many bits.
struct Dds {
    std::uint32_t width = 4;
    std::uint32_t height = 4;
    std::string fourCc{};
    std::uint32_t flags = 4;  ///< of the pixels: 1 transparency, 4 a name, 64 plain pixels
    std::uint32_t bits = 0;
    std::vector<std::uint32_t> masks = {0, 0, 0, 0};
    std::string content{};  ///< with the further header, where there is one
};
std::string dds(const Dds& file);

/// A TGA file.
struct Tga {
    int kind = 2;
    std::string palette{};
    int paletteFirst = 0;
    int paletteCount = 0;
    int paletteBits = 0;
    std::uint32_t width = 2;
    std::uint32_t height = 2;
    int bits = 24;
    int descriptor = 0x20;  ///< from the top left
    std::string id{};
    std::string content{};
};
std::string tga(const Tga& file);

/// The 6 bytes of sixteen numbers from 0 to 7.
std::string packed3(const std::vector<int>& numbers);

}  // namespace corvane
