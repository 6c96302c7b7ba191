// Where everything goes that would otherwise be lost, so that it can be brought back. Kept narrow
// so that the commands need to know no folder, no thread and no clock.
#pragma once

#include <cstdint>
#include <string>

#include "model/snapshot.h"

namespace corvane {

/// Why something is kept.
enum class KeptBecause : std::uint8_t {
    Editing,         ///< edits that no save has written yet, while the program runs
    TextureEditing,  ///< texture coordinates of a geoset that left memory before, likewise
    Closed,          ///< the window was closed with unsaved edits
    Ended,           ///< the program was told to end
    AnotherOpened,   ///< another model was opened
    Switched,        ///< another geoset was read
    GeosetSaved,     ///< a geoset was saved alone, which then is the current model
    GeosetRemoved,   ///< a save removed a geoset
    LeftOut,         ///< a save left the geoset in memory out
    TextureDropped,  ///< texture coordinates not handed back were dropped
    Replaced,        ///< the text that a save replaced
};

/// Whether what is kept are edits that go on.
constexpr bool goesOn(KeptBecause because) {
    return because == KeptBecause::Editing || because == KeptBecause::TextureEditing;
}

/// Whether what is kept are edits that their user did not give up: the program was killed, or told
/// to end.
constexpr bool wasCutOff(KeptBecause because) {
    return goesOn(because) || because == KeptBecause::Ended;
}

/// The edits that go on of which something kept for a reason holds the same or more.
constexpr KeptBecause goingOnIn(KeptBecause because) {
    const bool isTexture =
        because == KeptBecause::TextureEditing || because == KeptBecause::TextureDropped;
    return isTexture ? KeptBecause::TextureEditing : KeptBecause::Editing;
}

class WayBack {
public:
    virtual ~WayBack() = default;

    /// Keeps a snapshot. That of edits that go on takes the place of the last one with that reason;
    /// with any other reason it is an entry of its own, and the last one of goingOnIn() goes. Takes
    /// no longer than it takes to hand the snapshot over.
    virtual void keep(Snapshot snapshot, KeptBecause because) = 0;

    /// Keeps the text that a save is about to replace at a path. The text must not change.
    virtual void keepReplaced(SharedBase text, const std::string& path) = 0;

    /// Something that is replaced or dropped could not be kept, for that reason: it is told.
    virtual void noteLost(const char* reason) = 0;

    /// The state kept while editing was saved: that entry goes.
    virtual void noteSaved() = 0;
};

}  // namespace corvane
