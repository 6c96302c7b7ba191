// Reads the sections of a geoset that hold lists of indices: Faces and Groups.
#pragma once

#include "base/geoset.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

struct ReadNotes;

/// Makes as many faces as the section lists, whatever its header counts: after faces were deleted
/// the header counts them still. Their corners must be among the geoset's vertices.
/// Throws ModelTextError; GeosetTooLarge where there are more faces than can be edited.
void readFaces(const ModelText& text, const Section& section, Geoset& geoset);

/// Adds the section's matrix groups. Throws ModelTextError.
void readGroups(const ModelText& text, const Section& section, Geoset& geoset, ReadNotes& notes);

}  // namespace corvane
