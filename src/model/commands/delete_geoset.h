// The command that takes a geoset out of what a save will write.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// The command Delete Current Geoset: after a confirmation removes the geoset from the working
/// copy. The store keeps it, and the model file changes with the next save.
void deleteCurrentGeoset(Editor& editor);

}  // namespace corvane
