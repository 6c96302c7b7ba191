// The runner itself: it must notice what goes wrong.

#include <QColor>
#include <QImage>

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
        {"drag-model pbxPersp left 0 0 1 1\n", "pbxPersp shows no positions", 1},
        {"mark-model pbxFront left a 0 1 1\n", "\"a\" is not a number", 1},
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
screenshot window "$DIR/window 1.png"
screenshot pbxFront "$DIR/front.png"
window main
hover cmdMove 3 3
)");
    EXPECT_EQ(readFile(folder.path("window 1.png")).substr(1, 3), "PNG");
    EXPECT_EQ(readFile(folder.path("front.png")).substr(1, 3), "PNG");
}

// The number of pixels of a colour in a picture.
int countPixels(const std::string& path, const QColor& colour) {
    const QImage image(QString::fromStdString(path));
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
}

TEST_F(RunnerScenario, MarkedDragsShowInTheNextScreenshotOnly) {
    folder.write("hero.mdl", squareModel());
    playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
mark pbxFront left 20 20 60 60
mark pbxFront right 100 40 160 40
mark-model pbxTop right -20 0 20 0
screenshot pbxFront "$DIR/marked.png"
screenshot pbxFront "$DIR/after.png"
)");
    const QColor colour(214, 92, 0);
    // The arrow alone is 60 pixels long and 2 wide.
    EXPECT_GT(countPixels(folder.path("marked.png"), colour), 120);
    EXPECT_EQ(countPixels(folder.path("after.png"), colour), 0);
}

TEST_F(RunnerScenario, DragsBetweenPositionsOfTheModelFollowZoomAndPan) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
wait 150
press cmdZoomInFront
press cmdPanUF
menu mnuSelectAll
drag-model pbxFront right 0 0 8 4
menu mnuUVMapping
window uv
drag-model pbxUVView left -0.1 -0.1 1.1 1.1
drag-model pbxUVView right 0.25 0.5 0.5 0.25
dump
)");
    const QJsonObject move = played.dump()["undo"].toArray()[0].toObject();
    EXPECT_EQ(move["name"].toString(), "Move");
    // Whole pixels, of which there are 5 to 3 model units.
    EXPECT_NEAR(move["a"].toDouble(), 8, 0.6);
    EXPECT_NEAR(move["b"].toDouble(), 4, 0.6);
    const QJsonObject uv = played.dump()["uv"].toObject();
    EXPECT_NEAR(uv["u"].toArray()[0].toDouble(), 0.25, 0.01);
    EXPECT_NEAR(uv["v"].toArray()[0].toDouble(), 0.75, 0.01);
}

TEST_F(RunnerScenario, APictureOfADialogIsThatOfTheRealBox) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
answer message ok
screenshot dialog "$DIR/count.png"
menu mnuSelVertCount
answer input "1"
screenshot dialog "$DIR/group.png"
menu mnuAssignVertexGroup
dump
)");
    EXPECT_EQ(played.dialogs().size(), 3U);
    EXPECT_EQ(undoNames(played.dump()), "Assign Vertex Group");
    for (const char* const name : {"count.png", "group.png"}) {
        const QImage picture(QString::fromStdString(folder.path(name)));
        EXPECT_GT(picture.width(), 80) << name;
        EXPECT_GT(picture.height(), 60) << name;
    }
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
