#include "uveditor/commands/model_texture.h"

#include <string>
#include <vector>

#include "model/model_files.h"
#include "model/texture_name.h"
#include "model/texture_path.h"
#include "uveditor/commands/texture_commands.h"

namespace corvane {

namespace {

// The texture of the geoset in memory, in the text where that has its place.
TextureName textureOfGeoset(const GeosetStore& store) {
    const SharedBase& model = store.geosetBase();
    if (model == nullptr) return {.image = {}, .missing = "No model loaded."};
    return textureOf(*model, store.geosetNumber);
}

std::string notFoundText(const GeosetStore& store, const std::string& image) {
    const std::vector<std::string> names = textureFileNames(image);
    std::string text =
        "The file of the geoset's texture was not found. The model calls it " + image + ".";
    if (names.empty()) return text;
    text += "\n\nLooked for:";
    for (const std::string& name : names) text += '\n' + name;
    return text + "\nin " + folderOf(store.modelPath) +
           " and in each folder above it, also without the folders before the name.";
}

// Shows the picture of a file as the model's own; returns why it could not be read.
std::string show(UVEditor& uv, const std::string& path) {
    std::string reason = uv.window.loadPicture(path);
    if (!reason.empty()) return reason;
    uv.imageLoaded = true;
    uv.imageChosen = false;
    uv.imagePath = path;
    uv.lastPicture = path;
    uv.window.updateButtons();  // the title names the picture
    return reason;
}

bool showModelTexture(UVEditor& uv, const GeosetStore& store) {
    const TextureName texture = textureOfGeoset(store);
    if (!texture.missing.empty()) return false;
    const std::string path = findTexture(store.modelPath, texture.image);
    return !path.empty() && show(uv, path).empty();
}

}  // namespace

void loadModelTexture(UVEditor& uv, const Editor& editor) {
    const TextureName texture = textureOfGeoset(editor.store);
    if (!texture.missing.empty()) {
        uv.dialogs.messageBox(kErrorCaption, "No texture to look for. " + texture.missing);
        return;
    }
    const std::string path = findTexture(editor.store.modelPath, texture.image);
    if (path.empty()) {
        uv.dialogs.messageBox(kErrorCaption, notFoundText(editor.store, texture.image));
        return;
    }
    const std::string reason = show(uv, path);
    if (!reason.empty()) {
        showPictureError(uv, path, reason);
        return;
    }
    redraw(uv);
}

void refreshPicture(UVEditor& uv, const Editor& editor) {
    if (!uv.imageChosen && showModelTexture(uv, editor.store)) return;
    if (!uv.imageLoaded) return;
    const std::string reason = uv.window.loadPicture(uv.imagePath);
    if (!reason.empty() && uv.imageChosen) showPictureError(uv, uv.imagePath, reason);
}

}  // namespace corvane
