// How large a geoset may grow.
#pragma once

#include <cstddef>
#include <string>

#include "base/geoset.h"

namespace corvane {

/// What an operation adds to a geoset.
struct Growth {
    std::size_t vertices = 0;
    std::size_t faces = 0;
};

/// Whether the geoset stays within kMaxVertices and kMaxFaces.
bool fitsLimits(const Geoset& geoset, Growth growth);

/// Says with the numbers what does not fit; `what` would be too large, as in "The cloned geoset".
std::string limitMessage(const std::string& what, const Geoset& geoset, Growth growth);

}  // namespace corvane
