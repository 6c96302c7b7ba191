// The one geoset that is being edited, with the model that it came from.
#pragma once

#include <optional>

#include "base/geoset.h"
#include "base/revision.h"
#include "model/model_document.h"

namespace corvane {

/// The edited geoset, the open model, and how the two stand to each other.
struct GeosetStore : Geoset, ModelDocument {
    Revisions revisions;

    /// The user was told that a save filled in rows.
    bool neutralRowsSaid = false;

    /// Whether something was changed that no save has written.
    bool isModified() const { return revisions.isModified() || hasUnsavedText(); }

    /// Takes a geoset that was read as the edited one.
    void takeGeoset(Geoset geoset, int number);

    /// The file holds the geoset in memory now. Throws nothing, as takeGeoset().
    void noteSaved();

    /// Whether a save would write the same as the file holds, as far as the geoset goes.
    bool isAsSaved() const;

private:
    std::optional<Geoset> saved_;  // the lists as the file holds them; nothing where unknown
};

}  // namespace corvane
