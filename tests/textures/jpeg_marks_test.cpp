// Whether the picture of a JPEG file comes in passes.
#include "textures/jpeg_marks.h"

#include "texture_test_support.h"

namespace corvane {
namespace {

const std::string kStart = "\xFF\xD8";
const std::string kFrame("\xFF\xC0\x00\x04\x01\x02", 6);
const std::string kPassesFrame("\xFF\xC2\x00\x04\x01\x02", 6);
const std::string kScan = std::string("\xFF\xDA\x00\x04\x01\x02", 6) + "colours";

TEST(JpegMarks, AFrameInPassesOrAFurtherScanIsOne) {
    EXPECT_FALSE(comesInPasses(kStart + kFrame + kScan));
    EXPECT_TRUE(comesInPasses(kStart + kPassesFrame + kScan));
    EXPECT_TRUE(comesInPasses(kStart + kFrame + kScan + kScan));
}

TEST(JpegMarks, WhatTheCameraSaysDoesNotCount) {
    const std::string thumbnail = kStart + kPassesFrame + kScan + kScan + "\xFF\xD9";
    const std::string said =
        "\xFF\xE1" + std::string(1, '\0') + static_cast<char>(2 + thumbnail.size()) + thumbnail;
    EXPECT_FALSE(comesInPasses(kStart + said + kFrame + kScan));
    EXPECT_FALSE(comesInPasses(kStart + said + said + kFrame + said + kScan));
    EXPECT_TRUE(comesInPasses(kStart + said + kPassesFrame + kScan));
}

TEST(JpegMarks, FillBytesAndFilesThatEndAnywhereAreTaken) {
    const std::string file = kStart + "\xFF\xFF\xFF" + kFrame.substr(1) + kScan + kScan;
    EXPECT_TRUE(comesInPasses(file));
    const std::size_t second = file.rfind("\xFF\xDA");
    for (std::size_t size = 0; size < second + 2; ++size) {
        EXPECT_FALSE(comesInPasses(file.substr(0, size))) << size;
    }
}

}  // namespace
}  // namespace corvane
