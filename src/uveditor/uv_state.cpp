#include "uveditor/uv_state.h"

namespace corvane {

UVData uvDataOf(const Geoset& geoset) {
    UVData data;
    data.u.reserve(geoset.Vertices.size());
    data.v.reserve(geoset.Vertices.size());
    data.deleted.reserve(geoset.Vertices.size());
    data.selected.reserve(geoset.Vertices.size());
    data.faces.reserve(geoset.Faces.size());
    for (const VertexRecord& vertex : geoset.Vertices) {
        data.u.push_back(vertex.tu);
        data.v.push_back(vertex.tv);
        data.deleted.push_back(vertex.deleted);
        data.selected.push_back(vertex.selected);
    }
    for (const FaceRecord& face : geoset.Faces) data.faces.push_back(face.corner);
    return data;
}

}  // namespace corvane
