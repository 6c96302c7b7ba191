#include "model/snapshot.h"

#include <algorithm>

#include "model/geoset_store.h"
#include "model/row_sections.h"

namespace corvane {

namespace {

// The geoset with its further sections written as they were read, whatever became of its vertices.
Geoset withRowsAsRead(Geoset geoset) {
    std::int16_t row = 0;
    for (VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.deleted) vertex.fileRow = row++;
    }
    std::vector<RowSection> sections(geoset.rowSections.begin(), geoset.rowSections.end());
    for (RowSection& rows : sections) rows.vertexCount = static_cast<std::size_t>(row);
    geoset.rowSections = std::move(sections);
    return geoset;
}

}  // namespace

Snapshot snapshotOf(const GeosetStore& store) {
    return {.base = store.geosetBase(),
            .geosetNumber = store.geosetNumber,
            .modelPath = store.filePath().empty() ? store.modelPath : store.filePath(),
            .geoset = static_cast<const Geoset&>(store),
            .stamp = store.knownStamp()};
}

std::optional<Snapshot> unsavedRemoval(const GeosetStore& store) {
    if (!store.isGeosetRemoved() || !store.hasUnsavedText()) return std::nullopt;
    return Snapshot{.base = store.sharedBase(),
                    .geosetNumber = 0,
                    .modelPath = store.filePath().empty() ? store.modelPath : store.filePath(),
                    .geoset = {},
                    .stamp = store.knownStamp()};
}

void mergeTexture(Snapshot& snapshot, std::span<const double> u, std::span<const double> v,
                  std::size_t most) {
    std::vector<VertexRecord>& vertices = snapshot.geoset.Vertices;
    const std::size_t count = std::min({vertices.size(), u.size(), v.size(), most});
    for (std::size_t i = 0; i < count; ++i) {
        vertices[i].tu = u[i];
        vertices[i].tv = v[i];
    }
}

PiecedText composeSnapshot(const Snapshot& snapshot) {
    const ModelBase& base = *snapshot.base;
    if (base.hasGeoset(snapshot.geosetNumber)) {
        const auto compose = [&](const Geoset& geoset) {
            return composeModel(base.text, base.geosets, snapshot.geosetNumber, geoset);
        };
        try {
            return compose(snapshot.geoset);
        } catch (const RowsCannotFollow&) {
            // The edits count for more.
            return compose(withRowsAsRead(snapshot.geoset));
        }
    }
    PiecedText text;
    text.addView(base.text.view());
    return text;
}

}  // namespace corvane
