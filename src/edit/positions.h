// Vertices that lie at exactly the same place, as at the seams of a texture.
#pragma once

#include <cstdint>
#include <vector>

#include "base/geoset.h"

namespace corvane {

/// For each vertex a number that it shares with exactly the vertices at the same position (equal
/// coordinates on all axes; 0 and -0 are equal), counted from 0 in the order of first occurrence.
std::vector<std::uint32_t> positionIds(const std::vector<VertexRecord>& vertices);

}  // namespace corvane
