#include "texture_files.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
//
#include <jpeglib.h>

namespace corvane {

std::string le16(std::uint32_t number) {
    return {static_cast<char>(number & 0xFFU), static_cast<char>(number >> 8U & 0xFFU)};
}

std::string le32(std::uint32_t number) { return le16(number & 0xFFFFU) + le16(number >> 16U); }

std::string bytes(const std::vector<int>& numbers) {
    std::string text;
    for (const int number : numbers) text += static_cast<char>(number);
    return text;
}

std::string jpegData(const JpegPicture& picture) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);  // ends the program, and with it the test
    jpeg_create_compress(&info);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &memory, &size);
    info.image_width = static_cast<JDIMENSION>(picture.width);
    info.image_height = static_cast<JDIMENSION>(picture.height);
    info.input_components = picture.components;
    info.in_color_space = picture.components == 1   ? JCS_GRAYSCALE
                          : picture.components == 3 ? JCS_RGB
                                                    : JCS_CMYK;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 100, TRUE);
    info.write_Adobe_marker = FALSE;  // the game's own have none
    for (int i = 0; i < info.num_components; ++i) {
        info.comp_info[i].h_samp_factor = info.comp_info[i].v_samp_factor = 1;
    }
    if (picture.inPasses) jpeg_simple_progression(&info);
    jpeg_start_compress(&info, TRUE);
    std::vector<std::uint8_t> samples = picture.samples;
    const std::size_t bytesOfRow = samples.size() / static_cast<std::size_t>(picture.height);
    for (int y = 0; y < picture.height; ++y) {
        JSAMPROW row = &samples[static_cast<std::size_t>(y) * bytesOfRow];
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string data(reinterpret_cast<const char*>(memory), size);
    std::free(memory);
    return data;
}

JpegPicture jpegSquares(const std::vector<std::vector<std::uint8_t>>& squares) {
    JpegPicture picture;
    picture.width = 8 * static_cast<int>(squares.size());
    picture.components = static_cast<int>(squares.front().size());
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            for (const std::uint8_t part : squares[static_cast<std::size_t>(x / 8)]) {
                picture.samples.push_back(part);
            }
        }
    }
    return picture;
}

namespace {

// The offsets and the lengths of 16 mipmaps, of which there is one.
std::string mipmaps(std::uint32_t offset, std::uint32_t length) {
    return le32(offset) + std::string(60, '\0') + le32(length) + std::string(60, '\0');
}

}  // namespace

std::string blp1(const Blp1& file) {
    constexpr std::uint32_t kHeader = 156;
    return "BLP1" + le32(file.compression) + le32(file.alphaBits) + le32(file.width) +
           le32(file.height) + le32(4) + le32(1) + mipmaps(kHeader + file.offset, file.length) +
           file.content;
}

std::string blp1Jpeg(const JpegPicture& picture, std::uint32_t alphaBits, std::size_t headerSize) {
    const std::string data = jpegData(picture);
    const std::string gap(5, '\x55');  // some tools leave one
    const auto size = static_cast<std::uint32_t>(headerSize);
    return blp1({.compression = 0,
                 .alphaBits = alphaBits,
                 .width = static_cast<std::uint32_t>(picture.width),
                 .height = static_cast<std::uint32_t>(picture.height),
                 .content = le32(size) + data.substr(0, headerSize) + gap + data.substr(headerSize),
                 .offset = 4 + size + 5,
                 .length = static_cast<std::uint32_t>(data.size()) - size});
}

std::string blp2(const Blp2& file) {
    return "BLP2" + le32(1) + bytes({file.compression, file.alphaBits, file.blocks, 1}) +
           le32(file.width) + le32(file.height) +
           mipmaps(148 + 1024, static_cast<std::uint32_t>(file.mipmap.size())) + file.palette +
           file.mipmap;
}

std::string palette(const std::vector<std::vector<int>>& colours) {
    std::string text;
    for (const std::vector<int>& colour : colours) text += bytes(colour) + '\x77';
    text.resize(1024);
    return text;
}

std::string dds(const Dds& file) {
    std::string fourCc = file.fourCc;
    fourCc.resize(4);
    std::string masks;
    for (const std::uint32_t mask : file.masks) masks += le32(mask);
    return "DDS " + le32(124) + le32(0x1007) + le32(file.height) + le32(file.width) +
           std::string(56, '\0') + le32(32) + le32(file.flags) + fourCc + le32(file.bits) + masks +
           le32(0x1000) + std::string(16, '\0') + file.content;
}

std::string tga(const Tga& file) {
    return bytes({static_cast<int>(file.id.size()), file.paletteCount > 0 ? 1 : 0, file.kind}) +
           le16(static_cast<std::uint32_t>(file.paletteFirst)) +
           le16(static_cast<std::uint32_t>(file.paletteCount)) + bytes({file.paletteBits}) +
           le32(0) + le16(file.width) + le16(file.height) + bytes({file.bits, file.descriptor}) +
           file.id + file.palette + file.content;
}

std::string packed3(const std::vector<int>& numbers) {
    std::uint64_t all = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        all |= static_cast<std::uint64_t>(numbers[i]) << 3 * i;
    }
    std::string text;
    for (int byte = 0; byte < 6; ++byte) text += static_cast<char>(all >> 8 * byte & 0xFFU);
    return text;
}

}  // namespace corvane
