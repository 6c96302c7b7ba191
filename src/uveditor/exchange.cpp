#include "uveditor/exchange.h"

#include <algorithm>

#include "uveditor/uv_tools.h"
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

struct PlaneAxes {
    Axis u;
    Axis v;
};

// By RemapPlane.
constexpr std::array<PlaneAxes, 3> kPlanes = {
    {{Axis::X, Axis::Z}, {Axis::X, Axis::Y}, {Axis::Z, Axis::Y}}};

std::string flatMessage(Axis axis) {
    const std::string letter(1, static_cast<char>(letterOf(axis) - 'a' + 'A'));
    return "All selected vertices have the same " + letter +
           " coordinate, so they cannot be stretched on the " + letter +
           " axis. Nothing was changed; select more vertices, or remap from another view.";
}

std::string countText(std::size_t vertices) {
    return std::to_string(vertices) + (vertices == 1 ? " vertex" : " vertices");
}

// Whether the two agree as far as both reach.
bool agree(const std::vector<double>& a, const std::vector<double>& b) {
    const auto count = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    return std::equal(a.begin(), a.begin() + count, b.begin());
}

bool askWriteToOther(UVEditor& uv, const GeosetStore& store) {
    return uv.dialogs.yesNo(
        kWarningCaption, "A geoset was read since these texture coordinates were taken: geoset " +
                             std::to_string(store.geosetNumber) + " of " + store.modelPath +
                             ". It has " + countText(store.Vertices.size()) +
                             " too, so saving writes them over its own. Write them?");
}

// Tells of a Save Changes that fits only in part.
std::string partlySavedMessage(bool otherGeoset, std::size_t vertices, std::size_t taken,
                               std::size_t written) {
    const std::string firsts = "The first " + std::to_string(written);
    if (!otherGeoset) {
        return "The geoset has " + countText(vertices) + " now, but had " + std::to_string(taken) +
               " when its texture coordinates were taken. " + firsts +
               " were written back. Choose UV Mapping in the main window to take them anew.";
    }
    return "Another geoset was read since these texture coordinates were taken: it has " +
           countText(vertices) + ", theirs had " + std::to_string(taken) + ". " + firsts +
           " were written to it. If they do not belong there, Switch Geoset in the main window "
           "reads it again as it was last saved, without any of your later edits of it. Choose UV "
           "Mapping to take its own coordinates.";
}

}  // namespace

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

void openTextureEditor(Editor& editor) {
    if (!editor.store.modelLoaded) {
        editor.dialogs.messageBox("UV Mapping", "No model loaded.");
        return;
    }
    editor.window.showTextureEditor(uvDataOf(editor.store));
}

void takeHandOver(UVEditor& uv, Editor& editor, UVData data) {
    const bool mayBeUndone = editor.undo.savedFromTextureEditor;
    const bool undone = mayBeUndone && !(agree(uv.savedU, data.u) && agree(uv.savedV, data.v));
    if (undone &&
        !uv.dialogs.yesNo(kConfirmationCaption,
                          "Undo has put back texture coordinates from before Save Changes. Take "
                          "these, and lose those in the texture editor? (No keeps them; Save "
                          "Changes then writes them again.)")) {
        return;
    }
    editor.undo.inTextureEditor = true;
    getArray(uv, std::move(data));
    // Undo still holds older ones, however often they were handed over since.
    if (mayBeUndone) {
        uv.savedU = uv.data.u;
        uv.savedV = uv.data.v;
    }
}

void noteEdits(UVEditor& uv, const Editor& editor) {
    if (!editor.undo.savedFromTextureEditor || uv.unsaved) return;
    const std::vector<VertexRecord>& vertices = editor.store.Vertices;
    const std::size_t count = std::min(vertices.size(), uv.savedU.size());
    for (std::size_t i = 0; i < count && !uv.unsaved; ++i) {
        uv.unsaved = vertices[i].tu != uv.savedU[i] || vertices[i].tv != uv.savedV[i];
    }
    if (!uv.unsaved) return;
    editor.window.showTip(
        "Undo took back texture coordinates, too. Save Changes in the texture editor writes them "
        "again.");
    uv.window.updateButtons();
}

void getArray(UVEditor& uv, UVData data) {
    uv.data = std::move(data);
    uv.dataReceived = true;
    uv.unsaved = false;
    uv.savedU.clear();
    uv.savedV.clear();
    uv.window.updateButtons();
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
        VertexRecord& vertex = store.Vertices[i];
        if (vertex.tu == tx[i] && vertex.tv == ty[i]) continue;
        vertex.tu = tx[i];
        vertex.tv = ty[i];
        store.modified = true;
    }
    editor.window.updateButtons();
    return count;
}

void saveChanges(UVEditor& uv, Editor& editor) {
    const std::size_t vertices = editor.store.Vertices.size();
    const std::size_t taken = uv.data.u.size();
    const bool otherGeoset = !editor.undo.inTextureEditor;
    if (otherGeoset && vertices == taken && !askWriteToOther(uv, editor.store)) return;
    // First, for the main window looks for edits of what was saved.
    uv.savedU = uv.data.u;
    uv.savedV = uv.data.v;
    uv.savedU.resize(std::min(vertices, taken));
    uv.savedV.resize(std::min(vertices, taken));
    editor.undo.savedFromTextureEditor = true;
    const std::size_t written = saveUVChanges(editor, uv.data.u, uv.data.v);
    uv.unsaved = false;
    uv.window.updateButtons();
    if (vertices == taken) return;
    uv.dialogs.messageBox(kWarningCaption,
                          partlySavedMessage(otherGeoset, vertices, taken, written));
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

void remapSelection(UVEditor& uv, const Editor& editor, RemapPlane plane) {
    const PlaneAxes axes = kPlanes[static_cast<std::size_t>(plane)];
    if (!editor.undo.inTextureEditor) {
        uv.dialogs.messageBox(kErrorCaption,
                              "Another geoset was read since these texture coordinates were taken. "
                              "Its vertices lie elsewhere, so nothing was changed. Choose UV "
                              "Mapping in the main window to take its own coordinates.");
        return;
    }
    for (const Axis axis : {axes.u, axes.v}) {
        if (hasRemapExtent(editor.store, uv.data.selected, axis)) continue;
        uv.dialogs.messageBox(kErrorCaption, flatMessage(axis));
        return;
    }
    const std::vector<double> a = remap(editor.store, uv.data.selected, axes.u);
    const std::vector<double> b = remap(editor.store, uv.data.selected, axes.v);
    const std::size_t count = std::min(a.size(), uv.data.u.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (!uv.data.selected[i]) continue;
        assignCoordinate(uv, uv.data.u[i], a[i]);
        assignCoordinate(uv, uv.data.v[i], 1 - b[i]);
    }
    uv.window.updateButtons();
    redraw(uv);
}

}  // namespace corvane
