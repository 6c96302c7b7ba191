// The vertex groups: which matrix group each vertex belongs to.
#pragma once

#include <cstdint>
#include <string>

#include "base/geoset.h"
#include "base/tool_mode.h"

namespace corvane {

/// Gives a group (0-based) to the selected vertices, deleted ones included.
void assignGroup(Geoset& geoset, std::int16_t group);

/// Selects the vertices of a group that are not deleted, as the mode says.
void selectGroup(Geoset& geoset, std::int16_t group, SelectMode mode);

/// Says which groups the selected vertices belong to.
std::string groupsOfSelection(const Geoset& geoset);

}  // namespace corvane
