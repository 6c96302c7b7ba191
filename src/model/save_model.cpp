#include "model/save_model.h"

#include <array>

#include "model/geoset_removal.h"
#include "model/geoset_sections.h"
#include "model/model_writer.h"
#include "model/open_model.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

// The working copy's text and the geosets in it.
struct Base {
    ModelText text;
    std::vector<GeosetBlock> geosets;

    bool hasGeoset(int geosetNumber) const {
        return geosetNumber >= 1 && static_cast<std::size_t>(geosetNumber) <= geosets.size();
    }
};

// Reads the working copy. Where it is gone it is made again, so that the next try succeeds, but
// this one ends with a message: something outside is interfering, and the user should know.
std::optional<Base> readBase(Editor& editor) {
    try {
        Base base{readWorkingCopy(editor.store, editor.workingCopy), {}};
        base.geosets = scanGeosets(base.text.view());
        return base;
    } catch (const FileError& error) {
        const bool restored = restoreWorkingCopy(editor.store, editor.workingCopy);
        editor.dialogs.messageBox(
            kErrorCaption,
            std::string("The working copy of the model cannot be read, so nothing was written.\n") +
                error.what() + "\n\n" +
                (restored ? "Its text was saved from being lost. Your edits are still here: save "
                            "again, or to another folder with Save As."
                          : "Your edits are still here, but the rest of the model's text is gone. "
                            "Put the file back, then save again."));
        return std::nullopt;
    }
}

void showSaveError(Editor& editor, const std::string& what) {
    editor.dialogs.messageBox(kErrorCaption,
                              "The model was not saved.\n" + what +
                                  "\n\nThe file is as it was, and your edits are still here: mend "
                                  "the cause and save again, or save to another place with Save "
                                  "As.");
}

// The save stands; the old working copy goes on serving.
void showNotRenewed(Editor& editor, const std::string& what) {
    editor.workingCopy.copyOf.clear();
    editor.dialogs.messageBox(kWarningCaption,
                              "The model was saved, but its working copy could not be renewed.\n" +
                                  what +
                                  "\n\nYou can go on: the working copy from before the save is "
                                  "still there. Free some space, then save again.");
}

// Makes the working copy anew after `pieces` were saved at modelPath. False after a message.
bool renewWorkingCopy(Editor& editor, std::span<const std::string_view> pieces) {
    GeosetStore& store = editor.store;
    try {
        PendingFile pending = prepareWorkingCopy(store.modelPath, pieces);
        commitWorkingCopy(store, editor.workingCopy, pending, workPathFor(store.modelPath),
                          store.modelPath);
        return true;
    } catch (const FileError& error) {
        showNotRenewed(editor, error.what());
        return false;
    }
}

// After the geoset in memory is gone from the file, another one takes its place.
void chooseNext(Editor& editor, const ModelText& text) {
    editor.workingCopy.geosetRemoved = true;
    if (chooseAndRead(editor, text)) redrawAll(editor);
    editor.window.updateButtons();
}

// Removes the emptied geoset from the working copy and the model file.
void removeEmptied(Editor& editor, const Base& base) {
    GeosetStore& store = editor.store;
    if (base.geosets.empty()) {
        editor.dialogs.messageBox(kErrorCaption, store.modelPath +
                                                     " holds no geoset, so there is nothing to "
                                                     "save.");
        return;
    }
    editor.dialogs.messageBox(kWarningCaption, "Removing geoset");
    const PiecedText removed = removeGeoset(base.text, store.geosetNumber);
    try {
        replaceFile(store.modelPath, removed.pieces());
    } catch (const FileError& error) {
        showSaveError(editor, error.what());
        return;
    }
    try {
        rewriteWorkingCopy(store, editor.workingCopy, removed.pieces(), store.modelPath);
    } catch (const FileError& error) {
        showNotRenewed(editor, error.what());
        return;
    }
    chooseNext(editor, ModelText(store.modelPath, removed.joined()));
}

// Writes the working copy to the model file as it is, without the geoset in memory.
void writeWithoutGeoset(Editor& editor, const Base& base) {
    const std::array<std::string_view, 1> pieces = {base.text.view()};
    try {
        replaceFile(editor.store.modelPath, pieces);
    } catch (const FileError& error) {
        showSaveError(editor, error.what());
        return;
    }
    renewWorkingCopy(editor, pieces);
    chooseNext(editor, base.text);
}

// The text of a save, or nothing after a message.
std::optional<PiecedText> composeSave(Editor& editor, const Base& base, bool singleGeoset) {
    const GeosetStore& store = editor.store;
    if (!base.hasGeoset(store.geosetNumber)) {
        // Removing the last geoset of a model leaves none with its number; what is left is saved.
        if (editor.workingCopy.geosetRemoved && !singleGeoset) {
            PiecedText asItIs;
            asItIs.addView(base.text.view());
            return asItIs;
        }
        showSaveError(editor, "Its working copy " + store.workPath + " holds no geoset " +
                                  std::to_string(store.geosetNumber) + " to be written.");
        return std::nullopt;
    }
    try {
        return singleGeoset
                   ? composeSingleGeoset(base.text, base.geosets, store.geosetNumber, store)
                   : composeModel(base.text, base.geosets, store.geosetNumber, store);
    } catch (const ModelTextError& error) {
        showSaveError(editor, error.what());
        return std::nullopt;
    }
}

}  // namespace

std::optional<std::string> askSavePath(Editor& editor) {
    const GeosetStore& store = editor.store;
    std::optional<std::string> path = editor.dialogs.saveFile(kModelFilter, store.modelPath);
    if (path && (*path == store.workPath || isSameFile(*path, store.workPath))) {
        editor.dialogs.messageBox(kErrorCaption,
                                  *path +
                                      " is the working copy of the model that is open, which "
                                      "is deleted in the end. Choose another name.");
        return std::nullopt;
    }
    return path;
}

void writeModel(Editor& editor, bool singleGeoset, bool askPath) {
    GeosetStore& store = editor.store;
    if (!store.modelLoaded) return;
    store.savePath = store.modelPath;
    if (askPath) {
        const std::optional<std::string> path = askSavePath(editor);
        if (!path) return;
        store.savePath = *path;
    }
    store.modelPath = store.savePath;
    editor.window.updateButtons();

    const std::optional<Base> base = readBase(editor);
    if (!base) return;
    if (editor.workingCopy.geosetRemoved && !singleGeoset && base->hasGeoset(store.geosetNumber)) {
        const std::string number = std::to_string(store.geosetNumber);
        const bool write = editor.dialogs.yesNo(
            kWarningCaption,
            "The geoset in memory was removed from the model. Saving writes it "
            "over geoset " +
                number + ", which has its number now. Write it?");
        if (!write) {
            writeWithoutGeoset(editor, *base);
            return;
        }
    }
    if (KeptVertices(store).count() == 0 || countKeptFaces(store) == 0) {
        removeEmptied(editor, *base);
        return;
    }

    const std::optional<PiecedText> saved = composeSave(editor, *base, singleGeoset);
    if (!saved) return;
    try {
        replaceFile(store.savePath, saved->pieces());
    } catch (const FileError& error) {
        showSaveError(editor, error.what());
        return;
    }
    const bool written = singleGeoset || base->hasGeoset(store.geosetNumber);
    if (written) store.modified = false;
    if (renewWorkingCopy(editor, saved->pieces())) {
        if (written) editor.workingCopy.geosetRemoved = false;
        if (singleGeoset) store.geosetNumber = 1;
    }
    editor.window.updateButtons();
}

void deleteCurrentGeoset(Editor& editor) {
    GeosetStore& store = editor.store;
    if (!store.modelLoaded) return;
    if (editor.workingCopy.geosetRemoved) {
        editor.dialogs.messageBox(kWarningCaption,
                                  "The geoset in memory is removed from the model already. The "
                                  "model file follows with the next save.");
        return;
    }
    if (!editor.dialogs.yesNo(kConfirmationCaption,
                              "Removing a geoset is not undoable. Are you sure you want to "
                              "continue?" +
                                  store.modelPath + store.workPath)) {
        return;
    }
    const std::optional<Base> base = readBase(editor);
    if (!base) return;
    if (!base->hasGeoset(store.geosetNumber)) {
        editor.dialogs.messageBox(kErrorCaption, store.modelPath + " holds no geoset " +
                                                     std::to_string(store.geosetNumber) +
                                                     " to be removed.");
        return;
    }
    try {
        rewriteWorkingCopy(store, editor.workingCopy,
                           removeGeoset(base->text, store.geosetNumber).pieces(), "");
    } catch (const FileError& error) {
        editor.dialogs.messageBox(kErrorCaption,
                                  "The geoset was not removed.\n" + std::string(error.what()));
        return;
    }
    editor.workingCopy.geosetRemoved = true;
    editor.window.updateButtons();
}

}  // namespace corvane
