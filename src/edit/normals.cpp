#include "edit/normals.h"

#include <cmath>
#include <optional>
#include <span>
#include <vector>

#include "edit/positions.h"
#include "edit/selection.h"

namespace corvane {

namespace {

double lengthOf(const Triple& v) { return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]); }

// The unit vector that points from q to p.
Triple unitDirection(const Triple& p, const Triple& q) {
    return normalise({p[0] - q[0], p[1] - q[1], p[2] - q[2]});
}

// Which faces have a corner at each position, in face order and each once.
class FacesAtPositions {
public:
    FacesAtPositions(const Geoset& geoset, const std::vector<std::uint32_t>& ids)
        : geoset_(geoset), ids_(ids), begin_(geoset.Vertices.size() + 1) {
        forEachPosition([&](std::uint32_t id, std::size_t) { ++begin_[id + 1]; });
        for (std::size_t id = 1; id < begin_.size(); ++id) begin_[id] += begin_[id - 1];
        std::vector<std::size_t> next = begin_;
        faces_.resize(begin_.back());
        forEachPosition([&](std::uint32_t id, std::size_t face) { faces_[next[id]++] = face; });
    }

    std::span<const std::size_t> at(std::uint32_t id) const {
        return std::span(faces_).subspan(begin_[id], begin_[id + 1] - begin_[id]);
    }

private:
    template <class Visit>
    void forEachPosition(Visit visit) const {
        for (std::size_t face = 0; face < geoset_.Faces.size(); ++face) {
            const auto [a, b, c] = geoset_.Faces[face].corner;
            const std::uint32_t idA = ids_[static_cast<std::size_t>(a)];
            const std::uint32_t idB = ids_[static_cast<std::size_t>(b)];
            const std::uint32_t idC = ids_[static_cast<std::size_t>(c)];
            visit(idA, face);
            if (idB != idA) visit(idB, face);
            if (idC != idA && idC != idB) visit(idC, face);
        }
    }

    const Geoset& geoset_;
    const std::vector<std::uint32_t>& ids_;
    std::vector<std::size_t> begin_;  // of each position's part of faces_
    std::vector<std::size_t> faces_;
};

// The corner (0 to 2) of a face at a position. Of several it is the one with the highest vertex
// number, and of those the last.
std::size_t cornerAt(const FaceRecord& face, const std::vector<std::uint32_t>& ids,
                     std::uint32_t id) {
    std::optional<std::size_t> found;
    for (std::size_t k = 0; k < face.corner.size(); ++k) {
        if (ids[static_cast<std::size_t>(face.corner[k])] != id) continue;
        if (!found || face.corner[k] >= face.corner[*found]) found = k;
    }
    return found.value();
}

Triple normalAt(const Geoset& geoset, const std::vector<std::uint32_t>& ids,
                const FacesAtPositions& faces, std::uint32_t id) {
    // The other two corners, in the order in which their directions are added.
    constexpr std::array<std::array<std::size_t, 2>, 3> kOthers = {{{1, 2}, {0, 2}, {1, 0}}};
    Triple sum{};
    for (const std::size_t index : faces.at(id)) {
        const FaceRecord& face = geoset.Faces[index];
        const std::size_t k = cornerAt(face, ids, id);
        const Triple& c = geoset.vertexAt(face.corner[k]).pos;
        const Triple fromA = unitDirection(c, geoset.vertexAt(face.corner[kOthers[k][0]]).pos);
        const Triple fromB = unitDirection(c, geoset.vertexAt(face.corner[kOthers[k][1]]).pos);
        for (std::size_t i = 0; i < sum.size(); ++i) sum[i] = sum[i] + fromA[i] + fromB[i];
    }
    return normalise(sum);
}

}  // namespace

Triple normalise(const Triple& vector) {
    const double length = lengthOf(vector);
    if (length == 0 || !std::isfinite(length)) return {1, 0, 0};
    return {vector[0] / length, vector[1] / length, vector[2] / length};
}

void recalculateNormals(Geoset& geoset) {
    const std::vector<std::uint32_t> ids = positionIds(geoset.Vertices);
    const FacesAtPositions faces(geoset, ids);
    std::vector<std::optional<Triple>> known(geoset.Vertices.size());
    for (std::size_t i = 0; i < geoset.Vertices.size(); ++i) {
        if (!geoset.Vertices[i].selected) continue;
        // Vertices at the same place see the same faces.
        std::optional<Triple>& normal = known[ids[i]];
        if (!normal) normal = normalAt(geoset, ids, faces, ids[i]);
        geoset.Vertices[i].normal = *normal;
    }
}

NormalSum sumOfNormals(const Geoset& geoset) {
    NormalSum sum;
    for (const VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected) continue;
        for (std::size_t i = 0; i < sum.sum.size(); ++i) sum.sum[i] += vertex.normal[i];
    }
    sum.length = lengthOf(sum.sum);
    return sum;
}

void snapNormals(Geoset& geoset, const NormalSum& sum) {
    const Triple normal = {sum.sum[0] / sum.length, sum.sum[1] / sum.length,
                           sum.sum[2] / sum.length};
    for (VertexRecord& vertex : geoset.Vertices) {
        if (vertex.selected) vertex.normal = normal;
    }
}

}  // namespace corvane
