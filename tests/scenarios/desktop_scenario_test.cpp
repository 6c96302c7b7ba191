// Names of any bytes, placements of markers that are ended, modes in the menus.
#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using DesktopScenario = ScenarioTest;

TEST_F(DesktopScenario, AModelWhoseNameIsNoUtf8OpensAndIsSavedUnderAnother) {
    folder.write("h\xE9ros.mdl", threeGeosets());
    const Played played = playAll(
        "answer file \"$DIR/h\xE9ros.mdl\"\n"
        "answer input \"2\"\n"
        "menu mnuOpen\n"
        "menu mnuSave\n"
        "answer file \"$DIR/\xFC.mdl\"\n"
        "menu mnuSaveAs\n"
        "dump\n");
    EXPECT_EQ(readFile(folder.path("h\xE9ros.mdl")), threeGeosets());
    EXPECT_EQ(readFile(folder.path("\xFC.mdl")), threeGeosets());
    EXPECT_EQ(at(played.dump(), "geosetNumber").toInt(), 2);
    // What is printed is UTF-8.
    EXPECT_EQ(at(played.dump(), "modelPath").toString().toStdString(), dir() + "\uFFFD.mdl");
    EXPECT_EQ(folder.names(),
              (std::vector<std::string>{"h\xE9ros.mdl", "\xFC.mdl", "\xFC_TMP.tdl"}));
}

TEST_F(DesktopScenario, ChoosingAPlacementAgainEndsIt) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
answer input "1"
menu mnuOpen
wait 150
menu mnuAddMarkerGraphically
dump
menu mnuAddMarkerGraphically
dump
drag pbxFront left 10 10 200 190
dump
)");
    for (const auto& [dump, armed] : {std::pair(0, true), std::pair(1, false)}) {
        EXPECT_EQ(at(played.dump(dump), "modes.placingMarker").toBool(), armed);
        EXPECT_EQ(at(played.dump(dump), "menus.mnuAddMarkerGraphically.checked").toBool(), armed);
    }
    EXPECT_TRUE(at(played.dump(), "markers").toArray().isEmpty());
    EXPECT_EQ(selected(played.dump()), "1 2 3");
}

TEST_F(DesktopScenario, TheMenusShowTheModes) {
    const Played played = playAll(R"(
dump
menu mnuExtrude
menu mnuClone
press cmdAdd
dump
)");
    const auto checked = [&](int dump, const std::string& name) {
        return at(played.dump(dump), "menus." + name + ".checked").toBool();
    };
    for (const char* const name : {"mnuSelect", "mnuMove"}) {
        EXPECT_TRUE(checked(0, name)) << name;
        EXPECT_FALSE(checked(1, name)) << name;
    }
    for (const char* const name : {"mnuAdd", "mnuExtrude", "mnuClone"}) {
        EXPECT_FALSE(checked(0, name)) << name;
        EXPECT_TRUE(checked(1, name)) << name;
    }
}

}  // namespace
}  // namespace corvane
