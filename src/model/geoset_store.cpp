#include "model/geoset_store.h"

#include <new>
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
    saved_.reset();
    try {
        saved_ = {.Vertices = Vertices,
                  .Faces = Faces,
                  .matrixGroups = matrixGroups,
                  .rowSections = {},
                  .sectionsRead = {},
                  .groupsRead = {}};
    } catch (const std::bad_alloc&) {
        // The file is written, or the model open: without the copy no Undo leads back to that.
    }
}

bool GeosetStore::isAsSaved() const { return saved_ && writesTheSame(*this, *saved_); }

}  // namespace corvane
