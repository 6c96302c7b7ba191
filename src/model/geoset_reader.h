// Reads one geoset of a model.
#pragma once

#include "model/geoset_store.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

/// Reads geoset `geosetNumber` (1-based) of a model whose geosets scanGeosets() found: vertices,
/// normals, texture coordinates, vertex groups, faces and matrix groups, all flags clear. An empty
/// geoset where the model has fewer geosets than that.
/// Throws ModelTextError, naming the line, where the geoset cannot be read.
Geoset parseGeoset(const ModelText& text, const std::vector<GeosetBlock>& geosets,
                   int geosetNumber);

}  // namespace corvane
