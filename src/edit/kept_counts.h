// How much of a geoset there is, as far as a save would write it.
#pragma once

#include "base/geoset.h"

namespace corvane {

/// What is not deleted. A face with a deleted corner counts as deleted, as the writer leaves it
/// out; one is selected where its three corners are.
struct KeptCounts {
    int vertices = 0;
    int faces = 0;
    int selectedVertices = 0;
    int selectedFaces = 0;

    bool operator==(const KeptCounts&) const = default;
};

KeptCounts countKept(const Geoset& geoset);

}  // namespace corvane
