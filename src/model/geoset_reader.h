// Reads one geoset of a model.
#pragma once

#include "base/geoset.h"
#include "model/model_scanner.h"
#include "model/model_text.h"
#include "model/read_notes.h"

namespace corvane {

/// Reads geoset `geosetNumber` (1-based) of a model whose geosets scanGeosets() found: vertices,
/// normals, texture coordinates, vertex groups, faces and matrix groups, all flags clear, and the
/// further sections with rows for its vertices. An empty geoset where the model has fewer geosets
/// than that.
/// Lists are as long as the rows that the file has for them, whatever its headers count.
/// Throws ModelTextError, naming the line, where the geoset cannot be read; GeosetTooLarge where
/// there is more of it than can be edited.
Geoset parseGeoset(const ModelText& text, const std::vector<GeosetBlock>& geosets, int geosetNumber,
                   ReadNotes* notes = nullptr);

/// Gives a geoset what another one, read from the file that it was just written to, knows of that
/// file: its further sections, and the rows in them that belong to the vertices.
void takeFileData(Geoset& geoset, Geoset read);

}  // namespace corvane
