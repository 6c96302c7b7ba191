// Setting the normals of the selected vertices.
#pragma once

#include <cmath>

#include "base/geoset.h"

namespace corvane {

/// A vector divided by its length; (1, 0, 0) where the length is 0, or too large for a number.
Triple normalise(const Triple& vector);

/// Gives every selected vertex the normalised sum of the unit vectors that point to it from its
/// neighbours in every face around its position, deleted faces included. So it points out of a
/// bump, whatever way round the faces are.
void recalculateNormals(Geoset& geoset);

/// The sum of the selected vertices' normals.
struct NormalSum {
    Triple sum{};
    double length = 0;  ///< 0 where they cancel each other out, not finite where they are too large

    bool hasDirection() const { return length != 0 && std::isfinite(length); }
};
NormalSum sumOfNormals(const Geoset& geoset);

/// Gives all selected vertices the direction of that sum, which must have one.
void snapNormals(Geoset& geoset, const NormalSum& sum);

}  // namespace corvane
