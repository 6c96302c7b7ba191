#include "model/save_model.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/geoset_removal.h"
#include "model/geoset_sections.h"
#include "model/model_writer.h"
#include "model/open_model.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

constexpr const char* kRepeatAdvice =
    "The file is as it was, and your edits are still here: mend the cause and save again, or save "
    "to another place with Save As.";

// The working copy's text and the geosets in it.
struct Base {
    ModelText text;
    std::vector<GeosetBlock> geosets;

    bool hasGeoset(int geosetNumber) const {
        return geosetNumber >= 1 && static_cast<std::size_t>(geosetNumber) <= geosets.size();
    }
};

// Reads the working copy. Where its file is gone that is said, once: something outside is
// interfering, and the user should know. Its text is not lost.
std::optional<Base> readBase(Editor& editor) {
    const GeosetStore& store = editor.store;
    WorkingCopy& copy = editor.workingCopy;
    try {
        if (!isWorkingCopyThere(store) && !copy.missingSaid) {
            restoreWorkingCopy(store, copy);
            copy.missingSaid = true;
            editor.dialogs.messageBox(
                kErrorCaption,
                "The working copy of the model is missing, so nothing was written.\n" +
                    store.workPath +
                    "\n\nIts text is not lost, and your edits are still here: save "
                    "again, or to another folder with Save As.");
            return std::nullopt;
        }
        Base base{readWorkingCopy(store, copy), {}};
        base.geosets = scanGeosets(base.text.view());
        return base;
    } catch (const FileError& error) {
        editor.dialogs.messageBox(
            kErrorCaption,
            std::string("The working copy of the model cannot be read, so nothing was written.\n") +
                error.what() + "\n\nYour edits are still here; mend the cause and try again.");
        return std::nullopt;
    }
}

void showSaveError(Editor& editor, const std::string& what, const char* advice = kRepeatAdvice) {
    editor.dialogs.messageBox(kErrorCaption, "The model was not saved.\n" + what + "\n\n" + advice);
}

bool replaceModel(Editor& editor, std::span<const std::string_view> pieces) {
    try {
        replaceFile(editor.store.savePath, pieces);
        noteModelWritten(editor.store, editor.workingCopy);
        return true;
    } catch (const FileError& error) {
        showSaveError(editor, error.what());
        return false;
    }
}

// Makes the working copy anew after `pieces` were saved at modelPath. Where that fails the save
// stands, and the saved file itself serves in its place: a later save must not go back to the text
// from before.
void renewWorkingCopy(Editor& editor, std::span<const std::string_view> pieces) {
    GeosetStore& store = editor.store;
    try {
        PendingFile pending = prepareWorkingCopy(store.modelPath, pieces);
        commitWorkingCopy(store, editor.workingCopy, pending, store.modelPath);
    } catch (const FileError& error) {
        const bool served = readFromModelInstead(store, editor.workingCopy);
        editor.dialogs.messageBox(
            kWarningCaption,
            "The model was saved, but its working copy could not be renewed.\n" +
                std::string(error.what()) +
                (served ? "\n\nYou can go on: the saved file serves in its place. Free some space, "
                          "then save again."
                        : "\n\nThe text from before the save still serves in its place. Open the "
                          "saved file anew before you go on."));
    }
}

// What a save comes down to.
enum class SaveKind {
    Write,          // the model with the geoset in memory
    WriteSingle,    // that geoset alone
    AsItIs,         // the model without the geoset in memory, which was removed from it
    AskOverwrite,   // the geoset in memory was removed, and another one has its number
    RemoveEmptied,  // nothing of the geoset is left, so it is removed
    Refuse,         // there is no geoset that could be written
};

// Whether no vertex or no face is left.
bool isEmptied(const Geoset& geoset) {
    return KeptVertices(geoset).count() == 0 || countKeptFaces(geoset) == 0;
}

SaveKind kindOfSave(const Editor& editor, const Base& base, bool singleGeoset) {
    const GeosetStore& store = editor.store;
    const bool removed = editor.workingCopy.geosetRemoved;
    const bool hasPlace = base.hasGeoset(store.geosetNumber);
    const bool empty = isEmptied(store);
    if (removed && !singleGeoset) return hasPlace ? SaveKind::AskOverwrite : SaveKind::AsItIs;
    if (!hasPlace || (removed && empty)) return SaveKind::Refuse;
    if (empty) return SaveKind::RemoveEmptied;
    return singleGeoset ? SaveKind::WriteSingle : SaveKind::Write;
}

// After the geoset in memory is gone from the file, another one takes its place.
void chooseNext(Editor& editor, const ModelText& text) {
    editor.workingCopy.geosetRemoved = true;
    if (chooseAndRead(editor, text)) redrawAll(editor);
}

// Removes the emptied geoset from the model file and the working copy.
void removeEmptied(Editor& editor, const Base& base) {
    const GeosetStore& store = editor.store;
    editor.dialogs.messageBox(kWarningCaption, "Removing geoset");
    const PiecedText removed = removeGeoset(base.text, store.geosetNumber);
    if (!replaceModel(editor, removed.pieces())) return;
    try {
        rewriteWorkingCopy(store, editor.workingCopy, removed.pieces());
    } catch (const FileError&) {
        renewWorkingCopy(editor, removed.pieces());  // beside the file that was saved
    }
    chooseNext(editor, ModelText(store.modelPath, removed.joined()));
}

// Writes the working copy to the model file as it is, without the geoset in memory.
bool writeAsItIs(Editor& editor, const Base& base) {
    const std::array<std::string_view, 1> pieces = {base.text.view()};
    if (!replaceModel(editor, pieces)) return false;
    renewWorkingCopy(editor, pieces);
    return true;
}

// The number of the first kept vertex with a number that no file can hold; 0 for none.
std::size_t firstUnwritable(const Geoset& geoset) {
    for (std::size_t i = 0; i < geoset.Vertices.size(); ++i) {
        const VertexRecord& vertex = geoset.Vertices[i];
        const auto isFinite = [](double value) { return std::isfinite(value); };
        const bool finite = std::ranges::all_of(vertex.pos, isFinite) &&
                            std::ranges::all_of(vertex.normal, isFinite) && isFinite(vertex.tu) &&
                            isFinite(vertex.tv);
        if (!vertex.deleted && !finite) return i + 1;
    }
    return 0;
}

// Says, once for a geoset, that a save made rows up.
void sayNeutralRows(Editor& editor, const NeutralRows& neutral) {
    GeosetStore& store = editor.store;
    if (neutral.rows == 0 || store.neutralRowsSaid) return;
    store.neutralRowsSaid = true;
    std::string names;
    for (const std::string& name : neutral.sectionNames)
        names += (names.empty() ? "" : ", ") + name;
    editor.dialogs.messageBox(kWarningCaption, "The file also keeps " + names +
                                                   " for every vertex. Vertices without a row of "
                                                   "their own there, such as merged ones, were "
                                                   "saved with neutral values (" +
                                                   std::to_string(neutral.rows) + " rows).");
}

// Writes the geoset in memory in its place in the model, or alone.
void writeGeoset(Editor& editor, const Base& base, bool singleGeoset) {
    GeosetStore& store = editor.store;
    if (const std::size_t number = firstUnwritable(store); number > 0) {
        showSaveError(
            editor,
            "Vertex " + std::to_string(number) + " has a coordinate too large for any number.",
            "Undo what moved it there, or set its coordinates, and save again.");
        return;
    }
    std::optional<PiecedText> saved;
    NeutralRows neutral;
    try {
        const auto compose = singleGeoset ? composeSingleGeoset : composeModel;
        saved = compose(base.text, base.geosets, store.geosetNumber, store, &neutral);
    } catch (const ModelTextError& error) {
        showSaveError(editor, error.what());
        return;
    } catch (const std::runtime_error& error) {
        showSaveError(editor, error.what(),
                      "Your edits are still here, but the rows of that section cannot follow the "
                      "vertices that were added or deleted. Undo these edits, or mend the model in "
                      "a text editor and open it anew.");
        return;
    }
    if (!replaceModel(editor, saved->pieces())) return;
    store.modified = false;
    editor.workingCopy.geosetRemoved = false;
    if (singleGeoset) store.geosetNumber = 1;
    renewWorkingCopy(editor, saved->pieces());
    sayNeutralRows(editor, neutral);
}

void saveAsItIs(Editor& editor, const Base& base) {
    if (!writeAsItIs(editor, base)) return;
    editor.window.showTip("Saved without the geoset in memory, which was removed from the model.");
}

void askOverwrite(Editor& editor, const Base& base) {
    const bool write = editor.dialogs.yesNo(
        kWarningCaption,
        "The geoset in memory was removed from the model. Saving writes it over "
        "geoset " +
            std::to_string(editor.store.geosetNumber) + ", which has its number now. Write it?");
    if (!write) {
        if (writeAsItIs(editor, base)) chooseNext(editor, base.text);
    } else if (isEmptied(editor.store)) {
        // Nothing is left to be written, and the geoset that has its number is another one.
        saveAsItIs(editor, base);
    } else {
        writeGeoset(editor, base, false);
    }
}

void save(Editor& editor, const Base& base, bool singleGeoset) {
    const GeosetStore& store = editor.store;
    switch (kindOfSave(editor, base, singleGeoset)) {
        case SaveKind::Write:
        case SaveKind::WriteSingle:
            writeGeoset(editor, base, singleGeoset);
            break;
        case SaveKind::AskOverwrite:
            askOverwrite(editor, base);
            break;
        case SaveKind::AsItIs:
            saveAsItIs(editor, base);
            break;
        case SaveKind::RemoveEmptied:
            removeEmptied(editor, base);
            break;
        case SaveKind::Refuse:
            showSaveError(editor,
                          store.modelPath + " holds no geoset " +
                              std::to_string(store.geosetNumber) + " to write to.",
                          "Your edits are still here. Switch Geoset chooses another geoset of the "
                          "model, if it has one.");
            break;
    }
}

}  // namespace

std::optional<std::string> askSavePath(Editor& editor) {
    std::optional<std::string> path = editor.dialogs.saveFile(kModelFilter, editor.store.modelPath);
    if (path && clashesWithWorkingCopy(editor, *path)) return std::nullopt;
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
    } else if (isModelChangedOutside(store, editor.workingCopy) &&
               !editor.dialogs.yesNo(kWarningCaption,
                                     store.modelPath +
                                         " was changed by another program or window since it was "
                                         "opened or saved here. Saving replaces what it holds now. "
                                         "Save?")) {
        return;
    }
    store.modelPath = store.savePath;
    if (const std::optional<Base> base = readBase(editor)) {
        save(editor, *base, singleGeoset);
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
                           removeGeoset(base->text, store.geosetNumber).pieces());
    } catch (const FileError& error) {
        editor.dialogs.messageBox(kErrorCaption,
                                  "The geoset was not removed.\n" + std::string(error.what()));
        return;
    }
    editor.workingCopy.geosetRemoved = true;
    editor.window.updateButtons();
}

}  // namespace corvane
