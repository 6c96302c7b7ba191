// What the selection is: how many vertices and faces, where its centre lies; and changing it as a
// whole.
#pragma once

#include "base/geoset.h"

namespace corvane {

/// The number of selected vertices, deleted ones included.
int countSelectedVertices(const Geoset& geoset);

/// Whether the three corners of a face are all selected. Deleted flags do not count.
bool hasSelectedCorners(const Geoset& geoset, const FaceRecord& face);

/// The number of faces whose three corners are all selected, deleted ones included.
int countSelectedFaces(const Geoset& geoset);

/// The mean coordinate on one axis over the selected vertices that are not deleted, model units;
/// 0 where there are none.
double selectionCentre(const Geoset& geoset, Axis axis);

/// selectionCentre() of the three axes, in slot order.
Triple selectionCentre(const Geoset& geoset);

/// Selects every vertex, deleted ones included.
void selectAll(Geoset& geoset);

void invertSelection(Geoset& geoset);

/// Selects every vertex that a chain of faces connects to a selected one, whatever is deleted.
void expandSelection(Geoset& geoset);

/// Selects exactly the vertices from the 0-based index `first` on.
void selectFrom(Geoset& geoset, std::size_t first);

}  // namespace corvane
