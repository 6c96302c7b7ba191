// Taking the selection out of the mesh. Nothing leaves the lists: only flags are set.
#pragma once

#include "base/geoset.h"

namespace corvane {

/// Flags every selected vertex deleted. It stays selected.
void deleteSelected(Geoset& geoset);

/// Clears the deleted flag of every selected vertex.
void undeleteSelected(Geoset& geoset);

/// Flags every face deleted whose three corners are all selected. The vertices stay.
void deleteSelectedFaces(Geoset& geoset);

}  // namespace corvane
