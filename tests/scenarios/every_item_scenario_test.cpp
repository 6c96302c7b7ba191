// No menu item and no button is left without a scenario.
#include <cctype>
#include <filesystem>

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using EveryItemScenario = ScenarioTest;

// The texts of all scenario tests.
std::string scenarioSources() {
    std::string text;
    for (const auto& entry : std::filesystem::directory_iterator(CORVANE_SCENARIO_SOURCES)) {
        if (entry.path().extension() == ".cpp") text += readFile(entry.path().string());
    }
    return text;
}

// Whether a name stands in a text, not as a part of a longer one.
bool hasName(const std::string& text, const std::string& name) {
    const auto isPart = [&](std::size_t at) {
        return at < text.size() && std::isalnum(static_cast<unsigned char>(text[at])) != 0;
    };
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) {
        if (!isPart(at - 1) && !isPart(at + name.size())) return true;
    }
    return false;
}

// Menus that hold items and do nothing themselves.
bool isMenuOfItems(const QString& name) {
    const QStringList menus = {
        "mnuFile",          "mnuEdit",         "mnuTools",      "mnuView",          "mnuHelp",
        "mnuSelectionMode", "mnuMirror",       "mnuAlign",      "mnuTransformMode", "mnuActiveAxes",
        "mnuMatrices",      "mnuVertexGroups", "mnuMarkerTools"};
    return menus.contains(name);
}

TEST_F(EveryItemScenario, NoneIsMissing) {
    folder.write("hero.mdl", squareModel());
    const Played played =
        playAll("answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\nmenu mnuUVMapping\ndump\n");
    const std::string sources = scenarioSources();
    ASSERT_GT(sources.size(), 10000U);
    int named = 0;
    for (const char* const kind : {"menus", "buttons"}) {
        for (const QString& name : played.dump()[kind].toObject().keys()) {
            if (isMenuOfItems(name)) continue;
            ++named;
            const std::string own = name.split('.').last().toStdString();
            EXPECT_TRUE(hasName(sources, own)) << "no scenario uses " << name.toStdString();
        }
    }
    EXPECT_GT(named, 100);
}

TEST_F(EveryItemScenario, TheTextureEditorsMenuPressesItsButtonsAndCloses) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(
        "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\nmenu mnuUVMapping\nwindow uv\n"
        "answer file cancel\nmenu mnuLoadImg\n"
        "menu mnuSelectAll\npress cmdRemap\ndump\nmenu mnuSaveUVChanges\ndump\n"
        "menu mnuClose\nwindow main\ndump\n");
    const auto textureOf = [](const QJsonObject& dump, int vertex) {
        const QJsonObject record = dump["vertices"].toArray()[vertex - 1].toObject();
        return std::pair(record["tu"].toDouble(), record["tv"].toDouble());
    };
    // From the top, the square's Y runs from -30 to 30 and its X from 0 to 24 (vertex 4).
    EXPECT_EQ(textureOf(played.dump(0), 4), std::pair(0.0, 0.0));
    EXPECT_EQ(textureOf(played.dump(1), 2), std::pair(1.0, 1.0));
    EXPECT_EQ(textureOf(played.dump(1), 4), std::pair(0.0, 0.0));
    EXPECT_EQ(textureOf(played.dump(1), 1), std::pair(0.0, 1.0));
}

TEST_F(EveryItemScenario, ThePerspectivePicturesButtonsRaiseAndZoom) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(
        "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\npress cmdPerspDown\n"
        "press cmdPerspDown\npress cmdPerspZoomIn\ndump\n");
    EXPECT_EQ(at(played.dump(), "perspective.offset").toInt(), 4);
    EXPECT_EQ(at(played.dump(), "perspective.distance").toInt(), -2);
}

}  // namespace
}  // namespace corvane
