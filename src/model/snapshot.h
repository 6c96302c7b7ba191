// The model as a save would write it, taken between two events: what is needed to write it later,
// on another thread, with nothing shared that changes.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "base/geoset.h"
#include "model/model_document.h"

namespace corvane {

struct GeosetStore;

/// A copy of the edited geoset, and the text that it has its place in.
struct Snapshot {
    SharedBase base;        ///< never changes
    int geosetNumber = 0;   ///< 1-based, of the geoset's place in the base
    std::string modelPath;  ///< the file that the model came from
    Geoset geoset;
    /// Of the model file when it was last read or written; nothing where it is not known.
    std::optional<FileStamp> stamp{};
};

/// A snapshot of what is in memory. The model must be open.
Snapshot snapshotOf(const GeosetStore& store);

/// The text in memory alone, where the geoset in memory was removed from it and no file holds that.
std::optional<Snapshot> unsavedRemoval(const GeosetStore& store);

/// Writes texture coordinates into a snapshot, entry i to vertex i, as far as both lists reach, and
/// to the first `most` vertices at the most.
void mergeTexture(Snapshot& snapshot, std::span<const double> u, std::span<const double> v,
                  std::size_t most = kMaxVertices);

/// The model with the snapshot's geoset in its place, complete, also where a save would leave the
/// geoset out because it has no face. Where the base has no place for a geoset, the base as it is.
/// Sections whose rows cannot follow their vertices stay as they were read. Throws
/// std::runtime_error where sections cannot be found.
PiecedText composeSnapshot(const Snapshot& snapshot);

}  // namespace corvane
