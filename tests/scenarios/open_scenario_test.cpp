// Opening, switching, closing, and what is said when something cannot be opened.

#include <filesystem>

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using OpenScenario = ScenarioTest;
using Lines = std::vector<std::string>;

const std::string kOpenDialog = "file|open|Warcraft III MDL|*.mdl|";

TEST_F(OpenScenario, AsksForTheGeosetUntilTheAnswerIsInRange) {
    const std::string path = folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
answer input "0"
answer input "4"
answer input "x"
answer input cancel
answer input ""
answer input "2"
menu mnuOpen
dump
)");
    const std::string prompt = "input|Geoset to open|Geoset to import(1 - 3):|";
    EXPECT_EQ(played.dialogs(), (Lines{kOpenDialog + path, prompt + "0", prompt + "4", prompt + "x",
                                       prompt + "cancel", prompt, prompt + "2"}));
    EXPECT_EQ(played.events[1]["default"].toString(), "1");
    const QJsonObject dump = played.dump();
    EXPECT_EQ(dump["geosetNumber"].toInt(), 2);
    EXPECT_EQ(dump["modelPath"].toString().toStdString(), path);
    EXPECT_EQ(dump["workPath"].toString().toStdString(), folder.path("hero_TMP.tdl"));
    EXPECT_TRUE(dump["modelLoaded"].toBool());
    EXPECT_EQ(position(dump, 4), (std::vector<double>{-30, 30, 24}));
    EXPECT_EQ(dump["vertices"].toArray().size(), 4);
    EXPECT_EQ(dump["faces"].toArray().size(), 2);
    EXPECT_EQ(dump["matrixGroups"].toArray(), (QJsonArray{QJsonArray{0}, QJsonArray{0, 1}}));
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), threeGeosets());
}

TEST_F(OpenScenario, OneGeosetOpensWithoutAQuestion) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll("answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\ndump\n");
    EXPECT_EQ(played.dialogs().size(), 1U);
    EXPECT_EQ(played.dump()["geosetNumber"].toInt(), 1);
}

TEST_F(OpenScenario, CommandsThatNeedAModelWaitForOne) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
dump
drag pbxFront left 10 10 100 100
hover pbxFront 50 50
answer file cancel
menu mnuOpen
dump
answer file "$DIR/hero.mdl"
menu mnuOpen
dump
)");
    for (const char* const name : {"mnuTools", "mnuSave", "mnuSaveAs", "mnuSwitchGeoset",
                                   "mnuSaveGeoset", "mnuMergeGeoset"}) {
        EXPECT_FALSE(at(played.dump(0), std::string("menus.") + name + ".enabled").toBool())
            << name;
        EXPECT_FALSE(at(played.dump(1), std::string("menus.") + name + ".enabled").toBool())
            << name;
        EXPECT_TRUE(at(played.dump(2), std::string("menus.") + name + ".enabled").toBool()) << name;
    }
    EXPECT_FALSE(at(played.dump(0), "buttons.cmdSnap.enabled").toBool());
    EXPECT_TRUE(at(played.dump(1), "buttons.cmdSnap.enabled").toBool());
    EXPECT_EQ(at(played.dump(1), "texts.txtX").toString(), "");
    EXPECT_EQ(played.dump(1)["modelPath"].toString(), "");
    EXPECT_EQ(at(played.dump(2), "menus.mnuUndo.caption").toString(), "Undo");
    EXPECT_FALSE(at(played.dump(2), "menus.mnuUndo.enabled").toBool());
}

TEST_F(OpenScenario, AReleaseRightAfterOpeningSelectsNothing) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
drag pbxFront left 10 10 200 190
dump
wait 150
drag pbxFront left 10 10 200 190
dump
)");
    EXPECT_EQ(selected(played.dump(0)), "");
    EXPECT_EQ(undoNames(played.dump(0)), "");
    EXPECT_FALSE(at(played.dump(0), "modes.selectEnabled").toBool());
    EXPECT_EQ(selected(played.dump(1)), "1 2 3 4");
    EXPECT_EQ(undoNames(played.dump(1)), "Selection");
}

TEST_F(OpenScenario, AnotherModelTakesThePlaceOfTheFirstAndItsWorkingCopy) {
    folder.write("hero.mdl", squareModel());
    folder.write("tower.mdl", threeGeosets());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
wait 150
press cmdZoomInFront
press cmdRotate
drag pbxFront left 10 10 200 190
answer file "$DIR/tower.mdl"
answer input "1"
menu mnuOpen
dump
close
)");
    const QJsonObject dump = played.dump();
    EXPECT_EQ(dump["vertices"].toArray().size(), 3);
    EXPECT_EQ(undoNames(dump), "") << "the history belongs to another mesh";
    EXPECT_EQ(at(dump, "views.front.zoom").toDouble(), 25);
    EXPECT_EQ(at(dump, "modes.transformMode").toString(), "R");
    EXPECT_EQ(folder.names(), (Lines{"hero.mdl", "tower.mdl"})) << "closing takes the copy along";
    EXPECT_EQ(readFile(folder.path("hero.mdl")), squareModel());
    EXPECT_EQ(readFile(folder.path("tower.mdl")), threeGeosets());
}

TEST_F(OpenScenario, APathThatCannotBeReadChangesNothing) {
    const std::string hero = folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
answer file "$DIR/missing.mdl"
answer message ok
menu mnuOpen
answer file "$DIR/"
answer message ok
menu mnuOpen
dump
)");
    const std::string message = "message|Error|Bad file name|ok";
    EXPECT_EQ(played.dialogs(),
              (Lines{kOpenDialog + hero, kOpenDialog + folder.path("missing.mdl"), message,
                     kOpenDialog + dir(),
                     "message|Error|Bad file name\n" + dir() + ": Is a directory|ok"}));
    EXPECT_EQ(played.dump()["modelPath"].toString().toStdString(), hero);
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), squareModel());
}

TEST_F(OpenScenario, AGeosetThatCannotBeReadIsNamedWithItsLineAndNothingIsLost) {
    const std::string hero = folder.write("hero.mdl", squareModel());
    std::string broken = squareModel();
    broken.replace(broken.find("{ 0, 30, 30 }"), 13, "{ 0, 3O, 30 }");
    const std::string brokenPath = folder.write("broken.mdl", broken);
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
wait 150
drag pbxFront left 10 10 200 190
dump
answer file "$DIR/broken.mdl"
answer message ok
menu mnuOpen
dump
drag pbxFront right 100 100 110 100
wait 150
menu mnuSave
)");
    EXPECT_EQ(played.dialogs().back(),
              "message|Error|Geoset 1 cannot be read.\n" + brokenPath +
                  ", line 21: \"3O\" is not a number.\n\nThe file was not opened and is unchanged. "
                  "Mend the line in a text editor, or choose another geoset or model.|ok");
    for (const char* const member :
         {"modelPath", "workPath", "geosetNumber", "vertices", "faces", "undo", "menus"}) {
        EXPECT_EQ(played.dump(0)[member], played.dump(1)[member]) << member;
    }
    EXPECT_EQ(folder.names(), (Lines{"broken.mdl", "hero.mdl", "hero_TMP.tdl"}));
    EXPECT_EQ(readFile(brokenPath), broken);
    EXPECT_NE(readFile(hero).find("\t\t{ 0, -22.5, -30 },\n"), std::string::npos);
}

TEST_F(OpenScenario, AWorkingCopyThatCannotBeMadeIsSaid) {
    const std::string path = folder.write("hero.mdl", squareModel());
    std::filesystem::create_directory(folder.path("hero_TMP.tdl"));
    const Played played =
        playAll("answer file \"$DIR/hero.mdl\"\nanswer message ok\nmenu mnuOpen\ndump\n");
    const std::string message = played.dialogs().back();
    EXPECT_NE(message.find(folder.path("hero_TMP.tdl") + ": Is a directory"), std::string::npos)
        << message;
    EXPECT_FALSE(played.dump()["modelLoaded"].toBool());
    EXPECT_EQ(readFile(path), squareModel());
}

TEST_F(OpenScenario, SwitchingReadsAnotherGeosetAndDropsWhatWasNotSaved) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
answer input "2"
menu mnuOpen
wait 150
drag pbxFront left 10 10 200 190
drag pbxFront right 100 100 110 100
answer input "3"
menu mnuSwitchGeoset
dump
answer input "2"
menu mnuSwitchGeoset
dump
)");
    EXPECT_EQ(played.dump(0)["geosetNumber"].toInt(), 3);
    EXPECT_EQ(position(played.dump(0), 1), (std::vector<double>{2, 3, 1}));
    EXPECT_EQ(undoNames(played.dump(0)), "");
    EXPECT_EQ(position(played.dump(1), 1), (std::vector<double>{-30, -30, 0}));
    EXPECT_EQ(readFile(folder.path("hero.mdl")), threeGeosets());
}

TEST_F(OpenScenario, AFileWithoutAGeosetLeavesTheStoreEmpty) {
    const std::string text = modelHead() + bone("Root", "0", "None");
    folder.write("anims.mdl", text);
    const Played played = playAll(R"(
answer file "$DIR/anims.mdl"
answer message ok
menu mnuOpen
dump
answer message ok
menu mnuSave
)");
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 0);
    EXPECT_EQ(played.dump()["geosetNumber"].toInt(), 1);
    EXPECT_EQ(readFile(folder.path("anims.mdl")), text) << "there is nothing to save";
}

TEST_F(OpenScenario, ADecimalCommaIsWarnedOfAndNeverReachesAFile) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
answer message ok
dump
answer file "$DIR/hero.mdl"
menu mnuOpen
wait 150
hover pbxFront 100 90
dump
drag pbxFront left 10 10 200 190
drag pbxFront right 100 100 101 100
menu mnuSave
)",
                                  {"LC_ALL=de_DE.UTF-8"});
    EXPECT_EQ(played.dialogs()[0],
              "message|Warning|Warning: You are using commas as a decimal instead of periods. The "
              "program will not work with that setting. Go to docs/decimal-separator.md for "
              "instructions on changing that.|ok");
    EXPECT_EQ(at(played.dump(0), "texts.txtTips").toString(), "Welcome to Corvane 1.14");
    EXPECT_EQ(at(played.dump(1), "texts.txtY").toString(), "-3,375");
    EXPECT_NE(readFile(folder.path("hero.mdl")).find("\t\t{ 0, -29.25, -30 },\n"),
              std::string::npos);
}

}  // namespace
}  // namespace corvane
