// A model to start from.
#pragma once

#include <string_view>

#include "editor/editor.h"

namespace corvane {

/// The text of the template: the corners of a box as the vertices of one geoset.
std::string_view templateModel();

/// The command New: asks for a file, writes the template to it and makes it the path that the next
/// save writes to. Does not open it. A message where it cannot be written.
void newModel(Editor& editor);

}  // namespace corvane
