// Placements of markers that are ended, modes in the menus.
#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using DesktopScenario = ScenarioTest;

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
