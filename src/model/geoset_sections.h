// The text of the sections that are written anew, made from a geoset. What is flagged deleted is
// dropped here, and only here, and face corners are renumbered to match.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/geoset.h"
#include "model/model_scanner.h"

namespace corvane {

/// The numbering that a save gives to the vertices it keeps.
class KeptVertices {
public:
    explicit KeptVertices(const Geoset& geoset);

    /// The number of vertices that are not deleted.
    int count() const { return count_; }

    /// The 0-based index in the saved file of the vertex with the 1-based number `vertexNumber`:
    /// the vertices kept up to and including it, less 1.
    std::int16_t newVertexIndex(int vertexNumber) const {
        return newIndex_[static_cast<std::size_t>(vertexNumber) - 1];
    }

private:
    std::vector<std::int16_t> newIndex_;
    int count_ = 0;
};

/// The faces whose three corners are all kept. Does not look at the faces' own deleted flags.
int countKeptFaces(const Geoset& geoset);

/// Whether the vertices, faces or groups that a save keeps hold anything for a section that the
/// file may lack: then it must be written. Never for Vertices, which no geoset lacks.
bool hasDataFor(SectionKind kind, const Geoset& geoset);

/// Whether what the file says about groups still holds: no matrix group was added, and no vertex
/// that a save keeps was given a group.
bool hasGroupsAsRead(const Geoset& geoset);

/// Whether a save would write the same sections for both, as far as they are made from the records.
bool writesTheSame(const Geoset& a, const Geoset& b);

/// Appends a section from its header on, up to but without its closing line. `lineBreak` ends
/// every line. In `singleGeoset` mode every vertex belongs to the one group there is.
void appendSection(std::string& out, SectionKind kind, const Geoset& geoset,
                   const KeptVertices& kept, bool singleGeoset, std::string_view lineBreak);

}  // namespace corvane
