// The commands that write the model file.
#pragma once

#include <optional>
#include <string>

#include "editor/editor.h"

namespace corvane {

/// Asks for a file to write a model to, in a dialog with a title, which starts with a path. Nothing
/// where the user cancels, or after a message where the file is the working copy.
std::optional<std::string> askSavePath(Editor& editor, const std::string& title,
                                       const std::string& proposed);

/// The commands Save, Save As and Save Geoset. Save writes the model with the geoset in memory;
/// Save As asks for the file first, which then is the current model; Save Geoset writes that geoset
/// alone to a file that it asks for, as an unanimated model. A geoset with no vertex or no face
/// left is removed from the file instead, and another one chosen and read. Messages for what fails;
/// the file, the working copy and the store are then as they were.
void save(Editor& editor);
void saveAs(Editor& editor);
void saveGeoset(Editor& editor);

}  // namespace corvane
