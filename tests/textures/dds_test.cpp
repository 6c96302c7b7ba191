// DDS files: blocks and plain pixels.
#include "texture_test_support.h"

namespace corvane {
namespace {

const std::string kColours = le16(0xF800) + le16(0x001F) + bytes({0xE4, 0, 0, 0});

// One channel: 200 and 50, and six numbers between them.
const std::string kChannel =
    bytes({200, 50}) + packed3({0, 1, 2, 3, 4, 5, 6, 7, 0, 0, 0, 0, 0, 0, 0, 1});

// The same with four numbers between them, 0 and 255.
const std::string kOtherChannel =
    bytes({50, 200}) + packed3({0, 1, 2, 3, 4, 5, 6, 7, 0, 0, 0, 0, 0, 0, 0, 1});

Texts first(const Texts& texts, std::ptrdiff_t count) {
    return {texts.begin(), texts.begin() + count};
}

TEST(DdsBlocks, Dxt1) {
    EXPECT_EQ(first(pixels(dds({.fourCc = "DXT1", .content = kColours})), 5),
              (Texts{"ffff0000", "ff0000ff", "ffaa0055", "ff5500aa", "ffff0000"}));
}

// 16 of 31 and 32 of 63.
TEST(DdsBlocks, ColoursOf5And6BitsReachFrom0To255) {
    const std::string block = le16(0x8410) + le16(0xFFFF) + bytes({4, 0, 0, 0});
    EXPECT_EQ(first(pixels(dds({.fourCc = "DXT1", .content = block})), 2),
              (Texts{"ff848284", "ffffffff"}));
}

TEST(DdsBlocks, Dxt3) {
    const std::string alpha = bytes({0x3F, 0x80, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(first(pixels(dds({.fourCc = "DXT3", .content = alpha + kColours})), 4),
              (Texts{"ffff0000", "330000ff", "00aa0055", "885500aa"}));
}

TEST(DdsBlocks, Dxt5) {
    EXPECT_EQ(first(pixels(dds({.fourCc = "DXT5", .content = kChannel + kColours})), 5),
              (Texts{"c8ff0000", "320000ff", "b2aa0055", "9d5500aa", "87ff0000"}));
}

TEST(DdsBlocks, OfBc4TheChannelIsGrey) {
    const Texts grey = {"ffc8c8c8", "ff323232", "ffb2b2b2", "ff9d9d9d",
                        "ff878787", "ff727272", "ff5c5c5c", "ff474747"};
    EXPECT_EQ(first(pixels(dds({.fourCc = "ATI1", .content = kChannel})), 8), grey);
    EXPECT_EQ(first(pixels(dds({.fourCc = "BC4U", .content = kChannel})), 8), grey);
}

TEST(DdsBlocks, OfBc5TheChannelsAreRedAndGreen) {
    const Texts colours = {"ffc83200", "ff32c800", "ffb25000", "ff9d6e00",
                           "ff878c00", "ff72aa00", "ff5c0000", "ff47ff00"};
    const std::string blocks = kChannel + kOtherChannel;
    EXPECT_EQ(first(pixels(dds({.fourCc = "ATI2", .content = blocks})), 8), colours);
    EXPECT_EQ(first(pixels(dds({.fourCc = "BC5U", .content = blocks})), 8), colours);
}

TEST(DdsBlocks, OfBlocksAtTheEdgesOnlyWhatLiesInThePictureCounts) {
    const std::string second = le16(0x07E0) + le16(0) + std::string(4, '\0');  // green
    const Texts read =
        pixels(dds({.width = 5, .height = 1, .fourCc = "DXT1", .content = kColours + second}));
    EXPECT_EQ(read, (Texts{"ffff0000", "ff0000ff", "ffaa0055", "ff5500aa", "ff00ff00"}));
    EXPECT_EQ(pixels(dds({.width = 1, .height = 5, .fourCc = "DXT1", .content = kColours + second}))
                  .back(),
              "ff00ff00");
}

TEST(DdsBlocks, TheFurtherHeaderNamesThemByNumber) {
    const auto numbered = [](std::uint32_t format, const std::string& content) {
        return pixels(
            dds({.fourCc = "DX10", .content = le32(format) + std::string(16, '\0') + content}));
    };
    EXPECT_EQ(numbered(71, kColours)[2], "ffaa0055");
    EXPECT_EQ(numbered(74, std::string(8, '\x33') + kColours)[2], "33aa0055");
    EXPECT_EQ(numbered(77, kChannel + kColours)[2], "b2aa0055");
    EXPECT_EQ(numbered(80, kChannel)[2], "ffb2b2b2");
    EXPECT_EQ(numbered(83, kChannel + kOtherChannel)[2], "ffb25000");
    const std::string plain = bytes({1, 2, 3, 4}) + std::string(60, '\0');
    EXPECT_EQ(numbered(28, plain)[0], "04010203");
    EXPECT_EQ(numbered(87, plain)[0], "04030201");
    EXPECT_EQ(numbered(88, plain)[0], "ff030201");
    EXPECT_EQ(numbered(98, plain).front(),
              "is a DDS file of format 98, which is not read; DXT1, DXT3, DXT5, BC4, BC5 and plain "
              "pixels are");
}

TEST(DdsBlocks, OtherNamesAreRefused) {
    EXPECT_EQ(refusal(dds({.fourCc = "BC5S", .content = kChannel + kChannel})),
              "is a DDS file of the kind \"BC5S\", which is not read; DXT1, DXT3, DXT5, BC4, BC5 "
              "and plain pixels are");
    EXPECT_EQ(refusal(dds({.fourCc = std::string("\x71\0\xC3\x0A", 4), .content = kChannel})),
              "is a DDS file of the kind \"q???\", which is not read; DXT1, DXT3, DXT5, BC4, BC5 "
              "and plain pixels are");
}

TEST(DdsPixels, Of32BitsWithAndWithoutTransparency) {
    Dds file = {.width = 2,
                .height = 1,
                .flags = 0x41,
                .bits = 32,
                .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000},
                .content = bytes({1, 2, 3, 4, 5, 6, 7, 8})};
    EXPECT_EQ(pixels(dds(file)), (Texts{"04030201", "08070605"}));
    file.flags = 0x40;
    EXPECT_EQ(pixels(dds(file)), (Texts{"ff030201", "ff070605"}));
    file.masks = {0xFF, 0xFF00, 0xFF0000, 0};
    EXPECT_EQ(pixels(dds(file)), (Texts{"ff010203", "ff050607"}));
}

TEST(DdsPixels, Of24Bits) {
    const Dds file = {.width = 1,
                      .height = 2,
                      .flags = 0x40,
                      .bits = 24,
                      .masks = {0xFF0000, 0xFF00, 0xFF, 0},
                      .content = bytes({1, 2, 3, 4, 5, 6})};
    EXPECT_EQ(pixels(dds(file)), (Texts{"ff030201", "ff060504"}));
}

// 10 bits each, and 2 of transparency.
TEST(DdsPixels, PartsOfOtherWidthsReachFrom0To255) {
    const Dds file = {.width = 2,
                      .height = 1,
                      .flags = 0x41,
                      .bits = 32,
                      .masks = {0x3FF00000, 0xFFC00, 0x3FF, 0xC0000000},
                      .content = le32(0xBFF00200) + le32(0x400FFC00)};
    EXPECT_EQ(pixels(dds(file)), (Texts{"aaff007f", "5500ff00"}));
}

TEST(DdsPixels, OfOtherBitsAreRefused) {
    EXPECT_EQ(refusal(dds({.flags = 0x40, .bits = 16, .content = std::string(64, '\0')})),
              "has pixels of 16 bits, which are not read in a DDS file; those of 24 and 32 are");
}

TEST(DdsHeader, CutOffAnywhereItIsRefused) {
    expectCutsAreSeen(dds({.fourCc = "DXT1", .content = kColours}), 4);
    expectCutsAreSeen(dds({.width = 5, .fourCc = "ATI2", .content = std::string(32, '\1')}), 4);
    expectCutsAreSeen(
        dds({.fourCc = "DX10", .content = le32(71) + std::string(16, '\0') + kColours}), 4);
    expectCutsAreSeen(dds({.width = 1,
                           .height = 2,
                           .flags = 0x40,
                           .bits = 24,
                           .masks = {0xFF0000, 0xFF00, 0xFF, 0},
                           .content = std::string(6, '\1')}),
                      4);
}

TEST(DdsHeader, WhatCannotBeIsRefused) {
    EXPECT_EQ(refusal(dds({.height = 0, .fourCc = "DXT1", .content = kColours})),
              "has a picture without a pixel");
    EXPECT_EQ(refusal(dds({.height = 40000, .fourCc = "DXT1", .content = kColours})),
              "has 4 by 40000 pixels, too many");
    EXPECT_EQ(refusal(dds({.width = 8192, .height = 8192, .fourCc = "DXT1", .content = kColours})),
              kCutOff);
    std::string other = dds({.fourCc = "DXT1", .content = kColours});
    other[4] = 100;
    EXPECT_EQ(refusal(other), "is no DDS file: its header is of another size");
}

}  // namespace
}  // namespace corvane
