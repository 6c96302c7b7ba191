#include "uveditor/commands/texture_commands.h"

#include "model/model_files.h"
#include "uveditor/uv_tools.h"
#include "uveditor/uv_view.h"

namespace corvane {

namespace {

// Where the file dialog starts: with the last picture, before that in the model's folder.
std::string placeToStart(const UVState& uv, const GeosetStore& store) {
    if (!uv.lastPicture.empty() || store.modelPath.empty()) return uv.lastPicture;
    return folderOf(store.modelPath) + '/';
}

}  // namespace

void redraw(UVEditor& uv) { drawTextureView(uv); }

void uvSetSelectMode(UVEditor& uv, SelectMode mode) {
    changeTexture(uv, [mode](UVState& state) { state.selectMode = mode; });
}

void uvSetTransformMode(UVEditor& uv, TransformMode mode) {
    changeTexture(uv, [mode](UVState& state) { state.transformMode = mode; });
}

void uvToggleX(UVEditor& uv) {
    changeTexture(uv, [](UVState& state) { state.xEnabled = !state.xEnabled; });
}

void uvToggleY(UVEditor& uv) {
    changeTexture(uv, [](UVState& state) { state.yEnabled = !state.yEnabled; });
}

void uvZoomIn(UVEditor& uv) {
    changeTexture(uv, [](UVState& state) { zoomIn(state); });
}

void uvZoomOut(UVEditor& uv) {
    changeTexture(uv, [](UVState& state) { zoomOut(state); });
}

void uvPan(UVEditor& uv, int dx, int dy) {
    changeTexture(uv, [=](UVState& state) { pan(state, dx, dy); });
}

void uvSelectAll(UVEditor& uv) {
    changeTexture(
        uv, [](UVState& state) { state.data.selected.assign(state.data.selected.size(), true); });
}

void uvInvertSelection(UVEditor& uv) {
    changeTexture(uv, [](UVState& state) { state.data.selected.flip(); });
}

void uvMouseDown(UVEditor& uv, double x, double y) {
    uv.uStart = textureU(uv, static_cast<int>(x));
    uv.vStart = textureV(uv, static_cast<int>(y));
}

void uvMouseUp(UVEditor& uv, MouseButton button, double x, double y) {
    changeTexture(uv, [&](UVState& state) {
        state.uEnd = textureU(state, static_cast<int>(x));
        state.vEnd = textureV(state, static_cast<int>(y));
        if (button == MouseButton::Left) {
            uvSelectByBox(state);
        } else {
            uvTransform(state);
        }
    });
}

void loadImage(UVEditor& uv, const Editor& editor) {
    const std::optional<std::string> path =
        uv.dialogs.openFile(kPictureFilter, placeToStart(uv, editor.store));
    if (path) loadImageFrom(uv, *path);
}

void loadImageFrom(UVEditor& uv, const std::string& path) {
    uv.lastPicture = path;
    const std::string reason = uv.window.loadPicture(path);
    if (!reason.empty()) {
        showPictureError(uv, path, reason);
        return;
    }
    uv.imageLoaded = true;
    uv.imageChosen = true;
    uv.imagePath = path;
    uv.window.updateButtons();  // the title names the picture
    redraw(uv);
}

void showPictureError(UVEditor& uv, const std::string& path, const std::string& reason) {
    uv.dialogs.messageBox(kErrorCaption,
                          "The picture cannot be read.\n" + path + ": " + reason +
                              "\n\nChoose a JPEG, GIF, BMP, PNG, TGA, BLP or DDS file.");
}

}  // namespace corvane
