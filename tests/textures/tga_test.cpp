// TGA files.
#include "texture_test_support.h"

namespace corvane {
namespace {

const std::string kFour = bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});

TEST(TgaColours, Of24And32Bits) {
    EXPECT_EQ(pixels(tga({.content = kFour})),
              (Texts{"ff030201", "ff060504", "ff090807", "ff0c0b0a"}));
    EXPECT_EQ(pixels(tga({.width = 3, .height = 1, .bits = 32, .content = kFour})),
              (Texts{"04030201", "08070605", "0c0b0a09"}));
}

TEST(TgaColours, Of16BitsWithOneForTransparencyWhereTheHeaderSaysSo) {
    // Red, green and blue of 5 bits each: 31, 16 and 0.
    const std::string content = le16(0x7E00) + le16(0xFE00);
    Tga file = {.width = 2, .height = 1, .bits = 16, .content = content};
    EXPECT_EQ(pixels(tga(file)), (Texts{"ffff8300", "ffff8300"}));
    file.descriptor = 0x21;
    EXPECT_EQ(pixels(tga(file)), (Texts{"00ff8300", "ffff8300"}));
}

TEST(TgaColours, Grey) {
    EXPECT_EQ(
        pixels(tga({.kind = 3, .width = 2, .height = 1, .bits = 8, .content = bytes({7, 250})})),
        (Texts{"ff070707", "fffafafa"}));
    EXPECT_EQ(
        pixels(tga({.kind = 3, .width = 1, .height = 1, .bits = 16, .content = bytes({7, 9})})),
        Texts{"09070707"});
}

Tga indexed(const std::string& content) {
    return {.kind = 1,
            .palette = bytes({1, 2, 3, 4, 5, 6}),
            .paletteFirst = 10,
            .paletteCount = 2,
            .paletteBits = 24,
            .width = 2,
            .height = 1,
            .bits = 8,
            .content = content};
}

TEST(TgaColours, OfAPaletteWhoseFirstColourHasANumber) {
    EXPECT_EQ(pixels(tga(indexed(bytes({11, 10})))), (Texts{"ff060504", "ff030201"}));
    EXPECT_EQ(refusal(tga(indexed(bytes({11, 12})))),
              "names a colour that its palette does not have");
    EXPECT_EQ(refusal(tga(indexed(bytes({9, 10})))),
              "names a colour that its palette does not have");
}

TEST(TgaCorners, TheFirstPixelMayBeAnyOfThem) {
    Tga file = {.content = kFour};
    file.descriptor = 0x00;  // the bottom left
    EXPECT_EQ(pixels(tga(file)), (Texts{"ff090807", "ff0c0b0a", "ff030201", "ff060504"}));
    file.descriptor = 0x30;  // the top right
    EXPECT_EQ(pixels(tga(file)), (Texts{"ff060504", "ff030201", "ff0c0b0a", "ff090807"}));
    file.descriptor = 0x10;  // the bottom right
    EXPECT_EQ(pixels(tga(file)), (Texts{"ff0c0b0a", "ff090807", "ff060504", "ff030201"}));
}

TEST(TgaCorners, TheMiddleOfThreeRowsStays) {
    const Tga file = {.kind = 3,
                      .width = 1,
                      .height = 3,
                      .bits = 8,
                      .descriptor = 0,
                      .content = bytes({1, 2, 3})};
    EXPECT_EQ(pixels(tga(file)), (Texts{"ff030303", "ff020202", "ff010101"}));
}

// Three times one pixel, then one as it is; packets go on over the end of a row.
const Tga kPacked = {.kind = 10, .content = bytes({0x82, 1, 2, 3, 0x00, 4, 5, 6})};

TEST(TgaPackets, RepeatAPixelOrHoldSome) {
    EXPECT_EQ(pixels(tga(kPacked)), (Texts{"ff030201", "ff030201", "ff030201", "ff060504"}));
    Tga palette = indexed(bytes({0x81, 11}));
    palette.kind = 9;
    EXPECT_EQ(pixels(tga(palette)), (Texts{"ff060504", "ff060504"}));
    EXPECT_EQ(pixels(tga({.kind = 11,
                          .width = 3,
                          .height = 1,
                          .bits = 8,
                          .content = bytes({0x00, 9, 0x81, 7})})),
              (Texts{"ff090909", "ff070707", "ff070707"}));
}

TEST(TgaPackets, WhatGoesBeyondThePictureDoesNotCount) {
    EXPECT_EQ(pixels(tga({.kind = 10, .content = bytes({0xFF, 1, 2, 3})})),
              (Texts{"ff030201", "ff030201", "ff030201", "ff030201"}));
}

TEST(TgaHeader, ATextAndAPaletteThatIsNotNeededArePassedOver) {
    EXPECT_EQ(pixels(tga({.palette = std::string(4, '\x55'),
                          .paletteCount = 2,
                          .paletteBits = 16,
                          .width = 1,
                          .height = 1,
                          .id = "made by hand",
                          .content = bytes({1, 2, 3})})),
              Texts{"ff030201"});
}

TEST(TgaHeader, CutOffAnywhereItIsRefused) {
    expectCutsAreSeen(tga({.id = "made by hand", .content = kFour}), 18);
    expectCutsAreSeen(tga(indexed(bytes({11, 10}))), 18);
    expectCutsAreSeen(tga(kPacked), 18);
}

TEST(TgaHeader, APictureOfMorePixelsThanItsPacketsCanHoldTakesNoMemory) {
    Tga file = kPacked;
    file.width = file.height = 8192;
    EXPECT_EQ(refusal(tga(file)), kCutOff);
    file.width = 32768;
    EXPECT_EQ(refusal(tga(file)), "has 32768 by 8192 pixels, too many");
}

// The format has no mark of its own.
TEST(TgaHeader, WhatMakesNoSenseIsNoTga) {
    EXPECT_TRUE(isTexture(tga({.content = kFour})));
    EXPECT_FALSE(isTexture(tga({.kind = 4, .content = kFour})));
    EXPECT_FALSE(isTexture(tga({.width = 0, .content = kFour})));
    EXPECT_FALSE(isTexture(tga({.bits = 23, .content = kFour})));
    EXPECT_FALSE(isTexture(tga({.kind = 1, .bits = 8, .content = kFour})));
    EXPECT_FALSE(isTexture(tga({.descriptor = 0x80, .content = kFour})));
    EXPECT_FALSE(isTexture(tga({.content = kFour}).substr(0, 17)));
    EXPECT_FALSE(isTexture(""));
    EXPECT_FALSE(isTexture(std::string(100, '\0')));
    // The beginning of an ICO file, which may look like one.
    EXPECT_FALSE(isTexture(bytes({0, 0, 1, 0, 1, 0, 16, 16, 0, 0, 1, 0, 32, 0, 1, 0, 8, 0, 0})));
    EXPECT_THROW(static_cast<void>(decodeTexture("GIF89a", kMostTestPixels)), TextureError);
}

}  // namespace
}  // namespace corvane
