#include "model/geoset_store.h"

#include <utility>

#include "model/geoset_sections.h"

namespace corvane {

void GeosetStore::takeGeoset(Geoset geoset, int number) {
    static_cast<Geoset&>(*this) = std::move(geoset);
    geosetNumber = number;
    modelLoaded = true;
    neutralRowsSaid = false;
    noteGeosetRead();
    revisions.noteRead();
    noteSaved();
}

void GeosetStore::noteSaved() {
    revisions.noteSaved();
    saved_ = {.Vertices = Vertices,
              .Faces = Faces,
              .matrixGroups = matrixGroups,
              .rowSections = {},
              .sectionsRead = {},
              .groupsRead = {}};
}

bool GeosetStore::isAsSaved() const { return writesTheSame(*this, saved_); }

}  // namespace corvane
