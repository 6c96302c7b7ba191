// Reads the sections of a geoset that hold one row for each vertex and are edited: Vertices,
// Normals, TVertices and VertexGroup.
#pragma once

#include "base/geoset.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

struct ReadNotes;

/// Makes as many vertices as the section Vertices has rows, and reads their positions.
/// Throws ModelTextError, also where there are more rows than the header says; GeosetTooLarge where
/// there are more than can be edited.
void readVertices(const ModelText& text, const Section& section, Geoset& geoset, ReadNotes& notes);

/// Reads row i of a section of another of these kinds into vertex i.
/// Throws ModelTextError, also where there are more rows than vertices.
void readVertexRows(const ModelText& text, const Section& section, Geoset& geoset,
                    ReadNotes& notes);

}  // namespace corvane
