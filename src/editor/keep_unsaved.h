// What commands call before they drop something.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// Keeps the model as a save would write it, where it or the texture editor has unsaved changes.
void keepUnsaved(Editor& editor, KeptBecause because);

/// The same whether or not anything is unsaved: the geoset in memory is about to be lost.
void keepGeoset(Editor& editor, KeptBecause because);

}  // namespace corvane
