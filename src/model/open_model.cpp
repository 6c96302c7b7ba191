#include "model/open_model.h"

#include <array>
#include <cmath>

#include "model/geoset_reader.h"
#include "model/model_writer.h"
#include "version.h"
#include "views/ortho_view.h"
#include "views/perspective_view.h"

namespace corvane {

namespace {

// Where the warning about decimal commas sends its reader.
constexpr const char* kDecimalSeparatorPage = "docs/decimal-separator.md";

void showReadError(Editor& editor, const std::string& what, const std::string& advice) {
    editor.dialogs.messageBox(kErrorCaption, what + "\n\n" + advice);
}

// Whether a geoset that is not closed would still be the same one after a save.
bool staysWhole(const ModelText& text, const std::vector<GeosetBlock>& geosets,
                const PickedGeoset& picked) {
    const ModelText saved(text.path(),
                          composeModel(text, geosets, picked.geosetNumber, picked.geoset).joined());
    const std::vector<GeosetBlock> savedGeosets = scanGeosets(saved.view());
    if (savedGeosets.size() != geosets.size()) return false;
    try {
        const Geoset again = parseGeoset(saved, savedGeosets, picked.geosetNumber);
        return again.Vertices.size() == picked.geoset.Vertices.size() &&
               again.Faces == picked.geoset.Faces &&
               again.matrixGroups == picked.geoset.matrixGroups &&
               again.rowSections.size() == picked.geoset.rowSections.size();
    } catch (const ModelTextError&) {
        return false;
    }
}

void showNotFinite(Editor& editor, const ModelText& text, const ReadNotes& notes) {
    const std::string numbers = notes.notFinite == 1
                                    ? "1 number of its normals and texture coordinates is"
                                    : std::to_string(notes.notFinite) +
                                          " numbers of its normals and texture coordinates are";
    editor.dialogs.messageBox(
        kWarningCaption,
        text.path() + ", line " + std::to_string(lineNumberAt(text.view(), notes.firstNotFinite)) +
            ": " + numbers +
            (notes.notFinite == 1
                 ? " not finite and was read as 0."
                 : " not finite and were read as 0; the first one is in this line.") +
            " Recalculate Normals or "
            "the texture coordinate editor give them values; a save writes what is shown then.");
}

// Makes a file and one of its geosets current, with a working copy of its own.
std::optional<PickedGeoset> makeCurrent(Editor& editor, const std::string& path,
                                        const ModelText& text) {
    GeosetStore& store = editor.store;
    if (clashesWithWorkingCopy(editor, path)) return std::nullopt;
    try {
        const std::array<std::string_view, 1> pieces = {text.view()};
        PendingFile workingCopy = prepareWorkingCopy(path, pieces);
        std::optional<PickedGeoset> picked =
            pickGeoset(editor, text,
                       "The file was not opened and is unchanged. Mend the line in a text editor, "
                       "or choose another geoset or model.");
        if (!picked) return std::nullopt;
        commitWorkingCopy(store, editor.workingCopy, workingCopy, path);
        store.modelPath = path;
        takeIntoStore(editor, std::move(picked->geoset), picked->geosetNumber);
        return picked;
    } catch (const FileError& error) {
        showReadError(editor,
                      std::string("The working copy of the model cannot be made.\n") + error.what(),
                      "The file was not opened. The folder must have room and let you write: free "
                      "some space, or copy the model to another folder and open it there.");
        return std::nullopt;
    }
}

OpenOutcome openChosen(Editor& editor, bool openMode) {
    const std::optional<std::string> path =
        editor.dialogs.openFile(kModelFilter, editor.store.modelPath);
    if (!path) return {.cancelled = true, .picked = {}};
    ModelText text;
    try {
        text = readModelFile(*path);
    } catch (const FileError&) {
        editor.dialogs.messageBox(kErrorCaption, "Bad file name");
        return {};
    }
    if (openMode) return {.picked = makeCurrent(editor, *path, text)};
    return {.picked = pickGeoset(editor, text,
                                 "Nothing was merged. Mend the line in a text editor, or choose "
                                 "another geoset or model.")};
}

}  // namespace

bool clashesWithWorkingCopy(Editor& editor, const std::string& path) {
    const GeosetStore& store = editor.store;
    if (!store.workPath.empty() && (path == store.workPath || isSameFile(path, store.workPath))) {
        editor.dialogs.messageBox(kErrorCaption,
                                  path + " is the working copy of the model that is open, " +
                                      store.modelPath + ". Choose another file.");
        return true;
    }
    if (!store.modelPath.empty() && isSameFile(workPathFor(path), store.modelPath)) {
        editor.dialogs.messageBox(kErrorCaption,
                                  "The working copy of " + path + " would take the place of " +
                                      store.modelPath +
                                      ", which is open. Save that model under another name first.");
        return true;
    }
    return false;
}

int chooseGeoset(Editor& editor, std::size_t geosetCount) {
    if (geosetCount <= 1) return 1;
    const std::string prompt = "Geoset to import(1 - " + std::to_string(geosetCount) + "):";
    while (true) {
        const std::optional<std::string> answer =
            editor.dialogs.inputBox(prompt, "Geoset to open", "1");
        const std::optional<double> number =
            parseUserNumber(answer.value_or(""), editor.userNumbers);
        if (number && *number >= 1 && *number <= static_cast<double>(geosetCount)) {
            return roundToInt32(*number);
        }
    }
}

std::optional<PickedGeoset> pickGeoset(Editor& editor, const ModelText& text,
                                       const std::string& advice) {
    const std::vector<GeosetBlock> geosets = scanGeosets(text.view());
    PickedGeoset picked;
    picked.geosetCount = geosets.size();
    picked.geosetNumber = chooseGeoset(editor, geosets.size());
    try {
        ReadNotes notes;
        picked.geoset = parseGeoset(text, geosets, picked.geosetNumber, &notes);
        if (picked.geosetNumber <= static_cast<int>(geosets.size())) {
            const GeosetBlock& block = geosets[static_cast<std::size_t>(picked.geosetNumber) - 1];
            if (!block.closed && !staysWhole(text, geosets, picked)) {
                throw ModelTextError(text, block.begin,
                                     "the geoset that starts here is not closed, and could not be "
                                     "read again after a save.");
            }
        }
        if (notes.notFinite > 0) showNotFinite(editor, text, notes);
        return picked;
    } catch (const ModelTextError& error) {
        showReadError(
            editor,
            "Geoset " + std::to_string(picked.geosetNumber) + " cannot be read.\n" + error.what(),
            advice);
        return std::nullopt;
    }
}

OpenOutcome openModel(Editor& editor, bool openMode) {
    // The mouse release that ends the file dialog's double click may reach a view: it must not
    // select anything.
    editor.modes.selectEnabled = false;
    editor.modes.editButtonsEnabled = true;
    OpenOutcome outcome = openChosen(editor, openMode);
    editor.window.updateButtons();
    editor.modes.selectEnabled = false;  // a timer from before may have fired under the dialog
    editor.window.startSelectTimer();
    return outcome;
}

void openCommand(Editor& editor) {
    const OpenOutcome outcome = openModel(editor, true);
    if (!outcome.picked) return;
    if (outcome.picked->geosetCount == 0) {
        editor.window.showTip(editor.store.modelPath + " holds no geoset (no line \"Geoset {\").");
    }
    redrawAll(editor);
    drawPerspective(editor);
}

void switchGeoset(Editor& editor) {
    // The working copy and not the model file: they hold the same, but where they do not (after a
    // geoset was removed, or another program wrote the model) a save goes by the working copy's
    // numbers.
    try {
        const ModelText text = readWorkingCopy(editor.store, editor.workingCopy);
        if (chooseAndRead(editor, text)) redrawAll(editor);
    } catch (const FileError& error) {
        showReadError(editor, std::string("The model cannot be read.\n") + error.what(),
                      "The geoset in memory stays as it is; save it to another file with Save As.");
    }
}

bool chooseAndRead(Editor& editor, const ModelText& text) {
    std::optional<PickedGeoset> picked =
        pickGeoset(editor, text,
                   "The geoset in memory stays as it is. Mend the line in a text editor, or choose "
                   "another geoset.");
    if (picked) takeIntoStore(editor, std::move(picked->geoset), picked->geosetNumber);
    return picked.has_value();
}

void takeIntoStore(Editor& editor, Geoset geoset, int geosetNumber) {
    static_cast<Geoset&>(editor.store) = std::move(geoset);
    editor.store.geosetNumber = geosetNumber;
    editor.store.modelLoaded = true;
    editor.store.modified = false;
    editor.store.neutralRowsSaid = false;
    editor.workingCopy.geosetRemoved = false;
    // The copies in the history belong to another mesh.
    editor.undo = {};
    editor.window.updateButtons();
}

void startUp(Editor& editor) {
    editor.window.showTip(std::string("Welcome to Corvane ") + kVersionText);
    editor.window.updateButtons();
    if (formatUserNumber(1.23, editor.userNumbers) == "1,23") {
        editor.dialogs.messageBox(
            kWarningCaption,
            std::string("Warning: You are using commas as a decimal instead of periods. The "
                        "program will not work with that setting. Go to ") +
                kDecimalSeparatorPage + " for instructions on changing that.");
    }
}

void closeModel(Editor& editor) { deleteWorkingCopy(editor.store, editor.workingCopy); }

}  // namespace corvane
