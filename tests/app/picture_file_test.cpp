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

namespace corvane {
namespace {

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
    for (const rlim_t room : {rlim_t{32}, rlim_t{200}}) {
        const ChildResult child = inForkedChild([&]() -> std::string {
            std::ifstream status("/proc/self/statm");
            rlim_t pages = 0;
            status >> pages;
            const rlim_t used = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
            rlimit limit = {};
            limit.rlim_cur = limit.rlim_max = used + (room << 20U);
            if (::setrlimit(RLIMIT_AS, &limit) != 0) return "no limit";
            const PictureFile picture = readPicture(path);
            return picture.error + (picture.image.isNull() ? "" : ", but a picture");
        });
        EXPECT_EQ(child.signal, 0) << room;
        EXPECT_EQ(child.said, "needs more memory than there is") << room;
    }
}

}  // namespace
}  // namespace corvane
