// What is read of pictures in files, and which are refused.
#include "app/picture_file.h"

#include <sys/resource.h>

#include <QFile>
#include <QImageReader>
#include <filesystem>
#include <fstream>

#include "editor_fixture.h"
#include "forked_child.h"
#include "qt_printers.h"
#include "test_pictures.h"
#include "texture_files.h"

namespace corvane {
namespace {

// Leaves this process no more than so many MiB on top of what it has.
void limitMemory(rlim_t room) {
    std::ifstream status("/proc/self/statm");
    rlim_t pages = 0;
    status >> pages;
    const rlim_t used = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
    rlimit limit = {};
    limit.rlim_cur = limit.rlim_max = used + (room << 20U);
    if (::setrlimit(RLIMIT_AS, &limit) != 0) throw std::runtime_error("no limit");
}

class PictureFileTest : public testing::Test {
protected:
    TempFolder folder;

    /// That a file cut off at any byte is refused, unless it lacks at most this many bytes; then
    /// it is the same picture.
    void expectCutsAreSeen(const std::string& bytes, std::size_t unneeded) {
        const std::string path = folder.write("cut", bytes);
        const PictureFile whole = readPicture(path);
        ASSERT_EQ(whole.error, "");
        for (std::size_t lacking = 1; lacking <= bytes.size(); ++lacking) {
            std::filesystem::resize_file(path, bytes.size() - lacking);
            const PictureFile cut = readPicture(path);
            if (lacking <= unneeded) {
                EXPECT_EQ(cut.error, "") << lacking << " of " << bytes.size();
                EXPECT_EQ(cut.image, whole.image) << lacking;
            } else {
                EXPECT_NE(cut.error, "") << lacking << " of " << bytes.size();
                EXPECT_TRUE(cut.image.isNull()) << lacking;
            }
        }
    }
};

TEST_F(PictureFileTest, ABmpThatIsCutOffAnywhereIsRefused) {
    expectCutsAreSeen(bytesOf(noise(), "BMP"), 0);
    expectCutsAreSeen(bytesOf(noise().convertToFormat(QImage::Format_Indexed8), "BMP"), 0);
    expectCutsAreSeen(bytesOf(noise().convertToFormat(QImage::Format_Mono), "BMP"), 0);
}

TEST_F(PictureFileTest, AJpegThatIsCutOffAnywhereBeforeItsEndMarkIsRefused) {
    expectCutsAreSeen(bytesOf(noise(), "JPG"), 2);
    expectCutsAreSeen(bytesOf(noise().convertToFormat(QImage::Format_Grayscale8), "JPG"), 2);
}

// A coarser picture than the file was made for would look like a whole one.
TEST_F(PictureFileTest, AJpegInPassesThatIsCutOffAnywhereIsRefused) {
    expectCutsAreSeen(bytesOf(noise(), "JPG", true), 0);
}

TEST_F(PictureFileTest, AGifThatIsCutOffAnywhereInItsFirstFrameIsRefused) {
    // The second frame, 23 bytes with what is said about it, and the end mark are not needed.
    expectCutsAreSeen(animation(), 24);
}

TEST_F(PictureFileTest, APngThatIsCutOffAnywhereInItsPictureIsRefused) {
    // Of the last chunk, which holds nothing, and of the check sum before it nothing is needed.
    expectCutsAreSeen(bytesOf(noise(), "PNG"), 4);
}

TEST_F(PictureFileTest, APictureIsNotTurnedByWhatItsFileSaysOfTheCamera) {
    std::string jpeg = bytesOf(quarters(), "JPG");
    // One entry: the orientation is 6, a quarter turn.
    const std::string turn(
        "\xFF\xE1\x00\x22"
        "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0",
        36);
    jpeg.insert(2, turn);
    const std::string path = folder.write("turned.jpg", jpeg);
    QImageReader reader(QString::fromStdString(path));
    ASSERT_EQ(reader.transformation(), QImageIOHandler::TransformationRotate90);
    const PictureFile picture = readPicture(path);
    ASSERT_EQ(picture.image.size(), quarters().size());
    EXPECT_NEAR(picture.image.pixelColor(0, 0).red(), 255, 8);
    EXPECT_NEAR(picture.image.pixelColor(63, 0).green(), 255, 8);
    EXPECT_NEAR(picture.image.pixelColor(0, 31).blue(), 255, 8);
}

// What a camera says of a picture may hold a smaller one, in passes of its own.
TEST_F(PictureFileTest, AJpegWithASmallPictureInItMayLackItsEndMarkToo) {
    std::string jpeg = bytesOf(noise(), "JPG");
    const std::string small = bytesOf(plain(Qt::red, {8, 8}), "JPG", true);
    const std::size_t size = 2 + 6 + small.size();
    jpeg.insert(2, "\xFF\xE1" +
                       bytes({static_cast<int>(size >> 8U), static_cast<int>(size & 255U)}) +
                       std::string("Exif\0\0", 6) + small);
    expectCutsAreSeen(jpeg, 2);
}

// Colours as they are, whatever their transparency.
TEST_F(PictureFileTest, TexturesAreReadWithoutTheirTransparency) {
    const JpegPicture squares = jpegSquares({{50, 100, 200, 0}, {30, 20, 10, 128}});
    const PictureFile blp = readPicture(folder.write("a", blp1Jpeg(squares, 8, 100)));
    ASSERT_EQ(blp.error, "");
    EXPECT_EQ(blp.image.size(), QSize(16, 8));
    EXPECT_FALSE(blp.image.hasAlphaChannel());
    EXPECT_EQ(blp.image.pixel(0, 0), qRgb(200, 100, 50));
    EXPECT_EQ(blp.image.pixel(15, 7), qRgb(10, 20, 30));
    const std::string block = le16(0xF800) + le16(0x001F) + bytes({0xE4, 0, 0, 0});
    const PictureFile ddsFile = readPicture(
        folder.write("b", dds({.fourCc = "DXT3", .content = std::string(8, '\0') + block})));
    EXPECT_EQ(ddsFile.image.pixel(2, 0), qRgb(170, 0, 85)) << ddsFile.error;
    const PictureFile tgaFile =
        readPicture(folder.write("c", tga({.kind = 10,
                                           .width = 2,
                                           .height = 1,
                                           .bits = 32,
                                           .content = bytes({0x81, 1, 2, 3, 0})})));
    EXPECT_EQ(tgaFile.image.pixel(1, 0), qRgb(3, 2, 1)) << tgaFile.error;
}

TEST_F(PictureFileTest, ABrokenTextureIsRefusedWithWhatIsWrong) {
    const std::string path = folder.write("a.blp", blp1({.content = "palette"}));
    EXPECT_EQ(readPicture(path).error, "ends before its picture does");
    folder.write("a.blp", dds({.width = 40000, .fourCc = "DXT1"}));
    EXPECT_EQ(readPicture(path).error, "has 40000 by 4 pixels, too many");
    EXPECT_TRUE(readPicture(path).image.isNull());
}

// The picture that it says it has would take 256 MiB.
TEST_F(PictureFileTest, ATextureThatIsTooShortForItsPictureTakesNoMemoryForIt) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer takes memory of its own";
#endif
    std::string jpeg = blp1Jpeg(jpegSquares({{1, 2, 3, 4}}), 8, 0);
    jpeg.replace(jpeg.find("\xFF\xC0") + 5, 4, bytes({0x20, 0x00, 0x20, 0x00}));
    const std::vector<std::string> files = {
        jpeg,
        blp1({.width = 8192, .height = 8192, .content = std::string(2000, '\1')}),
        blp2({.width = 8192, .height = 8192, .mipmap = std::string(2000, '\1')}),
        dds({.width = 8192, .height = 8192, .fourCc = "DXT1", .content = std::string(2000, '\1')}),
        tga({.width = 8192, .height = 8192, .content = std::string(2000, '\1')}),
        tga({.kind = 10, .width = 8192, .height = 8192, .content = std::string(2000, '\1')})};
    for (const std::string& file : files) {
        const std::string path = folder.write("large", file);
        const ChildResult child = inForkedChild([&]() -> std::string {
            limitMemory(32);
            return readPicture(path).error;
        });
        EXPECT_EQ(child.signal, 0);
        EXPECT_EQ(child.said, "ends before its picture does");
    }
}

TEST_F(PictureFileTest, ATextureForWhichThereIsNoMemoryIsRefused) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer ends a program that has no memory left";
#endif
    // 4 KiB of packets for each row of 8192 pixels of 4 bytes.
    std::string packets;
    for (int i = 0; i < 8192 * 64; ++i) packets += "\xFF\1\2\3\4";
    const std::string path = folder.write(
        "large.tga",
        tga({.kind = 10, .width = 8192, .height = 8192, .bits = 32, .content = packets}));
    const ChildResult child = inForkedChild([&]() -> std::string {
        limitMemory(200);
        return readPicture(path).error;
    });
    EXPECT_EQ(child.signal, 0);
    EXPECT_EQ(child.said, "needs more memory than there is");
    EXPECT_EQ(readPicture(path).error, "");
}

TEST_F(PictureFileTest, APictureForWhichThereIsNoMemoryIsRefused) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer ends a program that has no memory left";
#endif
    QImage large(8192, 8192, QImage::Format_Indexed8);
    large.setColorTable({qRgb(255, 0, 0)});
    large.fill(0);
    const std::string path = folder.path("large.bmp");
    ASSERT_TRUE(large.save(QString::fromStdString(path)));
    large = QImage();
    // The file and what it holds take 64 MiB each, its pixels with 4 bytes each 256 MiB.
    for (const rlim_t room : {rlim_t{32}, rlim_t{96}, rlim_t{200}}) {
        const ChildResult child = inForkedChild([&]() -> std::string {
            limitMemory(room);
            const PictureFile picture = readPicture(path);
            return picture.error + (picture.image.isNull() ? "" : ", but a picture");
        });
        EXPECT_EQ(child.signal, 0) << room;
        EXPECT_EQ(child.said, "needs more memory than there is") << room;
    }
}

}  // namespace
}  // namespace corvane
