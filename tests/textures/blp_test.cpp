// BLP files: the game's own textures.
#include "texture_test_support.h"

namespace corvane {
namespace {

const std::string kColours = palette({{1, 2, 3}, {0x10, 0x20, 0x30}, {0xFF, 0x80, 0}});

// Four pixels of the palette, with a plane of so many bits for their transparency.
std::string indexed(std::uint32_t alphaBits, const std::string& plane) {
    return blp1({.alphaBits = alphaBits,
                 .content = kColours + bytes({2, 1, 0, 1}) + plane,
                 .offset = 1024});
}

TEST(Blp1Palette, ColoursAreBlueGreenRed) {
    EXPECT_EQ(pixels(indexed(0, "")), (Texts{"ff0080ff", "ff302010", "ff030201", "ff302010"}));
}

TEST(Blp1Palette, TransparencyHas8Or4Or1BitsFromTheLowestOn) {
    EXPECT_EQ(pixels(indexed(8, bytes({0x00, 0x7F, 0xFF, 0x12}))),
              (Texts{"000080ff", "7f302010", "ff030201", "12302010"}));
    EXPECT_EQ(pixels(indexed(4, bytes({0xF1, 0x80}))),
              (Texts{"110080ff", "ff302010", "00030201", "88302010"}));
    EXPECT_EQ(pixels(indexed(1, bytes({0b1010}))),
              (Texts{"000080ff", "ff302010", "00030201", "ff302010"}));
}

TEST(Blp1Palette, APlaneOfOtherBitsIsRefused) {
    EXPECT_EQ(refusal(indexed(5, std::string(4, '\0'))),
              "is a BLP file of a kind that is not read (bits of transparency 5)");
}

TEST(Blp1Palette, CutOffAnywhereItIsRefused) {
    expectCutsAreSeen(indexed(8, std::string(4, '\1')), 4);
    expectCutsAreSeen(indexed(4, std::string(2, '\1')), 4);
    expectCutsAreSeen(indexed(1, std::string(1, '\1')), 4);
    expectCutsAreSeen(indexed(0, ""), 4);
}

const std::vector<std::vector<std::uint8_t>> kSquares = {
    {200, 100, 50, 255}, {10, 20, 30, 0}, {0, 0, 255, 128}};

TEST(Blp1Jpeg, ComponentsAreBlueGreenRedAndTransparency) {
    const Texts read = pixels(blp1Jpeg(jpegSquares(kSquares), 8, 100));
    ASSERT_EQ(read.size(), 24U * 8);
    EXPECT_EQ(read[0], "ff3264c8");
    EXPECT_EQ(read[24 * 7 + 8], "001e140a");
    EXPECT_EQ(read[24 * 7 + 23], "80ff0000");
}

TEST(Blp1Jpeg, WithoutTransparencyItIsOpaqueWhateverTheFourthComponent) {
    EXPECT_EQ(pixels(blp1Jpeg(jpegSquares(kSquares), 0, 100))[8], "ff1e140a");
    // Some tools write numbers of bits that there are not.
    EXPECT_EQ(pixels(blp1Jpeg(jpegSquares(kSquares), 9, 100))[8], "001e140a");
}

TEST(Blp1Jpeg, TheHeaderForAllMipmapsMayEndAnywhere) {
    const JpegPicture picture = jpegSquares(kSquares);
    const Texts whole = pixels(blp1Jpeg(picture, 8, 0));
    ASSERT_EQ(whole.size(), 24U * 8) << whole.front();
    for (std::size_t size = 1; size < jpegData(picture).size(); ++size) {
        EXPECT_EQ(pixels(blp1Jpeg(picture, 8, size)), whole) << size;
    }
}

TEST(Blp1Jpeg, ItMayComeInPasses) {
    JpegPicture picture = jpegSquares(kSquares);
    picture.inPasses = true;
    const Texts read = pixels(blp1Jpeg(picture, 8, 10));
    EXPECT_EQ(read[0], "ff3264c8");
    EXPECT_EQ(read[8], "001e140a");
}

TEST(Blp1Jpeg, ThreeComponentsAreBlueGreenAndRed) {
    const Texts read = pixels(blp1Jpeg(jpegSquares({{255, 0, 0}, {128, 128, 128}}), 0, 10));
    ASSERT_EQ(read.size(), 16U * 8);
    // Their colours were turned into others before they were packed, which rounds.
    EXPECT_TRUE(read[0] == "ff0000ff" || read[0] == "ff0000fe") << read[0];
    EXPECT_EQ(read[8], "ff808080");
}

TEST(Blp1Jpeg, OneComponentIsGrey) {
    EXPECT_EQ(pixels(blp1Jpeg(jpegSquares({{77}}), 8, 10))[0], "ff4d4d4d");
}

TEST(Blp1Jpeg, CutOffAnywhereBeforeItsEndMarkItIsRefused) {
    expectCutsAreSeen(blp1Jpeg(jpegSquares(kSquares), 8, 100), 4, 2);
    JpegPicture picture = jpegSquares(kSquares);
    picture.inPasses = true;
    expectCutsAreSeen(blp1Jpeg(picture, 8, 100), 4);
}

TEST(Blp1Jpeg, DataThatAreNoneAreRefusedWithWhatIsWrong) {
    std::string file = blp1Jpeg(jpegSquares(kSquares), 8, 100);
    file[160] = 'X';
    EXPECT_EQ(refusal(file),
              "has JPEG data that cannot be read (Not a JPEG file: starts with 0x58 0xd8)");
}

TEST(Blp1Jpeg, APictureOfMorePixelsThanItsDataCanHoldTakesNoMemory) {
    JpegPicture picture = jpegSquares(kSquares);
    std::string file = blp1Jpeg(picture, 8, 0);
    // The frame's height and width.
    const std::size_t frame = file.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    file.replace(frame + 5, 4, bytes({0x20, 0x00, 0x20, 0x00}));
    EXPECT_EQ(refusal(file), kCutOff);
    file.replace(frame + 5, 4, bytes({0xFF, 0x00, 0xFF, 0x00}));
    EXPECT_EQ(refusal(file), "has 65280 by 65280 pixels, too many");
}

// A block: red and blue, and two colours between them; 0 to 3 in its first row, then the first one.
const std::string kBlock = le16(0xF800) + le16(0x001F) + bytes({0xE4, 0, 0, 0});

TEST(Blp2, Dxt1) {
    const Texts read = pixels(blp2({.mipmap = kBlock}));
    ASSERT_EQ(read.size(), 16U);
    EXPECT_EQ(Texts(read.begin(), read.begin() + 5),
              (Texts{"ffff0000", "ff0000ff", "ffaa0055", "ff5500aa", "ffff0000"}));
}

TEST(Blp2, Dxt1WithTransparencyHasNothingInPlaceOfTheFourthColour) {
    const std::string block = le16(0x001F) + le16(0xF800) + bytes({0xE4, 0, 0, 0});
    const Texts read = pixels(blp2({.alphaBits = 1, .mipmap = block}));
    EXPECT_EQ(Texts(read.begin(), read.begin() + 4),
              (Texts{"ff0000ff", "ffff0000", "ff7f007f", "00000000"}));
    EXPECT_EQ(pixels(blp2({.alphaBits = 0, .mipmap = block}))[3], "ff000000");
}

TEST(Blp2, Dxt3) {
    const std::string alpha = bytes({0x3F, 0x80, 0, 0, 0, 0, 0, 0xF0});
    const Texts read = pixels(blp2({.alphaBits = 8, .blocks = 1, .mipmap = alpha + kBlock}));
    EXPECT_EQ(Texts(read.begin(), read.begin() + 4),
              (Texts{"ffff0000", "330000ff", "00aa0055", "885500aa"}));
    EXPECT_EQ(read[15], "ffff0000");
}

TEST(Blp2, Dxt5) {
    const std::string alpha =
        bytes({200, 50}) + packed3({0, 1, 2, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1});
    const Texts read = pixels(blp2({.alphaBits = 8, .blocks = 7, .mipmap = alpha + kBlock}));
    // 200, 50, (6 * 200 + 50) / 7 and (200 + 6 * 50) / 7
    EXPECT_EQ(Texts(read.begin(), read.begin() + 4),
              (Texts{"c8ff0000", "320000ff", "b2aa0055", "475500aa"}));
    EXPECT_EQ(read[15], "32ff0000");
}

TEST(Blp2, Palette) {
    const Blp2 file = {.compression = 1,
                       .alphaBits = 4,
                       .width = 2,
                       .height = 1,
                       .palette = kColours,
                       .mipmap = bytes({2, 1, 0x0F})};
    EXPECT_EQ(pixels(blp2(file)), (Texts{"ff0080ff", "00302010"}));
}

TEST(Blp2, OtherKindsAreRefused) {
    EXPECT_EQ(refusal(blp2({.compression = 3, .mipmap = kBlock})),
              "is a BLP file of a kind that is not read (compression 3)");
    EXPECT_EQ(refusal(blp2({.blocks = 8, .mipmap = kBlock})),
              "is a BLP file of a kind that is not read (blocks 8)");
    std::string jpeg = blp2({.mipmap = kBlock});
    jpeg[4] = 0;
    EXPECT_EQ(refusal(jpeg), "is a BLP file of a kind that is not read (type 0)");
}

TEST(Blp2, CutOffAnywhereItIsRefused) {
    expectCutsAreSeen(blp2({.width = 5, .mipmap = kBlock + kBlock}), 4);
    expectCutsAreSeen(blp2({.blocks = 7, .mipmap = kBlock + kBlock}), 4);
}

TEST(BlpHeader, SizesThatCannotBeAreRefused) {
    EXPECT_EQ(refusal(blp2({.width = 0, .mipmap = kBlock})), "has a picture without a pixel");
    EXPECT_EQ(refusal(blp2({.width = 0xFFFFFFFF, .height = 0xFFFFFFFF, .mipmap = kBlock})),
              "has 4294967295 by 4294967295 pixels, too many");
    EXPECT_EQ(refusal(blp1({.width = 32768, .height = 1, .content = kColours})),
              "has 32768 by 1 pixels, too many");
    EXPECT_EQ(refusal(blp1({.width = 8192, .height = 8193, .content = kColours})),
              "has 8192 by 8193 pixels, too many");
    EXPECT_EQ(refusal(blp1({.width = 8192, .height = 8192, .content = kColours})), kCutOff);
}

TEST(BlpHeader, OffsetsBeyondTheFileAreRefused) {
    Blp1 file = {.content = kColours + bytes({0, 0, 0, 0}), .offset = 0xFFFFFFFF - 156};
    EXPECT_EQ(refusal(blp1(file)), kCutOff);
    file.compression = 0;
    EXPECT_EQ(refusal(blp1(file)), kCutOff);
    file.content = le32(0xFFFFFFFF) + std::string(200, '\xFF');
    EXPECT_EQ(refusal(blp1(file)), kCutOff);
}

}  // namespace
}  // namespace corvane
