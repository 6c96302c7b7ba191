// Background pictures of the texture editor: their formats, and what cannot be read.
#include <sys/stat.h>

#include <QImageReader>

#include "test_pictures.h"
#include "uv_window_fixture.h"

namespace corvane {
namespace {

class UVPictureTest : public UVWindowTest {
protected:
    void SetUp() override {
        UVWindowTest::SetUp();
        openTextureEditor();
    }

    void load(const std::string& path) {
        dialogs.files.emplace_back(path);
        press("cmdLoadImg");
    }

    QImage shown() const { return view().grab().toImage(); }

    /// A point of the view that no line crosses.
    QColor shownColour() const { return shown().pixelColor(view().width() / 4, 20); }

    /// That a picture was refused with its path and a reason, and the one from before is shown.
    void expectRefused(const std::string& path, const QColor& before) {
        EXPECT_EQ(dialogs.last().kind, "message") << path;
        EXPECT_EQ(dialogs.last().title, "Error");
        const std::string start = "The picture cannot be read.\n" + path + ": ";
        const std::string end = "\n\nChoose a JPEG, GIF, BMP, PNG, TGA, BLP or DDS file.";
        const std::string& text = dialogs.last().text;
        ASSERT_TRUE(text.starts_with(start)) << text;
        ASSERT_TRUE(text.ends_with(end)) << text;
        EXPECT_GT(text.size(), start.size() + end.size()) << "no reason: " << text;
        EXPECT_EQ(shownColour(), before) << path;
        dialogs.asked.clear();
    }
};

TEST_F(UVPictureTest, ABmpIsShown) {
    load(folder.write("a.bmp", bytesOf(plain(Qt::red), "BMP")));
    EXPECT_TRUE(uv().imageLoaded);
    EXPECT_EQ(shownColour(), QColor(Qt::red));
}

TEST_F(UVPictureTest, AJpegIsShown) {
    load(folder.write("a.jpg", bytesOf(plain(QColor(0, 200, 0)), "JPG")));
    EXPECT_TRUE(uv().imageLoaded);
    EXPECT_NEAR(shownColour().green(), 200, 2);
    EXPECT_NEAR(shownColour().red(), 0, 2);
}

TEST_F(UVPictureTest, AJpegOfManyKilobytesIsShownFromItsStartToItsEnd) {
    QImage image(600, 600, QImage::Format_RGB32);
    for (int y = 0; y < 600; ++y) {
        for (int x = 0; x < 600; ++x) {
            // Blue at the bottom, noise above.
            const int noise = x * x * 7 + y * y * 13 + x * y;
            image.setPixel(x, y,
                           y < 500 ? qRgb(noise & 255, noise >> 3 & 255, 200) : qRgb(0, 0, 200));
        }
    }
    const std::string bytes = bytesOf(image, "JPG");
    ASSERT_GT(bytes.size(), 100'000U);
    load(folder.write("a.jpg", bytes));
    const QColor bottom = shown().pixelColor(view().width() - 20, view().height() - 20);
    EXPECT_NEAR(bottom.blue(), 200, 2);
    EXPECT_NEAR(bottom.red(), 0, 2);
    EXPECT_EQ(dialogs.last().kind, "open") << dialogs.last().text;
}

TEST_F(UVPictureTest, OfAGifTheFirstFrameIsShown) {
    load(folder.write("a.gif", animation()));
    EXPECT_TRUE(uv().imageLoaded);
    EXPECT_EQ(shownColour(), QColor(Qt::red));
}

TEST_F(UVPictureTest, WhatAFileHoldsCountsAndNotItsName) {
    load(folder.write("a.jpg", bytesOf(plain(Qt::red), "BMP")));
    EXPECT_EQ(shownColour(), QColor(Qt::red));
}

TEST_F(UVPictureTest, ThePictureFillsTheUnitSquareWhateverItsShape) {
    load(folder.write("a.bmp", bytesOf(quarters(), "BMP")));
    const QImage image = shown();
    const int side = view().width();
    // Off the triangle's edges, which run along the top, the left and the falling diagonal.
    EXPECT_EQ(image.pixelColor(side / 2 - 3, 10), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(side / 2 + 3, 10), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(10, side / 2 + 3), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(side - 8, side - 8), QColor(Qt::yellow));
}

TEST_F(UVPictureTest, ItsCornersLieOnTheUnitSquaresCornersWhenZoomedAndPanned) {
    load(folder.write("a.bmp", bytesOf(quarters(), "BMP")));
    press("cmdUVZoomOut");
    press("cmdUVLeft");
    press("cmdUVUp");
    const QImage image = shown();
    const QColor base = view().palette().color(QPalette::Active, QPalette::Base);
    const int left = static_cast<int>(std::round(viewX(uv(), 0)));
    const int right = static_cast<int>(std::round(viewX(uv(), 1)));
    const int top = static_cast<int>(std::round(viewY(uv(), 0)));
    const int bottom = static_cast<int>(std::round(viewY(uv(), 1)));
    ASSERT_GT(left, 50);
    ASSERT_GT(top, 50);
    EXPECT_EQ(image.pixelColor(right - 2, bottom - 2), QColor(Qt::yellow));
    EXPECT_EQ(image.pixelColor(right + 2, bottom - 2), base);
    EXPECT_EQ(image.pixelColor(right - 2, bottom + 2), base);
    // Beside the vertices' boxes, which are 4 pixels wide.
    EXPECT_EQ(image.pixelColor(left + 6, top + 2), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(left - 2, top + 6), base);
    EXPECT_EQ(image.pixelColor(left + 6, top - 2), base);
    EXPECT_EQ(image.pixelColor(right - 2, top + 6), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(right + 2, top + 6), base);
    EXPECT_EQ(image.pixelColor(left + 2, bottom - 8), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(left + 6, bottom + 2), base);
}

TEST_F(UVPictureTest, WhatIsSeenOfAMagnifiedPictureIsTheRightPartOfIt) {
    load(folder.write("a.bmp", bytesOf(quarters(), "BMP")));
    resizeUVWindow(uvWindow().size() + QSize(200, 0));
    ASSERT_GT(view().width(), view().height());
    for (int i = 0; i < 3; ++i) press("cmdUVZoomIn");
    for (int i = 0; i < 4; ++i) press("cmdUVLeft");
    press("cmdUVDown");
    // Its left and upper edges lie outside the view. The quarters meet in the texture's middle.
    ASSERT_LT(viewX(uv(), 0), 0);
    ASSERT_LT(viewY(uv(), 0), 0);
    const QImage image = shown();
    const int x = static_cast<int>(std::round(viewX(uv(), 0.5)));
    const int y = static_cast<int>(std::round(viewY(uv(), 0.5)));
    EXPECT_EQ(image.pixelColor(x - 5, y - 5), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(x + 15, y - 5), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(x - 15, y + 5), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(x + 5, y + 5), QColor(Qt::yellow));
}

TEST_F(UVPictureTest, ABrokenFileOfEachFormatIsRefusedAndTheOldPictureStays) {
    load(folder.write("good.bmp", bytesOf(plain(Qt::red), "BMP")));
    const std::string bmp = bytesOf(quarters(), "BMP");
    const std::string jpeg = bytesOf(quarters(), "JPG");
    const std::vector<std::pair<std::string, std::string>> broken = {
        {"head.bmp", bmp.substr(0, 20)},
        {"half.bmp", bmp.substr(0, bmp.size() / 2)},
        {"wild.bmp", bmp.substr(0, 18) + std::string(40, '\xFF')},
        {"least.bmp",
         bmp.substr(0, 18) + std::string("\x00\x00\x00\x80\x00\x00\x00\x80", 8) + bmp.substr(26)},
        {"head.jpg", jpeg.substr(0, 20)},
        {"half.jpg", jpeg.substr(0, jpeg.size() / 2)},
        {"almost.jpg", jpeg.substr(0, jpeg.size() - 3)},
        {"almost.bmp", bmp.substr(0, bmp.size() - 1)},
        {"head.gif", animation().substr(0, 10)},
        {"half.gif", animation().substr(0, 30)},
        {"data.gif", animation().substr(0, 40)},
        {"empty.bmp", ""},
        {"empty.jpg", ""},
        {"empty.gif", ""},
    };
    for (const auto& [name, bytes] : broken) {
        const std::string path = folder.write(name, bytes);
        load(path);
        expectRefused(path, Qt::red);
    }
    EXPECT_EQ(uv().imagePath, folder.path("good.bmp"));
}

TEST_F(UVPictureTest, AJpegMayHaveFillBytesBeforeItsMarks) {
    std::string jpeg = bytesOf(plain(Qt::red), "JPG");
    jpeg.insert(jpeg.find("\xFF\xDB"), "\xFF\xFF\xFF");
    dialogs.asked.clear();
    load(folder.write("filled.jpg", jpeg));
    EXPECT_EQ(dialogs.asked.size(), 1U) << dialogs.last().text;
    EXPECT_NEAR(shownColour().red(), 255, 2);
}

TEST_F(UVPictureTest, ColoursArePaintedWithoutTheirTransparency) {
    for (const int alpha : {0, 1, 128, 255}) {
        QImage image(8, 8, QImage::Format_ARGB32);
        image.fill(qRgba(200, 100, 50, alpha));
        load(folder.write("a.png", bytesOf(image, "PNG")));
        EXPECT_EQ(shownColour(), QColor(200, 100, 50)) << alpha;
        image = QImage(8, 8, QImage::Format_Indexed8);
        image.setColorTable({qRgba(50, 100, 200, alpha)});
        image.fill(0);
        load(folder.write("b.png", bytesOf(image, "PNG")));
        EXPECT_EQ(shownColour(), QColor(50, 100, 200)) << alpha;
    }
}

TEST_F(UVPictureTest, AHugeFileIsRefusedWithItsSizeBeforeAnythingIsRead) {
    load(folder.write("good.bmp", bytesOf(plain(Qt::red), "BMP")));
    for (const char* const name : {"huge.jpg", "huge.gif", "huge.bmp"}) {
        const std::string path = folder.write(name, bytesOf(quarters(), "JPG"));
        std::filesystem::resize_file(path, std::uintmax_t{40} << 30U);
        load(path);
        EXPECT_NE(dialogs.last().text.find("has 40.00 GiB, more than 256.00 MiB"),
                  std::string::npos)
            << dialogs.last().text;
        expectRefused(path, Qt::red);
        std::filesystem::remove(path);
    }
}

TEST_F(UVPictureTest, APictureThatIsCutOffIsRefusedWithThatReason) {
    const std::string bmp = bytesOf(quarters(), "BMP");
    load(folder.write("cut.bmp", bmp.substr(0, bmp.size() / 2)));
    EXPECT_NE(dialogs.last().text.find("cut.bmp: ends before its picture does"), std::string::npos)
        << dialogs.last().text;
}

// Telephones append films to their pictures.
TEST_F(UVPictureTest, WhatFollowsTheEndOfAJpegDoesNotMatter) {
    const std::string more("ftypmp42\xFF\xD9....\xFF\xDA\x00\x08....", 22);
    dialogs.asked.clear();
    load(folder.write("film.jpg", bytesOf(plain(Qt::red), "JPEG") + more));
    EXPECT_TRUE(uv().imageLoaded);
    EXPECT_EQ(dialogs.asked.size(), 1U);
}

// In its head there may be a small picture with an end of its own. It may lack the mark of its own
// end and nothing else.
TEST_F(UVPictureTest, OfAJpegWithASmallPictureInItItsOwnEndCounts) {
    const std::string jpeg = bytesOf(quarters(), "JPEG");
    const std::string small("\xFF\xE1\x00\x08\xFF\xD8\xFF\xDA\xFF\xD9", 10);
    const std::string whole = jpeg.substr(0, 2) + small + jpeg.substr(2);
    load(folder.write("whole.jpg", whole));
    EXPECT_TRUE(uv().imageLoaded);
    const std::string unmarked = folder.write("unmarked.jpg", whole.substr(0, whole.size() - 2));
    load(unmarked);
    EXPECT_EQ(uv().imagePath, unmarked) << dialogs.last().text;
    load(folder.write("cut.jpg", whole.substr(0, whole.size() - 3)));
    EXPECT_NE(dialogs.last().text.find("cut.jpg: ends before its picture does"), std::string::npos)
        << dialogs.last().text;
}

TEST_F(UVPictureTest, APipeIsRefusedAndNotWaitedFor) {
    const std::string path = folder.path("pipe.bmp");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    load(path);
    EXPECT_NE(dialogs.last().text.find("pipe.bmp: is not a file"), std::string::npos)
        << dialogs.last().text;
}

TEST_F(UVPictureTest, APictureThatNoMemoryHoldsIsRefusedWithItsSize) {
    std::string bmp = bytesOf(quarters(), "BMP");
    bmp.replace(18, 8, std::string("\x80\x3E\x00\x00\x80\x3E\x00\x00", 8));
    load(folder.write("huge.bmp", bmp));
    EXPECT_NE(dialogs.last().text.find("huge.bmp: has 16000 by 16000 pixels, too many"),
              std::string::npos)
        << dialogs.last().text;
}

TEST_F(UVPictureTest, BmpsOfEveryDepthAreShown) {
    for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_Indexed8,
                                        QImage::Format_RGB888, QImage::Format_RGB32}) {
        QImage image = plain(Qt::red, {33, 7}).convertToFormat(format);
        if (format == QImage::Format_Mono) image.setColorTable({qRgb(255, 0, 0), qRgb(255, 0, 0)});
        dialogs.asked.clear();
        load(folder.write("a.bmp", bytesOf(image, "BMP")));
        EXPECT_EQ(dialogs.asked.size(), 1U) << format;
        EXPECT_EQ(shownColour(), QColor(Qt::red)) << format;
    }
}

TEST_F(UVPictureTest, ARenamedTextFileIsRefused) {
    load(folder.write("good.bmp", bytesOf(plain(Qt::red), "BMP")));
    for (const char* const name : {"text.bmp", "text.jpg", "text.gif"}) {
        const std::string path = folder.write(name, "This is no picture at all.\n");
        load(path);
        expectRefused(path, Qt::red);
    }
}

TEST_F(UVPictureTest, AFileThatIsNotThereAndAFolderAreRefused) {
    load(folder.write("good.bmp", bytesOf(plain(Qt::red), "BMP")));
    load(folder.path("missing.bmp"));
    expectRefused(folder.path("missing.bmp"), Qt::red);
    load(folder.path("."));
    expectRefused(folder.path("."), Qt::red);
}

TEST_F(UVPictureTest, WithoutAPictureBeforeARefusedOneLeavesNone) {
    load(folder.write("text.gif", "This is no picture at all.\n"));
    EXPECT_FALSE(uv().imageLoaded);
    EXPECT_EQ(shownColour(), view().palette().color(QPalette::Active, QPalette::Base));
}

TEST_F(UVPictureTest, APathOutsideAsciiCanBeLoaded) {
    load(folder.write("K\xC3\xA4se \xE2\x82\xAC.bmp", bytesOf(plain(Qt::red), "BMP")));
    EXPECT_EQ(shownColour(), QColor(Qt::red));
}

TEST_F(UVPictureTest, AnotherHandOverLoadsThePictureAsItIsNow) {
    const std::string path = folder.write("a.bmp", bytesOf(plain(Qt::red), "BMP"));
    load(path);
    uvWindow().close();
    folder.write("a.bmp", bytesOf(plain(Qt::blue), "BMP"));
    choose("mnuUVMapping");
    EXPECT_EQ(shownColour(), QColor(Qt::blue));
    folder.write("a.bmp", "This is no picture any more.\n");
    choose("mnuUVMapping");
    expectRefused(path, Qt::blue);
}

TEST_F(UVPictureTest, APictureOfTheLargestSizeIsDecodedOnceAndDrawnWhereverOneLooks) {
    QImage large(8192, 8192, QImage::Format_Indexed8);
    large.setColorTable({qRgb(255, 0, 0), qRgb(0, 0, 255)});
    large.fill(0);
    // Blue below the upper eighth.
    std::fill_n(large.scanLine(1024), large.bytesPerLine() * (8192 - 1024), uchar{1});
    const std::string path = folder.path("large.bmp");
    ASSERT_TRUE(large.save(QString::fromStdString(path)));
    load(path);
    EXPECT_EQ(dialogs.last().kind, "open") << dialogs.last().text;
    ASSERT_TRUE(uv().imageLoaded);
    std::filesystem::remove(path);
    EXPECT_EQ(shownColour(), QColor(Qt::red));
    for (int i = 0; i < 5; ++i) press("cmdUVZoomIn");
    // What is 20 pixels from the upper edge is now in the middle of the texture's height.
    EXPECT_EQ(shownColour(), QColor(Qt::blue));
    const int presses = static_cast<int>((-40 - viewY(uv(), 0)) / 20);
    for (int i = 0; i < presses; ++i) press("cmdUVUp");
    EXPECT_EQ(shownColour(), QColor(Qt::red));
}

TEST_F(UVPictureTest, TheAllocationLimitLeavesRoomForTheLargestSizeInAnyDepth) {
    load(folder.write("a.bmp", bytesOf(plain(Qt::red), "BMP")));
    // MiB: 8192 by 8192 pixels of 8 bytes.
    EXPECT_GE(QImageReader::allocationLimit(), 512);
}

}  // namespace
}  // namespace corvane
