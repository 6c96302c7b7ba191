#include "edit/deletion.h"

#include "edit/selection.h"

namespace corvane {

void deleteSelected(Geoset& geoset) {
    for (VertexRecord& vertex : geoset.Vertices) {
        if (vertex.selected) vertex.deleted = true;
    }
}

void undeleteSelected(Geoset& geoset) {
    for (VertexRecord& vertex : geoset.Vertices) {
        if (vertex.selected) vertex.deleted = false;
    }
}

void deleteSelectedFaces(Geoset& geoset) {
    for (FaceRecord& face : geoset.Faces) {
        if (!face.deleted && hasSelectedCorners(geoset, face)) face.deleted = true;
    }
}

}  // namespace corvane
