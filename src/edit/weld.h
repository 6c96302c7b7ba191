// Bringing the selected vertices together in one place.
#pragma once

#include "base/geoset.h"

namespace corvane {

/// Puts every selected vertex on the selection's centre, on all three axes. They stay separate.
void snapSelected(Geoset& geoset);

/// The selected vertex with the lowest number goes to the selection's centre and takes the place of
/// the others in all faces that are not deleted; the others are flagged deleted and deselected.
/// Faces may end up with several corners on it. Nothing with nothing selected.
void weldSelected(Geoset& geoset);

}  // namespace corvane
