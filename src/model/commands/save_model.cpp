#include "model/commands/save_model.h"

#include <algorithm>
#include <new>

#include "base/numbers.h"
#include "editor/keep_unsaved.h"
#include "editor/run_edit.h"
#include "model/commands/open_model.h"
#include "model/commands/replaced_text.h"
#include "model/commands/saved_part.h"
#include "model/geoset_removal.h"
#include "model/geoset_sections.h"
#include "model/model_writer.h"
#include "model/row_sections.h"

namespace corvane {

namespace {

constexpr const char* kRepeatAdvice =
    "your edits are still here: mend the cause and save again, or save to another place with Save "
    "As.";

// What holds after a save that came to nothing, and what to do.
std::string afterFailure(const GeosetStore& store) {
    const bool isThere = stampOf(store.savePath).has_value();
    return std::string(isThere ? "The file is as it was, and " : "No file was written, and ") +
           kRepeatAdvice;
}

void showSaveError(Editor& editor, const std::string& what, const std::string& advice) {
    editor.dialogs.messageBox(kErrorCaption, "The model was not saved.\n" + what + "\n\n" + advice);
}

void showSaveError(Editor& editor, const std::string& what) {
    showSaveError(editor, what, afterFailure(editor.store));
}

void showSaveError(Editor& editor, const FileError& error) {
    const bool isDamaged = dynamic_cast<const FileDamagedError*>(&error) != nullptr;
    showSaveError(editor, error.what(),
                  isDamaged ? std::string("But ") + kRepeatAdvice : afterFailure(editor.store));
}

// Runs a command that saves, and says so where memory runs out meanwhile. A save is done as a whole
// or not at all.
template <class Command>
void sayingOutOfMemory(Editor& editor, Command command) {
    const std::uint64_t writesBefore = editor.store.writes();
    try {
        command();
        return;
    } catch (const std::bad_alloc&) {
        if (editor.store.writes() == writesBefore) {
            showSaveError(editor, "There is not enough memory.");
        } else {
            editor.dialogs.messageBox(
                kWarningCaption,
                "The model was saved, but then memory ran out.\n\nNothing is lost. Close other "
                "programs or windows, then save again.");
        }
    }
    show(editor, Show::Buttons);
}

// Makes the working copy hold what was saved. Where that fails the save stands, and so does the
// text in memory, which is what the next save starts from. What the save replaced is kept before
// anything waits for the user.
void renewWorkingCopy(Editor& editor, ReplacedText& replaced) {
    std::string failure;
    const GeosetStore& store = editor.store;
    keepForeignWorkingCopy(editor, store.modelPath, store.base().text.view());
    try {
        editor.store.renewWorkingCopy();
    } catch (const FileError& error) {
        failure = error.what();
    }
    replaced.keep();
    if (failure.empty()) return;
    editor.dialogs.messageBox(kWarningCaption,
                              "The model was saved, but its working copy could not be renewed.\n" +
                                  failure +
                                  "\n\nYou can go on: nothing is lost. Free some space, then save "
                                  "again.");
}

// After a save: what is kept of the edits goes, but for the texture editor's, which it did not
// write.
void settleKept(Editor& editor) {
    if (editor.wayBack == nullptr) return;
    Snapshot snapshot = snapshotOf(editor.store);
    if (editor.window.addUnsavedTexture(snapshot)) {
        editor.wayBack->keep(std::move(snapshot), KeptBecause::Editing);
    } else {
        editor.wayBack->noteSaved();
    }
}

// Writes a text to the model file and makes it the text that later saves start from. `write` does
// that.
bool writeText(Editor& editor, const PiecedText& text, ReplacedText& replaced,
               void (ModelDocument::*write)(const PiecedText&)) {
    try {
        (editor.store.*write)(text);
    } catch (const FileError& error) {
        showSaveError(editor, error);
        return false;
    }
    replaced.noteWritten();
    return true;
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

SaveKind kindOfSave(const GeosetStore& store, bool singleGeoset) {
    const bool removed = store.isGeosetRemoved();
    const ModelBase& base = singleGeoset ? *store.geosetBase() : store.base();
    const bool hasPlace = base.hasGeoset(store.geosetNumber);
    const bool empty = isEmptied(store);
    if (removed && !singleGeoset) return hasPlace ? SaveKind::AskOverwrite : SaveKind::AsItIs;
    if (!hasPlace || (removed && empty)) return SaveKind::Refuse;
    if (empty) return SaveKind::RemoveEmptied;
    return singleGeoset ? SaveKind::WriteSingle : SaveKind::Write;
}

// Removes the emptied geoset from the model file and the working copy; another one takes its place
// in memory.
void removeEmptied(Editor& editor) {
    GeosetStore& store = editor.store;
    keepGeoset(editor, KeptBecause::GeosetRemoved);
    const SharedBase before = store.sharedBase();
    editor.dialogs.messageBox(kWarningCaption, "Removing geoset");
    ReplacedText replaced(editor);
    if (!writeText(editor, removeGeoset(store.base().text, store.geosetNumber), replaced,
                   &ModelDocument::write))
        return;
    store.noteGeosetRemoved(before);
    renewWorkingCopy(editor, replaced);
    chooseAndRead(editor, false);
}

// Writes the text in memory to the model file as it is, without the geoset in memory.
bool writeAsItIs(Editor& editor) {
    keepGeoset(editor, KeptBecause::LeftOut);
    ReplacedText replaced(editor);
    try {
        editor.store.writeAsItIs();
    } catch (const FileError& error) {
        showSaveError(editor, error);
        return false;
    }
    replaced.noteWritten();
    renewWorkingCopy(editor, replaced);
    return true;
}

// The number of the first kept vertex with a number that no file can hold; 0 for none.
std::size_t firstUnwritable(const Geoset& geoset) {
    for (std::size_t i = 0; i < geoset.Vertices.size(); ++i) {
        const VertexRecord& vertex = geoset.Vertices[i];
        const bool writable = std::ranges::all_of(vertex.pos, canBeWritten) &&
                              std::ranges::all_of(vertex.normal, canBeWritten) &&
                              canBeWritten(vertex.tu) && canBeWritten(vertex.tv);
        if (!vertex.deleted && !writable) return i + 1;
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

// The model's text with the geoset in memory in its place, or that geoset alone. Nothing after a
// message.
std::optional<PiecedText> compose(Editor& editor, bool singleGeoset, NeutralRows& neutral) {
    const GeosetStore& store = editor.store;
    const ModelBase& base = singleGeoset ? *store.geosetBase() : store.base();
    try {
        const auto composeText = singleGeoset ? composeSingleGeoset : composeModel;
        return composeText(base.text, base.geosets, store.geosetNumber, store, &neutral);
    } catch (const RowsCannotFollow& error) {
        showSaveError(editor, error.what(),
                      "Your edits are still here, but the rows of that section cannot follow the "
                      "vertices that were added or deleted. Undo these edits, or mend the model in "
                      "a text editor and open it anew.");
    } catch (const ModelTextError& error) {
        showSaveError(editor, error.what());
    }
    return std::nullopt;
}

void writeGeoset(Editor& editor, bool singleGeoset) {
    GeosetStore& store = editor.store;
    if (const std::size_t number = firstUnwritable(store); number > 0) {
        showSaveError(
            editor,
            "Vertex " + std::to_string(number) + " has a coordinate too large for any number.",
            "Undo what moved it there, or set its coordinates, and save again.");
        return;
    }
    NeutralRows neutral;
    const std::optional<PiecedText> text = compose(editor, singleGeoset, neutral);
    if (!text) return;
    std::optional<SavedPart> part;
    if (singleGeoset) part.emplace(*text);
    const auto write = singleGeoset ? &ModelDocument::write : &ModelDocument::writeGeoset;
    ReplacedText replaced(editor);
    if (!writeText(editor, *text, replaced, write)) return;
    store.noteGeosetRead();
    if (part) std::move(*part).becomeCurrent(editor);
    store.noteSaved();
    settleKept(editor);
    renewWorkingCopy(editor, replaced);
    sayNeutralRows(editor, neutral);
}

void saveAsItIs(Editor& editor) {
    if (!writeAsItIs(editor)) return;
    editor.dialogs.messageBox(
        kWarningCaption,
        "Saved without the geoset in memory, which was removed from the model. Save Geoset can "
        "still write it to a file of its own.");
}

void askOverwrite(Editor& editor) {
    const bool write = editor.dialogs.yesNo(
        kWarningCaption,
        "The geoset in memory was removed from the model. Saving writes it over "
        "geoset " +
            std::to_string(editor.store.geosetNumber) + ", which has its number now. Write it?");
    if (!write) {
        if (writeAsItIs(editor)) chooseAndRead(editor, false);
    } else if (isEmptied(editor.store)) {
        // Nothing is left to be written, and the geoset that has its number is another one.
        saveAsItIs(editor);
    } else {
        writeGeoset(editor, false);
    }
}

// Writes the geoset in memory to savePath as it stands to the model.
void writeByKind(Editor& editor, bool singleGeoset) {
    const GeosetStore& store = editor.store;
    switch (kindOfSave(store, singleGeoset)) {
        case SaveKind::Write:
        case SaveKind::WriteSingle:
            writeGeoset(editor, singleGeoset);
            break;
        case SaveKind::AskOverwrite:
            askOverwrite(editor);
            break;
        case SaveKind::AsItIs:
            saveAsItIs(editor);
            break;
        case SaveKind::RemoveEmptied:
            removeEmptied(editor);
            break;
        case SaveKind::Refuse:
            showSaveError(editor,
                          "The open model holds no geoset " + std::to_string(store.geosetNumber) +
                              " to write to.",
                          "Your edits are still here. Switch Geoset chooses another geoset of the "
                          "model, if it has one.");
            break;
    }
}

void writeModel(Editor& editor, bool singleGeoset) {
    writeByKind(editor, singleGeoset);
    show(editor, Show::Buttons);
}

// Asks where a save would remove a geoset that still has vertices.
bool mayRemoveEmptied(Editor& editor, bool singleGeoset) {
    const int vertices = KeptVertices(editor.store).count();
    if (vertices == 0 || kindOfSave(editor.store, singleGeoset) != SaveKind::RemoveEmptied) {
        return true;
    }
    return editor.dialogs.yesNo(kWarningCaption,
                                "The geoset has " + std::to_string(vertices) +
                                    " vertices but no face, and a save removes it from the model. "
                                    "Remove it?");
}

// Asks for the file that then is the current model, and writes to it.
void askAndWrite(Editor& editor, bool singleGeoset, const std::string& title,
                 const std::string& proposed) {
    GeosetStore& store = editor.store;
    const std::optional<std::string> path = askSavePath(editor, title, proposed);
    if (!path || !mayRemoveEmptied(editor, singleGeoset)) return;
    if (singleGeoset) keepUnsaved(editor, KeptBecause::GeosetSaved);
    store.setTarget(*path, ModelDocument::Target::Chosen);
    store.savePath = *path;
    writeModel(editor, singleGeoset);
}

// A name of no file, beside the model.
std::string proposedPartPath(const GeosetStore& store) {
    const std::string stem =
        stemOf(store.modelPath) + "-geoset" + std::to_string(store.geosetNumber);
    return freePath(folderOf(store.modelPath), stem, ".mdl");
}

void askAndSave(Editor& editor) {
    GeosetStore& store = editor.store;
    if (!store.modelLoaded) return;
    if (store.isTargetNew() &&
        !editor.dialogs.yesNo(kWarningCaption,
                              nameOf(store.modelPath) +
                                  " is a new, empty model. Saving writes the open model over it. "
                                  "Write it?")) {
        saveAs(editor);
        return;
    }
    store.savePath = store.modelPath;
    if (!store.isTargetNew() && store.modelPath != store.filePath() &&
        stampOf(store.modelPath).has_value() &&
        !editor.dialogs.yesNo(kWarningCaption,
                              store.modelPath +
                                  " is not the file that the open model came from: an earlier save "
                                  "to it failed. Saving replaces what it holds. Save?")) {
        return;
    }
    if (store.isChangedOutside() &&
        !editor.dialogs.yesNo(kWarningCaption,
                              store.modelPath +
                                  " was changed by another program or window since it was "
                                  "opened or saved here. Saving replaces what it holds now. "
                                  "Save?")) {
        return;
    }
    if (mayRemoveEmptied(editor, false)) writeModel(editor, false);
}

}  // namespace

std::optional<std::string> askSavePath(Editor& editor, const std::string& title,
                                       const std::string& proposed) {
    std::optional<std::string> path = editor.dialogs.saveFile({title, kModelFilter, proposed});
    if (path && clashesWithWorkingCopy(editor, *path)) return std::nullopt;
    return path;
}

void save(Editor& editor) {
    sayingOutOfMemory(editor, [&] { askAndSave(editor); });
}

void saveAs(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    sayingOutOfMemory(editor,
                      [&] { askAndWrite(editor, false, "Save As", editor.store.modelPath); });
}

void saveGeoset(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    sayingOutOfMemory(
        editor, [&] { askAndWrite(editor, true, "Save Geoset", proposedPartPath(editor.store)); });
}

}  // namespace corvane
