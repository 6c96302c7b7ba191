#include "uveditor/commands/exchange.h"

#include <algorithm>
#include <string>

#include "editor/run_edit.h"
#include "model/snapshot.h"
#include "uveditor/commands/model_texture.h"
#include "uveditor/commands/texture_commands.h"
#include "uveditor/uv_tools.h"

namespace corvane {

namespace {

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

// Whether Save Changes wrote to the mesh in memory; an undo may take back what it wrote.
bool isSavedTo(const UVState& uv, const GeosetStore& store) {
    return uv.savedTo == store.revisions.mesh();
}

// Whether Save Changes would write to vertices that the data was not taken from.
bool isOfOthers(const UVState& uv, const GeosetStore& store) {
    return !isTakenFrom(uv, store) || std::min(store.Vertices.size(), uv.data.u.size()) > uv.same;
}

// Asks whether to write to such vertices.
bool askWriteToOthers(UVEditor& uv, const GeosetStore& store) {
    const std::size_t vertices = store.Vertices.size();
    const std::size_t taken = uv.data.u.size();
    if (isTakenFrom(uv, store)) {
        return uv.dialogs.yesNo(
            kWarningCaption,
            "Vertices were taken away and others added since these texture coordinates were taken: "
            "from vertex " +
                std::to_string(uv.same + 1) +
                " on they belong to others. Saving writes them over theirs. Write them?");
    }
    const std::string fit =
        vertices == taken ? " too, so saving writes them over its own."
                          : ", theirs had " + std::to_string(taken) + ": saving writes the first " +
                                std::to_string(std::min(vertices, taken)) + " over its own.";
    return uv.dialogs.yesNo(
        kWarningCaption, "A geoset was read since these texture coordinates were taken: geoset " +
                             std::to_string(store.geosetNumber) + " of " + store.modelPath +
                             ". It has " + countText(vertices) + fit + " Write them?");
}

// Tells of a Save Changes that fits only in part.
std::string partlySavedMessage(std::size_t vertices, std::size_t taken, std::size_t written) {
    return "The geoset has " + countText(vertices) + " now, but had " + std::to_string(taken) +
           " when its texture coordinates were taken. The first " + std::to_string(written) +
           " were written back. Choose UV Mapping in the main window to take them anew.";
}

// Makes the texture editor's lists those of the geoset again; what is selected stays so.
void takeAsItIs(UVEditor& uv, const GeosetStore& store) {
    UVData data = uvDataOf(store);
    const std::size_t count = std::min(data.selected.size(), uv.data.selected.size());
    for (std::size_t i = 0; i < count; ++i) data.selected[i] = uv.data.selected[i];
    uv.data = std::move(data);
    uv.takenFrom = store.revisions.mesh();
    uv.same = store.Vertices.size();
}

// Says in both windows, until it is settled, that Undo took coordinates back.
void setUndone(UVEditor& uv, const Editor& editor, bool undone) {
    if (uv.undone == undone) return;
    uv.undone = undone;
    editor.window.showNotice(undone
                                 ? "Undo took back texture coordinates, too. Save Changes in the "
                                   "texture editor writes them again."
                                 : "");
    uv.window.showNotice(undone ? "Undo in the main window took these back. Save Changes writes "
                                  "them again."
                                : "");
}

// Texture coordinates that nothing else holds are about to be replaced.
void keepTexture(const UVEditor& uv, Editor& editor) {
    if (editor.wayBack == nullptr) return;
    std::optional<Snapshot> snapshot = unsavedTexture(uv, editor.store);
    if (snapshot) editor.wayBack->keep(std::move(*snapshot), KeptBecause::TextureDropped);
}

}  // namespace

bool isTakenFrom(const UVState& uv, const GeosetStore& store) {
    return uv.takenFrom == store.revisions.mesh();
}

std::optional<Snapshot> unsavedTexture(const UVEditor& uv, const GeosetStore& store) {
    if (!uv.unsaved) return std::nullopt;
    std::optional<Snapshot> mesh = isTakenFrom(uv, store) ? snapshotOf(store) : uv.leftMesh;
    if (mesh) mergeTexture(*mesh, uv.data.u, uv.data.v, uv.same);
    return mesh;
}

bool addUnsavedTexture(UVEditor& uv, const GeosetStore& store, Snapshot& mesh) {
    if (!uv.dataReceived || !isTakenFrom(uv, store)) return false;
    if (uv.unsaved) mergeTexture(mesh, uv.data.u, uv.data.v, uv.same);
    uv.leftMesh = mesh;
    return uv.unsaved;
}

void openTextureEditor(Editor& editor) {
    if (!editor.store.modelLoaded) {
        editor.dialogs.messageBox("UV Mapping", "No model loaded.");
        return;
    }
    editor.window.showTextureEditor(uvDataOf(editor.store));
}

void takeHandOver(UVEditor& uv, Editor& editor, UVData data) {
    const bool mayBeUndone = isSavedTo(uv, editor.store);
    const bool undone = mayBeUndone && !(agree(uv.savedU, data.u) && agree(uv.savedV, data.v));
    if (undone &&
        !uv.dialogs.yesNo(kConfirmationCaption,
                          "Undo has put back texture coordinates from before Save Changes. Take "
                          "these, and lose those in the texture editor? (No keeps them; Save "
                          "Changes then writes them again.)")) {
        return;
    }
    keepTexture(uv, editor);
    uv.leftMesh.reset();
    uv.takenFrom = editor.store.revisions.mesh();
    uv.same = data.u.size();
    getArray(uv, editor, std::move(data));
    setUndone(uv, editor, false);
    // Undo still holds older ones, however often they were handed over since.
    if (mayBeUndone) {
        uv.savedU = uv.data.u;
        uv.savedV = uv.data.v;
    }
}

void noteEdits(UVEditor& uv, const Editor& editor) {
    const std::vector<VertexRecord>& vertices = editor.store.Vertices;
    if (isTakenFrom(uv, editor.store)) uv.same = std::min(uv.same, vertices.size());
    if (!isSavedTo(uv, editor.store)) {
        setUndone(uv, editor, false);
        return;
    }
    if (uv.unsaved) return;
    const std::size_t count = std::min(vertices.size(), uv.savedU.size());
    for (std::size_t i = 0; i < count && !uv.unsaved; ++i) {
        uv.unsaved = vertices[i].tu != uv.savedU[i] || vertices[i].tv != uv.savedV[i];
    }
    if (!uv.unsaved) return;
    setUndone(uv, editor, true);
    uv.window.updateButtons();
}

void getArray(UVEditor& uv, const Editor& editor, UVData data) {
    uv.data = std::move(data);
    uv.dataReceived = true;
    uv.unsaved = false;
    uv.window.updateButtons();
    refreshPicture(uv, editor);
    redraw(uv);
}

std::size_t saveUVChanges(Editor& editor, std::span<const double> tx, std::span<const double> ty) {
    std::vector<VertexRecord>& vertices = editor.store.Vertices;
    const std::size_t count = std::min({vertices.size(), tx.size(), ty.size()});
    bool changed = false;
    for (std::size_t i = 0; i < count; ++i) {
        changed = changed || vertices[i].tu != tx[i] || vertices[i].tv != ty[i];
    }
    const auto write = [&](Editor&) {
        for (std::size_t i = 0; i < count; ++i) {
            vertices[i].tu = tx[i];
            vertices[i].tv = ty[i];
        }
    };
    if (changed) {
        runUnrecorded(editor, Show::Buttons, write);
    } else {
        show(editor, Show::Buttons);
    }
    return count;
}

void saveChanges(UVEditor& uv, Editor& editor) {
    const std::size_t vertices = editor.store.Vertices.size();
    const std::size_t taken = uv.data.u.size();
    const bool others = isOfOthers(uv, editor.store);
    if (others) {
        if (!askWriteToOthers(uv, editor.store)) return;
        keepTexture(uv, editor);  // those beyond the end, and the mesh that they belong to
    }
    // First, for the main window looks for edits of what was saved.
    uv.savedU = uv.data.u;
    uv.savedV = uv.data.v;
    uv.savedU.resize(std::min(vertices, taken));
    uv.savedV.resize(std::min(vertices, taken));
    uv.savedTo = editor.store.revisions.mesh();
    const std::size_t written = saveUVChanges(editor, uv.data.u, uv.data.v);
    uv.unsaved = false;
    setUndone(uv, editor, false);
    if (others) {
        uv.leftMesh.reset();
        changeTexture(uv, [&](UVEditor& changed) { takeAsItIs(changed, editor.store); });
        return;
    }
    uv.window.updateButtons();
    if (vertices == taken) return;
    uv.dialogs.messageBox(kWarningCaption, partlySavedMessage(vertices, taken, written));
}

void remapSelection(UVEditor& uv, const Editor& editor, RemapPlane plane) {
    if (isOfOthers(uv, editor.store)) {
        uv.dialogs.messageBox(kErrorCaption,
                              "The vertices in memory are not those that these texture coordinates "
                              "were taken from: a geoset was read since, or vertices were taken "
                              "away and others added. Nothing was changed. Choose UV Mapping in "
                              "the main window to take the coordinates of those in memory.");
        return;
    }
    const RemapAxes axes = axesOf(plane);
    for (const Axis axis : {axes.u, axes.v}) {
        if (hasRemapExtent(editor.store, uv.data.selected, axis)) continue;
        uv.dialogs.messageBox(kErrorCaption, flatMessage(axis));
        return;
    }
    changeTexture(uv, [&](UVState& state) {
        const std::vector<double> a = remap(editor.store, state.data.selected, axes.u);
        const std::vector<double> b = remap(editor.store, state.data.selected, axes.v);
        const std::size_t count = std::min(a.size(), state.data.u.size());
        for (std::size_t i = 0; i < count; ++i) {
            if (!state.data.selected[i]) continue;
            assignCoordinate(state, state.data.u[i], a[i]);
            assignCoordinate(state, state.data.v[i], 1 - b[i]);
        }
    });
}

}  // namespace corvane
