// Duplicating the selected part of the geoset.
#pragma once

#include <span>

#include "editor.h"

namespace corvane {

/// Whether the three corners of a face are all selected. Deleted flags do not count.
bool hasSelectedCorners(const Geoset& geoset, const FaceRecord& face);

/// The number of faces whose three corners are all selected, deleted ones included.
int countSelectedFaces(const GeosetStore& store);

/// Whether the geoset may grow by that many vertices and faces. Where it may not, a message with
/// the numbers says so; `what` is what would be too large, as in "The cloned geoset".
bool fitsLimits(Editor& editor, const char* what, std::size_t addedVertices,
                std::size_t addedFaces);

/// Whether the selection can be cloned within the limits; a message where it cannot.
bool canClone(Editor& editor);

/// Appends copies of the selected vertices, deleted ones included, to the vertex list. Entry i of
/// the result is the 0-based index of the copy of vertex i, or -1 for one that is not selected.
std::vector<std::int16_t> copySelectedVertices(GeosetStore& store);

/// Selects exactly the vertices from the 0-based index `first` on.
void selectFrom(GeosetStore& store, std::size_t first);

/// Appends copies of the selected vertices and of the faces between them, selects exactly the
/// copies and redraws. canClone() comes first.
void cloneSelection(Editor& editor);

}  // namespace corvane
