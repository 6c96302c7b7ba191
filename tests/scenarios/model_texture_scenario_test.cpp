// The model's own texture under the texture editor's view.

#include <QColor>
#include <QImage>
#include <filesystem>

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using ModelTextureScenario = ScenarioTest;

const std::string kOpen =
    "answer file \"$DIR/units/orc/hero.mdl\"\nmenu mnuOpen\nwait 150\nmenu mnuUVMapping\n"
    "window uv\n";

// Four bytes, the lowest first.
std::string littleEndian(int number) {
    std::string text;
    for (int shift = 0; shift < 32; shift += 8) text += static_cast<char>(number >> shift & 255);
    return text;
}

// Red on the left, green on the right, in a file of the game's own kind two folders up.
TEST_F(ModelTextureScenario, TheModelsTextureComesByItselfAndByItsCommand) {
    std::string text = squareModel();
    text.insert(
        0,
        "Textures 1 {\n\tBitmap {\n\t\tImage \"Textures\\Wall.blp\",\n\t}\n}\n"
        "Materials 1 {\n\tMaterial {\n\t\tLayer {\n\t\t\tstatic TextureID 0,\n\t\t}\n\t}\n}\n");
    std::filesystem::create_directories(folder.path("textures"));
    std::filesystem::create_directories(folder.path("units/orc"));
    folder.write("units/orc/hero.mdl", text);
    const Played without =
        playAll(kOpen + "dump\nanswer message ok\nmenu mnuLoadModelTexture\ndump\n");
    EXPECT_FALSE(at(without.dump(0), "uv.imageLoaded").toBool());
    EXPECT_NE(without.dialogs().back().find("Looked for:\nTextures/Wall.blp\nTextures/Wall.dds\n"),
              std::string::npos)
        << without.dialogs().back();
    EXPECT_FALSE(at(without.dump(1), "uv.imageLoaded").toBool());

    std::string wall = "BLP1";
    for (const int number : {1, 0, 2, 1, 4, 0, 1180}) wall += littleEndian(number);
    wall.resize(156);
    wall += std::string("\0\0\xFF\0\0\xFF\0\0", 8);  // blue, green, red, nothing
    wall.resize(1180);
    folder.write("textures/wall.BLP", wall + std::string("\0\1", 2));
    const Played played = playAll(kOpen + R"(
screenshot pbxUVView "$DIR/plain.png"
answer file cancel
press cmdLoadImg
menu mnuLoadModelTexture
dump
)");
    EXPECT_TRUE(at(played.dump(), "uv.imageLoaded").toBool());
    const QImage plain(QString::fromStdString(folder.path("plain.png")));
    const int middle = at(played.dump(), "uv.width").toInt() / 2;
    EXPECT_EQ(plain.pixelColor(middle - 9, 20), QColor(Qt::red));
    EXPECT_EQ(plain.pixelColor(middle + 9, 20), QColor(Qt::green));
}

}  // namespace
}  // namespace corvane
