#include "edit/clone.h"

#include <algorithm>

#include "edit/selection.h"
#include "views/ortho_view.h"

namespace corvane {

bool hasSelectedCorners(const Geoset& geoset, const FaceRecord& face) {
    return std::ranges::all_of(
        face.corner, [&](std::int16_t corner) { return geoset.vertexAt(corner).selected; });
}

int countSelectedFaces(const GeosetStore& store) {
    return static_cast<int>(std::ranges::count_if(
        store.Faces, [&](const FaceRecord& face) { return hasSelectedCorners(store, face); }));
}

bool fitsLimits(Editor& editor, const char* what, std::size_t addedVertices,
                std::size_t addedFaces) {
    const std::size_t vertices = editor.store.Vertices.size();
    const std::size_t faces = editor.store.Faces.size();
    if (vertices + addedVertices <= kMaxVertices && faces + addedFaces <= kMaxFaces) return true;
    const auto sum = [](std::size_t a, std::size_t b) {
        return std::to_string(a) + " + " + std::to_string(b) + " = " + std::to_string(a + b);
    };
    editor.dialogs.messageBox(
        kErrorCaption, std::string(what) + " would be too large: " + sum(vertices, addedVertices) +
                           " vertices (at most " + std::to_string(kMaxVertices) + "), " +
                           sum(faces, addedFaces) + " faces (at most " + std::to_string(kMaxFaces) +
                           "). Nothing was changed.");
    return false;
}

bool canClone(Editor& editor) {
    return fitsLimits(editor, "The cloned geoset",
                      static_cast<std::size_t>(numSelVerts(editor.store)),
                      static_cast<std::size_t>(countSelectedFaces(editor.store)));
}

std::vector<std::int16_t> copySelectedVertices(GeosetStore& store) {
    const std::size_t count = store.Vertices.size();
    std::vector<std::int16_t> copyOf(count, -1);
    store.Vertices.reserve(count + static_cast<std::size_t>(numSelVerts(store)));
    for (std::size_t i = 0; i < count; ++i) {
        if (!store.Vertices[i].selected) continue;
        copyOf[i] = static_cast<std::int16_t>(store.Vertices.size());
        store.Vertices.push_back(store.Vertices[i]);
    }
    return copyOf;
}

void selectFrom(GeosetStore& store, std::size_t first) {
    for (std::size_t i = 0; i < store.Vertices.size(); ++i) store.Vertices[i].selected = i >= first;
}

void cloneSelection(Editor& editor) {
    GeosetStore& store = editor.store;
    const std::size_t oldVertices = store.Vertices.size();
    const std::size_t oldFaces = store.Faces.size();
    const std::vector<std::int16_t> copyOf = copySelectedVertices(store);
    for (std::size_t i = 0; i < oldFaces; ++i) {
        if (!hasSelectedCorners(store, store.Faces[i])) continue;
        FaceRecord copy;  // not deleted, even where its source is
        std::ranges::transform(
            store.Faces[i].corner, copy.corner.begin(),
            [&](std::int16_t corner) { return copyOf[static_cast<std::size_t>(corner)]; });
        store.Faces.push_back(copy);
    }
    selectFrom(store, oldVertices);
    redrawAll(editor);
}

}  // namespace corvane
