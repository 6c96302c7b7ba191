#include "uveditor/exchange.h"

#include <algorithm>
#include <optional>

#include "uveditor/uv_view.h"

namespace corvane {

namespace {

// Where the search for the extremes of a projection starts, model units.
constexpr double kRemapBound = 6400;

struct Range {
    double low = kRemapBound;
    double high = -kRemapBound;
    bool any = false;
};

template <class Visit>
void forEachSelected(const Geoset& geoset, const std::vector<bool>& selected, Visit visit) {
    const std::size_t count = std::min(geoset.Vertices.size(), selected.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (selected[i]) visit(i);
    }
}

Range rangeOf(const Geoset& geoset, const std::vector<bool>& selected, Axis axis) {
    Range range;
    forEachSelected(geoset, selected, [&](std::size_t i) {
        const double c = geoset.Vertices[i].pos[slotOf(axis)];
        range.low = std::min(range.low, c);
        range.high = std::max(range.high, c);
        range.any = true;
    });
    return range;
}

struct Plane {
    const char* view;
    Axis u;
    Axis v;
};

constexpr std::array<Plane, 3> kPlanes = {
    {{"Top", Axis::X, Axis::Z}, {"Front", Axis::X, Axis::Y}, {"Left", Axis::Z, Axis::Y}}};

std::string flatMessage(Axis axis) {
    const std::string letter(1, static_cast<char>(letterOf(axis) - 'a' + 'A'));
    return "All selected vertices have the same " + letter +
           " coordinate, so they cannot be stretched on the " + letter +
           " axis. Nothing was changed; select more vertices, or remap from another view.";
}

}  // namespace

UVData uvDataOf(const Geoset& geoset) {
    UVData data;
    for (const VertexRecord& vertex : geoset.Vertices) {
        data.u.push_back(vertex.tu);
        data.v.push_back(vertex.tv);
        data.deleted.push_back(vertex.deleted);
        data.selected.push_back(vertex.selected);
    }
    for (const FaceRecord& face : geoset.Faces) data.faces.push_back(face.corner);
    return data;
}

void openTextureEditor(Editor& editor) {
    if (!editor.store.modelLoaded) {
        editor.dialogs.messageBox("UV Mapping", "No model loaded.");
        return;
    }
    editor.window.showTextureEditor(uvDataOf(editor.store));
}

void getArray(UVEditor& uv, UVData data) {
    uv.data = std::move(data);
    uv.dataReceived = true;
    if (uv.imageLoaded) {
        const std::string reason = uv.window.loadPicture(uv.imagePath);
        if (!reason.empty()) showPictureError(uv, uv.imagePath, reason);
    }
    redraw(uv);
}

std::size_t saveUVChanges(Editor& editor, std::span<const double> tx, std::span<const double> ty) {
    GeosetStore& store = editor.store;
    const std::size_t count = std::min({store.Vertices.size(), tx.size(), ty.size()});
    for (std::size_t i = 0; i < count; ++i) {
        store.Vertices[i].tu = tx[i];
        store.Vertices[i].tv = ty[i];
    }
    if (count > 0) store.modified = true;
    editor.window.updateButtons();
    return count;
}

void saveChanges(UVEditor& uv, Editor& editor) {
    const std::size_t vertices = editor.store.Vertices.size();
    const std::size_t written = saveUVChanges(editor, uv.data.u, uv.data.v);
    if (vertices == uv.data.u.size()) return;
    uv.dialogs.messageBox(
        kWarningCaption,
        "The geoset has " + std::to_string(vertices) + " vertices now, but had " +
            std::to_string(uv.data.u.size()) +
            " when its texture coordinates were taken. The first " + std::to_string(written) +
            " were written back. Choose UV Mapping in the main window to take them anew.");
}

std::vector<double> remap(const Geoset& geoset, const std::vector<bool>& selected, Axis axis) {
    std::vector<double> result(geoset.Vertices.size());
    const Range range = rangeOf(geoset, selected, axis);
    if (range.high == range.low) return result;
    forEachSelected(geoset, selected, [&](std::size_t i) {
        result[i] = (geoset.Vertices[i].pos[slotOf(axis)] - range.low) / (range.high - range.low);
    });
    return result;
}

bool hasRemapExtent(const Geoset& geoset, const std::vector<bool>& selected, Axis axis) {
    const Range range = rangeOf(geoset, selected, axis);
    return !range.any || range.high != range.low;
}

void remapSelection(UVEditor& uv, const Editor& editor, const std::string& view) {
    const auto* const plane = std::ranges::find_if(
        kPlanes, [&](const Plane& candidate) { return candidate.view == view; });
    if (plane == kPlanes.end()) return;
    for (const Axis axis : {plane->u, plane->v}) {
        if (hasRemapExtent(editor.store, uv.data.selected, axis)) continue;
        uv.dialogs.messageBox(kErrorCaption, flatMessage(axis));
        return;
    }
    const std::vector<double> a = remap(editor.store, uv.data.selected, plane->u);
    const std::vector<double> b = remap(editor.store, uv.data.selected, plane->v);
    const std::size_t count = std::min(a.size(), uv.data.u.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (!uv.data.selected[i]) continue;
        uv.data.u[i] = a[i];
        uv.data.v[i] = 1 - b[i];
    }
    redraw(uv);
}

}  // namespace corvane
