// The runner itself: it must notice what goes wrong.

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using RunnerScenario = ScenarioTest;

struct BadScript {
    const char* script;
    const char* error;
    int line;
};

TEST_F(RunnerScenario, ErrorsEndTheScriptAndSayWhereAndWhy) {
    const std::vector<BadScript> scripts = {
        {"menu mnuNothing\n", "mnuNothing is no menu item", 1},
        {"\n# a comment\nmenu mnuSave\n", "mnuSave is disabled", 3},
        {"menu mnuSnap\n", "mnuSnap is disabled", 1},
        {"press cmdSnap\n", "cmdSnap is disabled", 1},
        {"press cmdNothing\n", "cmdNothing is no control of this window", 1},
        {"drag pbxFront up 1 2 3 4\n", "up is no mouse button", 1},
        {"drag pbxFront left 1 2 3 x\n", "\"x\" is not a whole number", 1},
        {"drag pbxFront left 1 2\n", "drag takes 6 words after it", 1},
        {"drag cmdMove left 1 2 3 4\n", "cmdMove is no picture", 1},
        {"jump\n", "there is no command \"jump\"", 1},
        {"dump \"unfinished\n", "a word in double quotes does not end", 1},
        {"answer message maybe\n", "a message box is answered by ok, yes or no", 1},
        {"answer file cancel\n", "1 answers were not used", 1},
        {"menu mnuOpen\n", "no answer for a file dialog (open): none is left", 1},
        {"answer message ok\nmenu mnuOpen\n",
         "no answer for a file dialog (open): the next one is for a message", 2},
    };
    for (const BadScript& bad : scripts) {
        const Played played = play(bad.script);
        EXPECT_EQ(played.exitCode, 1) << bad.script;
        EXPECT_EQ(played.error(), bad.error) << bad.script;
        ASSERT_FALSE(played.events.empty()) << bad.script;
        EXPECT_EQ(played.events.back()["line"].toInt(), bad.line) << bad.script;
    }
}

TEST_F(RunnerScenario, ADialogWithoutAFittingAnswerIsPrintedBeforeTheError) {
    const std::vector<std::pair<const char*, const char*>> scripts = {
        {"menu mnuOpen\n", "file"},
        {"answer message ok\nmenu mnuAddMarker\n", "input"},
        {"answer input cancel\nmenu mnuAbout\n", "message"},
        {"answer message yes\nmenu mnuAbout\n", "message"},
    };
    for (const auto& [script, kind] : scripts) {
        const Played played = play(script);
        EXPECT_EQ(played.exitCode, 1) << script;
        ASSERT_EQ(played.events.size(), 2U) << script;
        EXPECT_EQ(played.events[0]["event"].toString(), "dialog") << script;
        EXPECT_EQ(played.events[0]["kind"].toString(), kind) << script;
        EXPECT_TRUE(played.events[0]["answer"].isNull()) << script;
        EXPECT_EQ(played.events[1]["event"].toString(), "error") << script;
    }
}

TEST_F(RunnerScenario, InDoubleQuotesCancelAndDefaultAreTexts) {
    folder.write("cancel", squareModel());
    // Neither text is a number, so the box comes back; the cancel that is none of them ends it.
    const Played played = playAll(R"(
answer file cancel
menu mnuOpen
answer file "$DIR/cancel"
menu mnuOpen
answer input "cancel"
answer input "default"
answer input cancel
menu mnuAssignVertexGroup
answer input default
menu mnuAssignVertexGroup
dump
)");
    EXPECT_EQ(at(played.dump(), "modelLoaded").toBool(), true);
    EXPECT_EQ(undoNames(played.dump()), "Assign Vertex Group");
}

TEST_F(RunnerScenario, ScreenshotsAndQuotedWords) {
    folder.write("a model.mdl", squareModel());
    playAll(R"(
answer file "$DIR/a model.mdl"
menu mnuOpen
screenshot window "$DIR/window \"1\".png"
screenshot pbxFront "$DIR/front.png"
window main
hover cmdMove 3 3
)");
    EXPECT_EQ(readFile(folder.path("window \"1\".png")).substr(1, 3), "PNG");
    EXPECT_EQ(readFile(folder.path("front.png")).substr(1, 3), "PNG");
}

TEST_F(RunnerScenario, TheDumpNamesEveryMenuItemAndButton) {
    const QJsonObject dump = playAll("dump\n").dump();
    for (const char* const name :
         {"mnuFile",       "mnuOpen",         "mnuSave",        "mnuSaveAs",
          "mnuSaveGeoset", "mnuSwitchGeoset", "mnuMergeGeoset", "mnuDelCurrentGeoset",
          "mnuExit",       "mnuUndo",         "mnuSelect",      "mnuAdd",
          "mnuDeselect",   "mnuMove",         "mnuRotate",      "mnuScale",
          "mnuExtrude",    "mnuClone",        "mnuSnap",        "mnuDelete",
          "mnuXEnabled",   "mnuYEnabled",     "mnuZEnabled",    "mnuShowNormals"}) {
        EXPECT_FALSE(at(dump, std::string("menus.") + name + ".caption").toString().isEmpty())
            << name;
    }
    EXPECT_EQ(at(dump, "menus.mnuSaveAs.caption").toString(), "Save As...");
    for (const char* const name :
         {"cmdSelect",     "cmdAdd",         "cmdDeselect",  "cmdMove",        "cmdRotate",
          "cmdScale",      "cmdExtrude",     "cmdClone",     "cmdSnap",        "cmdDelete",
          "cmdActivateX",  "cmdActivateY",   "cmdActivateZ", "cmdZoomInFront", "cmdZoomOutFront",
          "cmdPanUF",      "cmdPanDF",       "cmdPanLF",     "cmdPanRF",       "cmdZoomInTop",
          "cmdZoomOutTop", "cmdPanUT",       "cmdPanDT",     "cmdPanLT",       "cmdPanRT",
          "cmdZoomInLeft", "cmdZoomOutLeft", "cmdPanUL",     "cmdPanDL",       "cmdPanLL",
          "cmdPanRL"}) {
        EXPECT_FALSE(at(dump, std::string("buttons.") + name + ".color").toString().isEmpty())
            << name;
    }
    EXPECT_TRUE(dump["uv"].isNull());
    EXPECT_EQ(at(dump, "texts.txtTips").toString(), "Welcome to Corvane 1.14");
    EXPECT_EQ(at(dump, "views.front.width").toDouble(), kPictureWidth);
    EXPECT_EQ(at(dump, "views.front.height").toDouble(), kPictureHeight);
    EXPECT_EQ(dump["undo"].toArray().size(), 40);
}

}  // namespace
}  // namespace corvane
