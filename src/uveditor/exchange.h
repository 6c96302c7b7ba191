// How texture coordinates come to the texture editor and back.
#pragma once

#include <span>

#include "editor.h"
#include "uveditor/uv_editor.h"

namespace corvane {

/// Copies of what the texture editor works on.
UVData uvDataOf(const Geoset& geoset);

/// The command UV Mapping: shows the texture editor with the geoset's texture coordinates. A
/// message where no model is loaded.
void openTextureEditor(Editor& editor);

/// What its window does with that: getArray(). Where Undo has put back coordinates from before
/// Save Changes, the user is asked first, for nothing else holds the later ones any more.
void takeHandOver(UVEditor& uv, Editor& editor, UVData data);

/// After any edit of the geoset: where it no longer has the texture coordinates that Save Changes
/// wrote, because Undo took them back, the texture editor's count as unsaved again, and a tip says
/// so.
void noteEdits(UVEditor& uv, const Editor& editor);

/// Takes new data into the texture editor, in place of what it had, loads the background picture
/// again if there is one, and redraws. Zoom, pan, picture and modes stay.
void getArray(UVEditor& uv, UVData data);

/// Writes texture coordinates back to the geoset, entry i to vertex i. Where the lists differ in
/// length only the common range is written. Returns the number of vertices written. No undo step.
std::size_t saveUVChanges(Editor& editor, std::span<const double> tx, std::span<const double> ty);

/// The command Save Changes of the texture editor: saveUVChanges(). Where the geoset has more or
/// fewer vertices than when it was handed over a message says so; where another geoset was read
/// since that has as many, the user is asked first.
void saveChanges(UVEditor& uv, Editor& editor);

/// The coordinates of the selected vertices on one axis, stretched so that the least becomes 0 and
/// the greatest 1; 0 for the others. Extremes beyond 6400 model units from the origin on one side
/// only are not recognised as such. An axis on which the selection has no extent gives 0
/// everywhere. Entries of `selected` beyond the vertex list count for nothing.
std::vector<double> remap(const Geoset& geoset, const std::vector<bool>& selected, Axis axis);

/// Whether remap() has an extent to stretch on that axis, or nothing is selected.
bool hasRemapExtent(const Geoset& geoset, const std::vector<bool>& selected, Axis axis);

/// The view that Remap projects from.
enum class RemapPlane { Top, Front, Left };

/// The command Remap: gives the selected texture vertices the coordinates of a projection, and
/// redraws. A message, and no change, where the selection is flat on an axis or the positions
/// would be those of another geoset.
void remapSelection(UVEditor& uv, const Editor& editor, RemapPlane plane);

}  // namespace corvane
