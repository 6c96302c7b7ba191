// What scenarios of saving begin with.
#pragma once

#include <string>
#include <vector>

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {

using SaveScenario = ScenarioTest;
using Lines = std::vector<std::string>;

inline const std::string kOpen = "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\n";
inline const std::string kMoveThird =
    "drag pbxFront left 130 50 160 70\ndrag pbxFront right 100 100 120 92\n";

/// The square after kMoveThird: the third vertex by 15 to the right and 6 up.
inline std::string moved(std::string model) {
    const std::string row = "\t\t{ 0, 30, 30 },\n";
    return model.replace(model.find(row), row.size(), "\t\t{ 0, 45, 36 },\n");
}

}  // namespace corvane
