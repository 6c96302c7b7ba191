// The commands that write the model file or change what a save will write.
#pragma once

#include <optional>
#include <string>

#include "editor.h"

namespace corvane {

/// Asks for a file to write a model to. Nothing where the user cancels, or after a message where
/// the file is the working copy.
std::optional<std::string> askSavePath(Editor& editor);

/// Writes the model: the working copy with the edited geoset's sections from the store, or with
/// `singleGeoset` that geoset alone as an unanimated model. `askPath` asks for the file first,
/// which then is the current model. A geoset with no vertex or no face left is removed from the
/// file instead, and another one chosen and read. Messages for what fails; the file, the working
/// copy and the store are then as they were.
void writeModel(Editor& editor, bool singleGeoset, bool askPath);

/// The command Delete Current Geoset: after a confirmation removes the geoset from the working
/// copy. The store keeps it, and the model file changes with the next save.
void deleteCurrentGeoset(Editor& editor);

}  // namespace corvane
