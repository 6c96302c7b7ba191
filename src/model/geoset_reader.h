// Reads one geoset of a model.
#pragma once

#include <cstddef>
#include <string>

#include "base/geoset.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

/// What the reader came across and mended.
struct ReadNotes {
    /// The normals' and texture coordinates' numbers that are not finite, such as "nan", and were
    /// read as 0.
    std::size_t notFinite = 0;
    std::size_t firstNotFinite = 0;  ///< the offset of the first of them in the text
};

/// Reads geoset `geosetNumber` (1-based) of a model whose geosets scanGeosets() found: vertices,
/// normals, texture coordinates, vertex groups, faces and matrix groups, all flags clear, and the
/// further sections with rows for its vertices. An empty geoset where the model has fewer geosets
/// than that.
/// Throws ModelTextError, naming the line, where the geoset cannot be read.
Geoset parseGeoset(const ModelText& text, const std::vector<GeosetBlock>& geosets, int geosetNumber,
                   ReadNotes* notes = nullptr);

}  // namespace corvane
