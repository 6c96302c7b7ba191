#include "edit/positions.h"

#include <bit>
#include <unordered_map>

namespace corvane {

namespace {

struct HashPosition {
    std::size_t operator()(const Triple& pos) const {
        std::uint64_t hash = 0;
        for (const double coordinate : pos) {
            // Adding 0 turns -0 into 0, so that equal numbers have equal bits.
            hash = (hash ^ std::bit_cast<std::uint64_t>(coordinate + 0.0)) * 0x9E3779B97F4A7C15U;
            hash ^= hash >> 32U;
        }
        return hash;
    }
};

}  // namespace

std::vector<std::uint32_t> positionIds(const std::vector<VertexRecord>& vertices) {
    std::unordered_map<Triple, std::uint32_t, HashPosition> known;
    known.reserve(vertices.size());
    std::vector<std::uint32_t> ids;
    ids.reserve(vertices.size());
    for (const VertexRecord& vertex : vertices) {
        const auto next = static_cast<std::uint32_t>(known.size());
        ids.push_back(known.try_emplace(vertex.pos, next).first->second);
    }
    return ids;
}

}  // namespace corvane
