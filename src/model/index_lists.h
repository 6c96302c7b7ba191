// Reads the sections of a geoset that hold lists of indices: Faces and Groups.
#pragma once

#include "base/geoset.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

/// Makes as many faces as the section's header says, and reads their corners, which must be among
/// the geoset's vertices. Throws ModelTextError.
void readFaces(const ModelText& text, const Section& section, Geoset& geoset);

/// Adds the section's matrix groups. Throws ModelTextError.
void readGroups(const ModelText& text, const Section& section, Geoset& geoset);

}  // namespace corvane
