#include "edit/limits.h"

namespace corvane {

bool fitsLimits(const Geoset& geoset, Growth growth) {
    return geoset.Vertices.size() + growth.vertices <= kMaxVertices &&
           geoset.Faces.size() + growth.faces <= kMaxFaces;
}

std::string limitMessage(const std::string& what, const Geoset& geoset, Growth growth) {
    const auto sum = [](std::size_t a, std::size_t b) {
        return std::to_string(a) + " + " + std::to_string(b) + " = " + std::to_string(a + b);
    };
    return what + " would be too large: " + sum(geoset.Vertices.size(), growth.vertices) +
           " vertices (at most " + std::to_string(kMaxVertices) + "), " +
           sum(geoset.Faces.size(), growth.faces) + " faces (at most " + std::to_string(kMaxFaces) +
           "). Nothing was changed.";
}

}  // namespace corvane
