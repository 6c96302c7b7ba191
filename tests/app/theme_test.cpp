#include "app/theme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "app/tool_button.h"
#include "palettes.h"

namespace corvane {
namespace {

// All that the views draw with.
constexpr std::array<Colour, 7> kViewColours = {0x0000FF, 0xFF0000,   0x00FF00,  0x000000,
                                                0xFF8080, 0x80000008, 0x8000000A};

// Relative luminance, and contrast as accessibility guidelines define it: 1 to 21.
double luminance(const QColor& colour) {
    const auto linear = [](int channel) {
        const double share = channel / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
           0.0722 * linear(colour.blue());
}

double contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(ThemeTest, TheContrastOfTheseTestsIsTheOneOfTheGuidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(contrast(Qt::white, QColor(0x77, 0x77, 0x77)), 4.48, 0.005);
    EXPECT_NEAR(contrast(Qt::blue, Qt::white), 8.59, 0.005);
}

TEST(ThemeTest, AColourHasItsRedInTheLowByteAndItsBlueInTheHighOne) {
    EXPECT_EQ(resolved(0x0000FF, lightPalette()), QColor(255, 0, 0));
    EXPECT_EQ(resolved(0x00FF00, lightPalette()), QColor(0, 255, 0));
    EXPECT_EQ(resolved(0xFF0000, lightPalette()), QColor(0, 0, 255));
    EXPECT_EQ(resolved(0xFF8080, lightPalette()), QColor(128, 128, 255));
    EXPECT_EQ(resolved(0x8080FF, lightPalette()), QColor(255, 128, 128));
}

TEST(ThemeTest, SystemColoursComeFromThePalette) {
    EXPECT_EQ(resolved(kForeground, lightPalette()), QColor(Qt::black));
    EXPECT_EQ(resolved(kForeground, darkPalette()), QColor(0xEE, 0xEE, 0xEE));
    EXPECT_EQ(resolved(kButtonFace, lightPalette()), QColor(0xEF, 0xEF, 0xEF));
    EXPECT_EQ(resolved(kButtonFace, darkPalette()), QColor(0x35, 0x35, 0x35));
}

TEST(ThemeTest, EdgesStandBetweenTheForegroundAndTheBackground) {
    // 0.45 of black and 0.55 of white; 0.45 of 0xEE and 0.55 of 0x1E.
    EXPECT_EQ(resolved(kActiveBorder, lightPalette()), QColor(140, 140, 140));
    EXPECT_EQ(resolved(kActiveBorder, darkPalette()), QColor(124, 124, 124));
}

TEST(ThemeTest, SystemColoursAreThoseOfAnActiveWindow) {
    QPalette palette = lightPalette();
    palette.setColor(QPalette::Inactive, QPalette::Text, Qt::red);
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::green);
    for (const auto group : {QPalette::Inactive, QPalette::Disabled}) {
        palette.setCurrentColorGroup(group);
        EXPECT_EQ(resolved(kForeground, palette), QColor(Qt::black)) << group;
    }
}

TEST(ThemeTest, OnALightThemeColoursArePaintedAsTheyAre) {
    for (const Colour colour : kViewColours) {
        EXPECT_EQ(painted(colour, lightPalette()), resolved(colour, lightPalette()))
            << std::hex << colour;
    }
}

TEST(ThemeTest, OnADarkThemeEveryColourOfTheViewsIsSeen) {
    for (const Colour colour : kViewColours) {
        EXPECT_GE(contrast(painted(colour, darkPalette()), QColor(0x1E, 0x1E, 0x1E)), 3.0)
            << std::hex << colour;
    }
    QPalette black = darkPalette();
    black.setColor(QPalette::Base, Qt::black);
    for (const Colour colour : kViewColours) {
        EXPECT_GE(contrast(painted(colour, black), Qt::black), 3.0) << std::hex << colour;
    }
}

TEST(ThemeTest, OnADarkThemeColoursThatAreSeenStayAsTheyAre) {
    EXPECT_EQ(painted(kGreen, darkPalette()), QColor(0, 255, 0));
    EXPECT_EQ(painted(kRed, darkPalette()), QColor(255, 0, 0));
    EXPECT_EQ(painted(kNormalColour, darkPalette()), QColor(128, 128, 255));
    EXPECT_EQ(painted(kForeground, darkPalette()), QColor(0xEE, 0xEE, 0xEE));
}

TEST(ThemeTest, OnADarkThemeALightenedColourKeepsItsHue) {
    const QColor blue = painted(kBlue, darkPalette());
    EXPECT_NE(blue, QColor(0, 0, 255));
    EXPECT_EQ(blue.hue(), 240);
    EXPECT_EQ(painted(kBlack, darkPalette()).saturation(), 0);
}

TEST(ThemeTest, TheColoursOfTheViewsCanBeToldApartInBothThemes) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        // Black may be the foreground.
        const std::array<Colour, 6> colours = {kRed,          kBlue,       kGreen,
                                               kNormalColour, kForeground, kActiveBorder};
        for (std::size_t i = 0; i < colours.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_NE(painted(colours[i], palette), painted(colours[j], palette))
                    << std::hex << colours[i] << ' ' << colours[j];
            }
        }
    }
}

TEST(ThemeTest, TextOnAColouredButtonIsReadable) {
    EXPECT_EQ(textColourOn(Qt::white), QColor(Qt::black));
    EXPECT_EQ(textColourOn(Qt::black), QColor(Qt::white));
    EXPECT_EQ(textColourOn(QColor(0x35, 0x35, 0x35)), QColor(Qt::white));
    for (const Colour colour : {kWhite, kCloneColour, kInactiveAxisColour}) {
        const QColor back = resolved(colour, darkPalette());
        EXPECT_GE(contrast(textColourOn(back), back), 4.5) << std::hex << colour;
    }
}

class ToolButtonTest : public testing::Test {
protected:
    ToolButton button{nullptr};

    void SetUp() override {
        button.setText("M");
        button.resize(81, 31);
        button.setPalette(darkPalette());
    }

    // Whether a colour is found in the middle of the button, where its text is.
    bool showsInText(const QColor& colour) {
        const QImage image = button.grab().toImage();
        for (int y = 8; y < 23; ++y) {
            for (int x = 30; x < 51; ++x) {
                if (image.pixelColor(x, y) == colour) return true;
            }
        }
        return false;
    }

    QColor backgroundPixel() { return button.grab().toImage().pixelColor(10, 15); }
};

TEST_F(ToolButtonTest, AColouredButtonIsPaintedInItsColourInAnyTheme) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        button.setPalette(palette);
        button.setLook({Look::On, kWhite});
        EXPECT_EQ(backgroundPixel(), QColor(255, 255, 255));
        EXPECT_TRUE(showsInText(Qt::black));
        button.setLook({Look::On, kCloneColour});
        EXPECT_EQ(backgroundPixel(), QColor(255, 128, 128));
        EXPECT_TRUE(showsInText(Qt::black));
        button.setLook({Look::Off, kInactiveAxisColour});
        EXPECT_EQ(backgroundPixel(), QColor(128, 128, 128));
        EXPECT_TRUE(showsInText(Qt::black));
    }
}

TEST_F(ToolButtonTest, OnlyAButtonThatIsOnIsFramedInTheHighlightColour) {
    QPalette palette = lightPalette();
    palette.setColor(QPalette::Highlight, Qt::magenta);
    palette.setColor(QPalette::Mid, Qt::cyan);
    button.setPalette(palette);
    const auto frame = [&] { return button.grab().toImage().pixelColor(40, 1); };
    button.setLook({Look::On, kInactiveAxisColour});
    EXPECT_EQ(frame(), QColor(Qt::magenta));
    button.setLook({Look::Off, kInactiveAxisColour});
    EXPECT_EQ(frame(), QColor(Qt::cyan));
}

TEST_F(ToolButtonTest, AButtonWithoutAColourLooksLikeOthers) {
    button.setLook({Look::On, kWhite});
    button.setLook({});
    QPushButton other("M");
    other.resize(button.size());
    other.setPalette(button.palette());
    EXPECT_EQ(button.grab().toImage(), other.grab().toImage());
}

TEST_F(ToolButtonTest, AnArrowPointsItsWay) {
    button.setText("");
    button.resize(31, 31);
    const QImage plain = button.grab().toImage();
    std::vector<QImage> images = {plain};
    for (const Qt::ArrowType arrow : {Qt::UpArrow, Qt::DownArrow, Qt::LeftArrow, Qt::RightArrow}) {
        button.setArrow(arrow);
        const QImage image = button.grab().toImage();
        EXPECT_EQ(std::count(images.begin(), images.end(), image), 0) << arrow;
        images.push_back(image);
    }
    // An arrow's base is longer than its point: its half holds more of its pixels.
    const auto changedAbove = [&](const QImage& image, bool above) {
        int count = 0;
        for (int y = above ? 0 : 16; y < (above ? 15 : 31); ++y) {
            for (int x = 0; x < 31; ++x) count += image.pixel(x, y) != plain.pixel(x, y) ? 1 : 0;
        }
        return count;
    };
    EXPECT_LT(changedAbove(images[1], true), changedAbove(images[1], false));
    EXPECT_GT(changedAbove(images[2], true), changedAbove(images[2], false));
}

}  // namespace
}  // namespace corvane
