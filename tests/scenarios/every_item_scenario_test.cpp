// No menu item and no button is left without a scenario.
#include "played_names.h"
#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using EveryItemScenario = ScenarioTest;

// Menus that hold items and do nothing themselves.
bool isMenuOfItems(const QString& name) {
    const QStringList menus = {
        "mnuFile",          "mnuEdit",         "mnuTools",      "mnuView",          "mnuHelp",
        "mnuSelectionMode", "mnuMirror",       "mnuAlign",      "mnuTransformMode", "mnuActiveAxes",
        "mnuMatrices",      "mnuVertexGroups", "mnuMarkerTools"};
    return menus.contains(name);
}

using Set = std::set<std::string>;

TEST(PlayedNamesTest, AreThoseOfCommandsAndNotThoseThatAreOnlyMentioned) {
    const PlayedNames names = playedNamesIn(
        "TEST_F(Some, Test) {\n"
        "    // menu mnuComment\n"
        "    playAll(R\"(\nmenu mnuOpen\npress cmdAdd\n)\");\n"
        "    playAll(\"answer message ok\\nmenu mnuAbout\\ndump\\n\");\n"
        "    EXPECT_EQ(at(\"menus.mnuSave.caption\"), \"mnuUndo\");\n"
        "    play(\"press cmdRefused\\n\");\n"
        "}\n\n");
    EXPECT_EQ(names.main, (Set{"mnuOpen", "cmdAdd", "mnuAbout"}));
    EXPECT_EQ(names.uv, Set());
}

TEST(PlayedNamesTest, BelongToTheWindowThatIsCurrentThere) {
    const PlayedNames names = playedNamesIn(
        "const std::string kOpenIt = \"menu mnuOpen\\nwindow uv\\n\";\n"
        "const std::string kOther = \"press cmdMain\\n\";\n"
        "TEST_F(Some, Test) {\n"
        "    playAll(kOpenIt + \"press cmdMove\\nwindow main\\npress cmdScale\\n\");\n"
        "    playAll(\"press cmdRotate\\n\");\n"
        "}\n\n");
    EXPECT_EQ(names.main, (Set{"mnuOpen", "cmdMain", "cmdScale", "cmdRotate"}));
    EXPECT_EQ(names.uv, Set{"cmdMove"});
}

TEST(PlayedNamesTest, MayBePutTogether) {
    const PlayedNames names = playedNamesIn(
        "std::vector<Tool> tools = {{\"mnuSnap\", \"Snap\"}};\n"
        "TEST_F(Some, Test) {\n"
        "    playAll(\"dump\\nmenu \" + tool.name);\n"
        "    for (const char* const name : {\"mnuWeld\"}) playAll(\"dump\\nmenu \" + name);\n"
        "    const std::string press = byMenu ? \"menu mnu\" : \"press cmd\";\n"
        "    playAll(press + \"Clone\\ndump\\n\");\n"
        "}\n\n"
        "TEST_F(Some, Other) { expect(\"mnuOther\"); }\n");
    for (const char* const name : {"mnuSnap", "mnuWeld", "mnuClone", "cmdClone"}) {
        EXPECT_TRUE(names.main.contains(name)) << name;
    }
    EXPECT_FALSE(names.main.contains("mnuOther"));
}

TEST_F(EveryItemScenario, NoneIsMissing) {
    folder.write("hero.mdl", squareModel());
    const Played played =
        playAll("answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\nmenu mnuUVMapping\ndump\n");
    const PlayedNames names = playedNames();
    int named = 0;
    for (const char* const kind : {"menus", "buttons"}) {
        for (const QString& name : played.dump()[kind].toObject().keys()) {
            if (isMenuOfItems(name)) continue;
            ++named;
            const bool isUv = name.startsWith("frmUVEditor.");
            const std::string own = name.split('.').last().toStdString();
            EXPECT_TRUE((isUv ? names.uv : names.main).contains(own))
                << "no scenario plays " << name.toStdString();
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
        "menu mnuClose\nwindow main\nmenu mnuSelectAll\ndump\n");
    const auto textureOf = [](const QJsonObject& dump, int vertex) {
        const QJsonObject record = dump["vertices"].toArray()[vertex - 1].toObject();
        return std::pair(record["tu"].toDouble(), record["tv"].toDouble());
    };
    // From the top, the square's Y runs from -30 to 30 and its X from 0 to 24 (vertex 4).
    EXPECT_EQ(textureOf(played.dump(0), 4), std::pair(0.0, 0.0));
    EXPECT_EQ(textureOf(played.dump(1), 2), std::pair(1.0, 1.0));
    EXPECT_EQ(textureOf(played.dump(1), 4), std::pair(0.0, 0.0));
    EXPECT_EQ(textureOf(played.dump(1), 1), std::pair(0.0, 1.0));
    EXPECT_EQ(selected(played.dump(2)), "1 2 3 4") << "the main window stays";
    EXPECT_EQ(play("answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\nmenu mnuUVMapping\n"
                   "window uv\nmenu mnuClose\nmenu mnuSelectAll\n")
                  .error(),
              "mnuSelectAll belongs to a window that is closed");
}

TEST_F(EveryItemScenario, ExitClosesTheWindowAndTakesTheWorkingCopyAlong) {
    folder.write("hero.mdl", squareModel());
    RunningScenario running = start();
    running.send("answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\ndump\n");
    running.waitForDump();
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl", "hero_TMP.tdl"}));
    running.send("menu mnuExit\ndump\n");
    running.waitForDump();
    EXPECT_EQ(folder.names(), std::vector<std::string>{"hero.mdl"});
    running.send("menu mnuSelectAll\n");
    EXPECT_EQ(running.finish().error(), "mnuSelectAll belongs to a window that is closed");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), squareModel());
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
