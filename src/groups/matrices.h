// The matrix groups: which bones drive the vertices of each group.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/geoset.h"

namespace corvane {

/// The bones that a new group takes; any further one is dropped.
inline constexpr std::size_t kStoredBones = 4;

/// A list of all matrix groups, at most five bones of each, as pages of about 300 characters; lines
/// end with CR LF. The last page may be empty.
std::vector<std::string> matrixPages(const Geoset& geoset);

/// Appends a group of the first kStoredBones of these bones.
void appendMatrixGroup(Geoset& geoset, std::span<const std::int16_t> bones);

}  // namespace corvane
