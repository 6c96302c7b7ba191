// How texture coordinates come to the texture editor and back.
#pragma once

#include <optional>
#include <span>

#include "editor/editor.h"
#include "model/snapshot.h"
#include "uveditor/commands/uv_editor.h"
#include "uveditor/remap.h"

namespace corvane {

/// The command UV Mapping: shows the texture editor with the geoset's texture coordinates. A
/// message where no model is loaded.
void openTextureEditor(Editor& editor);

/// What its window does with that: getArray(). Where Undo has put back coordinates from before
/// Save Changes, the user is asked first, for nothing else holds the later ones any more.
void takeHandOver(UVEditor& uv, Editor& editor, UVData data);

/// After any edit of the geoset: where it no longer has the texture coordinates that Save Changes
/// wrote, because Undo took them back, the texture editor's count as unsaved again, and a notice in
/// both windows says so until that is settled.
void noteEdits(UVEditor& uv, const Editor& editor);

/// A mesh with the texture editor's coordinates that Save Changes has not written: that in memory,
/// or the one that was there when they were taken. Nothing where there are none.
std::optional<Snapshot> unsavedTexture(const UVEditor& uv, const GeosetStore& store);

/// Whether the texture editor's data was taken from the mesh in memory.
bool isTakenFrom(const UVState& uv, const GeosetStore& store);

/// Before another mesh may be read: writes coordinates of the one in memory that Save Changes has
/// not written into a snapshot of it, and remembers that for what is changed later. Whether there
/// were any.
bool addUnsavedTexture(UVEditor& uv, const GeosetStore& store, Snapshot& mesh);

/// Takes new data into the texture editor, in place of what it had, brings the background picture
/// up to date (refreshPicture()), and redraws. Zoom, pan and modes stay, and so does a picture that
/// the user has chosen.
void getArray(UVEditor& uv, const Editor& editor, UVData data);

/// Writes texture coordinates back to the geoset, entry i to vertex i. Where the lists differ in
/// length only the common range is written. Returns the number of vertices written. No undo step.
std::size_t saveUVChanges(Editor& editor, std::span<const double> tx, std::span<const double> ty);

/// The command Save Changes of the texture editor: saveUVChanges(). Where the vertices in memory
/// are not those handed over (a geoset was read since, or the list was cut and grew again) the user
/// is asked first, and after a Yes both sides are one again. Where the geoset only has more or
/// fewer vertices than when it was handed over a message says so.
void saveChanges(UVEditor& uv, Editor& editor);

/// The command Remap: gives the selected texture vertices the coordinates of a projection from
/// one side. A message, and no change, where the selection is flat
/// on an axis or the positions would be those of another geoset.
void remapSelection(UVEditor& uv, const Editor& editor, RemapPlane plane);

}  // namespace corvane
