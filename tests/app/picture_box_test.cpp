#include "app/picture_box.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QtTest>
#include <algorithm>
#include <string>
#include <vector>

#include "palettes.h"

namespace corvane {
namespace {

class PictureBoxTest : public testing::Test {
protected:
    PictureBox picture{nullptr};
    std::vector<std::string> events;

    void SetUp() override {
        picture.setPalette(lightPalette());
        picture.resize(209, 201);
        picture.onMove = [this](double x, double y) { note("move", x, y); };
        picture.onPress = [this](double x, double y) { note("press", x, y); };
        picture.onRelease = [this](MouseButton button, double x, double y) {
            note(button == MouseButton::Left ? "left release" : "other release", x, y);
        };
        picture.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&picture));
        events.clear();
    }

    void note(const std::string& what, double x, double y) {
        events.push_back(what + ' ' + QString::number(x).toStdString() + ' ' +
                         QString::number(y).toStdString());
    }

    /// An event of the mouse that other tests know nothing of: QTest keeps which buttons are down.
    void send(QEvent::Type type, Qt::MouseButton button, const QPointF& at) {
        QMouseEvent event(type, at, picture.mapToGlobal(at), button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button,
                          Qt::NoModifier);
        QApplication::sendEvent(&picture, &event);
    }

    QImage grabbed() { return picture.grab().toImage(); }

    /// The pixels of exactly this colour, without the frame round the picture.
    static std::vector<QPoint> pixelsOf(const QImage& image, const QColor& colour) {
        std::vector<QPoint> found;
        for (int y = 1; y < image.height() - 1; ++y) {
            for (int x = 1; x < image.width() - 1; ++x) {
                if (image.pixelColor(x, y) == colour) found.emplace_back(x, y);
            }
        }
        return found;
    }
};

TEST_F(PictureBoxTest, TheSurfaceCountsFifteenUnitsToAPixel) {
    EXPECT_EQ(picture.surface().width(), 3135);
    EXPECT_EQ(picture.surface().height(), 3015);
}

TEST_F(PictureBoxTest, ADragReportsPressMoveAndReleaseInDrawingUnits) {
    QWindow* const window = picture.windowHandle();
    QTest::mouseMove(window, {10, 20});
    QTest::mousePress(window, Qt::LeftButton, {}, {10, 20});
    QTest::mouseMove(window, {100, 50});
    QTest::mouseRelease(window, Qt::LeftButton, {}, {100, 50});
    EXPECT_EQ(events, (std::vector<std::string>{"move 150 300", "press 150 300", "move 1500 750",
                                                "left release 1500 750"}));
}

TEST_F(PictureBoxTest, TheRightAndTheMiddleButtonAreTheOther) {
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        events.clear();
        QTest::mouseClick(&picture, button, {}, {2, 4});
        EXPECT_EQ(events, (std::vector<std::string>{"press 30 60", "other release 30 60"}))
            << button;
    }
}

TEST_F(PictureBoxTest, TheButtonsAtTheSideOfAMouseDoNothing) {
    for (const Qt::MouseButton button :
         {Qt::BackButton, Qt::ForwardButton, Qt::TaskButton, Qt::ExtraButton24}) {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                        QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            send(type, button, {2, 4});
        }
    }
    EXPECT_EQ(events, std::vector<std::string>{});
}

TEST_F(PictureBoxTest, AButtonAtTheSideDoesNotDisturbADrag) {
    send(QEvent::MouseButtonPress, Qt::LeftButton, {10, 20});
    send(QEvent::MouseButtonPress, Qt::BackButton, {50, 50});
    send(QEvent::MouseButtonRelease, Qt::BackButton, {50, 50});
    send(QEvent::MouseButtonRelease, Qt::LeftButton, {100, 50});
    EXPECT_EQ(events, (std::vector<std::string>{"press 150 300", "left release 1500 750"}));
}

TEST_F(PictureBoxTest, TheMouseIsReportedWithoutAButtonToo) {
    QTest::mouseMove(picture.windowHandle(), {30, 40});
    QTest::mouseMove(picture.windowHandle(), {31, 40});
    EXPECT_EQ(events, (std::vector<std::string>{"move 450 600", "move 465 600"}));
}

TEST_F(PictureBoxTest, AReleaseOutsideIsReportedWhereItIs) {
    QTest::mousePress(&picture, Qt::RightButton, {}, {5, 5});
    QTest::mouseRelease(&picture, Qt::RightButton, {}, {-10, 300});
    EXPECT_EQ(events.back(), "other release -150 4500");
}

TEST_F(PictureBoxTest, TheSecondPressOfADoubleClickIsAPress) {
    QTest::mouseMove(picture.windowHandle(), {10, 20});
    events.clear();
    QTest::mouseDClick(picture.windowHandle(), Qt::LeftButton, {}, {10, 20});
    EXPECT_EQ(events, (std::vector<std::string>{"press 150 300", "left release 150 300",
                                                "press 150 300", "left release 150 300"}));
}

TEST_F(PictureBoxTest, ADisabledPictureReportsNothing) {
    picture.setEnabled(false);
    QTest::mouseMove(picture.windowHandle(), {50, 50});
    QTest::mouseClick(picture.windowHandle(), Qt::LeftButton, {}, {10, 20});
    EXPECT_EQ(events, std::vector<std::string>{});
}

TEST_F(PictureBoxTest, ANewSizeIsReportedOnceTheSurfaceHasIt) {
    std::vector<std::pair<double, double>> sizes;
    picture.onResize = [&] {
        sizes.emplace_back(picture.surface().width(), picture.surface().height());
    };
    picture.resize(300, 240);
    EXPECT_EQ(sizes, (std::vector<std::pair<double, double>>{{4500, 3600}}));
}

TEST_F(PictureBoxTest, KeysAreReportedAndThoseNotUsedGoOn) {
    std::vector<int> keys;
    picture.onKey = [&](int key) {
        keys.push_back(key);
        return key == Qt::Key_Up;
    };
    QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
    QApplication::sendEvent(&picture, &up);
    EXPECT_TRUE(up.isAccepted());
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_Q, Qt::NoModifier);
    QApplication::sendEvent(&picture, &letter);
    EXPECT_FALSE(letter.isAccepted());
    EXPECT_EQ(keys, (std::vector<int>{Qt::Key_Up, Qt::Key_Q}));
}

TEST_F(PictureBoxTest, AVertexBoxIsPaintedOverTheEdgeThatWasDrawnBefore) {
    DrawingSurface& surface = picture.surface();
    surface.clear();
    // An edge through a vertex at pixel (60, 40), across the whole picture.
    surface.line(0, 600, 3135, 600, kActiveBorder);
    surface.box(890, 590, 910, 610, kRed);
    const QImage image = grabbed();
    const std::vector<QPoint> red = pixelsOf(image, Qt::red);
    ASSERT_GE(red.size(), 3U);
    for (const QPoint& pixel : red) {
        EXPECT_NEAR(pixel.x(), 60, 2);
        EXPECT_NEAR(pixel.y(), 40, 2);
    }
    // Where the box's sides cross the edge, the box is seen.
    EXPECT_TRUE(std::any_of(red.begin(), red.end(), [&](const QPoint& pixel) {
        return image.pixelColor(100, pixel.y()) == QColor(140, 140, 140);
    }));
}

TEST_F(PictureBoxTest, TheForegroundAndTheBackgroundFollowTheTheme) {
    DrawingSurface& surface = picture.surface();
    surface.clear();
    surface.line(0, 600, 3135, 600, kForeground);
    EXPECT_EQ(grabbed().pixelColor(100, 150), QColor(Qt::white));
    EXPECT_EQ(pixelsOf(grabbed(), Qt::black).size(), 207U);

    picture.setPalette(darkPalette());
    EXPECT_EQ(grabbed().pixelColor(100, 150), QColor(0x1E, 0x1E, 0x1E));
    EXPECT_EQ(pixelsOf(grabbed(), QColor(0xEE, 0xEE, 0xEE)).size(), 207U);
}

TEST_F(PictureBoxTest, ClearingTakesAwayWhatWasDrawn) {
    DrawingSurface& surface = picture.surface();
    surface.clear();
    surface.line(0, 600, 3135, 600, kRed);
    ASSERT_FALSE(pixelsOf(grabbed(), Qt::red).empty());
    surface.clear();
    EXPECT_TRUE(pixelsOf(grabbed(), Qt::red).empty());
}

TEST_F(PictureBoxTest, TheHintIsShownUntilSomethingIsDrawn) {
    const QImage empty = grabbed();
    picture.setHint("Open a model.");
    EXPECT_NE(grabbed(), empty);
    picture.surface().line(-100, -100, -50, -50, kRed);  // beyond the picture
    EXPECT_EQ(grabbed(), empty);
}

}  // namespace
}  // namespace corvane
