// The model as a save would write it, taken between two events: what is needed to write it later,
// on another thread, with nothing shared that changes.
#pragma once

#include <string>

#include "base/geoset.h"
#include "model/model_document.h"

namespace corvane {

/// A copy of the edited geoset, and the text that it has its place in.
struct Snapshot {
    SharedBase base;        ///< never changes
    int geosetNumber = 0;   ///< 1-based, of the geoset's place in the base
    std::string modelPath;  ///< where a save would write it
    Geoset geoset;
};

/// The model with the snapshot's geoset in its place, complete, also where a save would leave the
/// geoset out because it has no face. Where the base has no place for a geoset, the base as it is.
/// Throws std::runtime_error where rows cannot follow their vertices or sections cannot be found.
PiecedText composeSnapshot(const Snapshot& snapshot);

}  // namespace corvane
