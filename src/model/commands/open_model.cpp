#include "model/commands/open_model.h"

#include <memory>
#include <new>

#include "base/numbers.h"
#include "base/version.h"
#include "editor/keep_unsaved.h"
#include "editor/run_edit.h"
#include "model/commands/replaced_text.h"
#include "model/geoset_reader.h"
#include "model/model_writer.h"

namespace corvane {

namespace {

constexpr const char* kGeosetOrModel = "another geoset or model";

void showReadError(Editor& editor, const std::string& what, const std::string& advice) {
    editor.dialogs.messageBox(kErrorCaption, what + "\n\n" + advice);
}

void showUnreadable(Editor& editor, int geosetNumber, const ModelTextError& error,
                    const std::string& advice) {
    showReadError(editor,
                  "Geoset " + std::to_string(geosetNumber) + " cannot be read.\n" + error.what(),
                  advice);
}

void sayNoSuchGeoset(Editor& editor, const ModelBase& base, int wanted, const ReadAdvice& advice) {
    const std::size_t count = base.geosets.size();
    const std::string has =
        count == 1 ? "has one geoset" : "has " + std::to_string(count) + " geosets";
    showReadError(
        editor,
        base.text.path() + ' ' + has + ", so there is no geoset " + std::to_string(wanted) + '.',
        advice.outcome + " Choose " + advice.choice + '.');
}

// Whether a geoset that is not closed would still be the same one after a save.
bool staysWhole(const ModelBase& base, int number, const Geoset& geoset) {
    const ModelText saved(base.text.path(),
                          composeModel(base.text, base.geosets, number, geoset).joined());
    const std::vector<GeosetBlock> savedGeosets = scanGeosets(saved.view());
    if (savedGeosets.size() != base.geosets.size()) return false;
    try {
        const Geoset again = parseGeoset(saved, savedGeosets, number);
        return again.Vertices.size() == geoset.Vertices.size() && again.Faces == geoset.Faces &&
               again.matrixGroups == geoset.matrixGroups &&
               again.rowSections.size() == geoset.rowSections.size();
    } catch (const ModelTextError&) {
        return false;
    }
}

// A model file as it was read.
struct ReadModel {
    SharedBase base;
    FileStamp stamp;
};

// Nothing, after a message, where the file cannot be read.
std::optional<ReadModel> readModel(Editor& editor, const std::string& path) {
    try {
        ReadModel read;
        read.base = std::make_shared<const ModelBase>(readModelFile(path, &read.stamp));
        return read;
    } catch (const FileError& error) {
        const bool isMissing = error.code() == std::errc::no_such_file_or_directory;
        editor.dialogs.messageBox(
            kErrorCaption,
            isMissing ? "Bad file name" : std::string("Bad file name\n") + error.what());
        return std::nullopt;
    }
}

// Makes a model and one of its geosets current, with a working copy of its own.
std::optional<PickedGeoset> makeCurrent(Editor& editor, const std::string& path,
                                        const ReadModel& model, std::optional<int> wanted) {
    if (clashesWithWorkingCopy(editor, path)) return std::nullopt;
    try {
        PendingFile workingCopy = prepareWorkingCopy(path, model.base->text.view());
        std::optional<PickedGeoset> picked =
            pickGeoset(editor, *model.base,
                       {"The file was not opened and is unchanged.", kGeosetOrModel}, wanted);
        if (!picked) return std::nullopt;
        keepUnsaved(editor, KeptBecause::AnotherOpened);
        keepForeignWorkingCopy(editor, path, model.base->text.view());
        editor.store.open(path, model.base, model.stamp, workingCopy);
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

// Tells of saves near a model that were cut off while they wrote a file in place: nothing else
// would.
void sayInterrupted(Editor& editor, const std::string& path) {
    try {
        for (const std::string& former : formerTextsBeside(path)) {
            editor.dialogs.messageBox(
                kWarningCaption,
                "A save in this folder was cut off while it wrote a file that has several names "
                "(hard links). That file may be damaged; what it held before is whole in\n" +
                    former +
                    "\n\nIf it is the model that you open: copy that file over it, and open it "
                    "anew. Delete that file once you do not need it any more.");
        }
    } catch (const FileError&) {
        // Opening says what is wrong with the path.
    }
}

OpenOutcome readAndMakeCurrent(Editor& editor, const std::string& path,
                               std::optional<int> wanted = {}) {
    sayInterrupted(editor, path);
    const std::optional<ReadModel> model = readModel(editor, path);
    if (!model) return {};
    return {.picked = makeCurrent(editor, path, *model, wanted)};
}

OpenOutcome openForMerge(Editor& editor, const std::string& path) {
    const std::optional<ReadModel> model = readModel(editor, path);
    if (!model) return {};
    return {.picked = pickGeoset(editor, *model->base, {"Nothing was merged.", kGeosetOrModel})};
}

// Says that memory has run out. A geoset is read as a whole or not at all.
void sayOutOfMemory(Editor& editor, bool isRead) {
    editor.dialogs.messageBox(
        kErrorCaption, isRead ? "The geoset was read, but there is not enough memory to show all "
                                "of it.\n\nClose other programs or windows, then go on."
                              : "There is not enough memory to read that model.\n\nNothing was "
                                "changed: what was open before is still here. Close other programs "
                                "or windows and try again.");
}

// Runs what may read a geoset into the store, and says so where memory runs out meanwhile.
template <class Read>
void sayingOutOfMemory(Editor& editor, Read read) {
    const std::uint64_t meshBefore = editor.store.revisions.mesh();
    try {
        read();
    } catch (const std::bad_alloc&) {
        sayOutOfMemory(editor, editor.store.revisions.mesh() != meshBefore);
    }
}

// The mouse release that ends the file dialog's double click may reach a view: it must not select
// anything. So box selection is off until a timer fires.
template <class Ask>
OpenOutcome withoutSelecting(Editor& editor, Ask ask) {
    editor.modes.selectEnabled = false;
    editor.modes.editButtonsEnabled = true;
    OpenOutcome outcome;
    sayingOutOfMemory(editor, [&] { outcome = ask(); });
    editor.modes.selectEnabled = false;  // a timer from before may have fired under the dialog
    show(editor, Show::Buttons);
    editor.window.startSelectTimer();
    return outcome;
}

void showOpened(Editor& editor, const OpenOutcome& outcome) {
    if (!outcome.picked) return;
    try {
        sayNoGeoset(editor);
        show(editor, Show::Views);
        drawPerspective(editor);
    } catch (const std::bad_alloc&) {
        sayOutOfMemory(editor, true);
    }
}

}  // namespace

void sayNoGeoset(Editor& editor) {
    if (!editor.store.base().geosets.empty()) return;
    editor.dialogs.messageBox(
        kWarningCaption, editor.store.modelPath +
                             " holds no geoset (no line \"Geoset {\"). There is nothing to edit "
                             "in it; open another model.");
}

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

Geoset readGeoset(const ModelBase& base, int number, ReadNotes& notes) {
    Geoset geoset = parseGeoset(base.text, base.geosets, number, &notes);
    if (!base.hasGeoset(number)) return geoset;
    const GeosetBlock& block = base.geosets[static_cast<std::size_t>(number) - 1];
    if (!block.closed && !staysWhole(base, number, geoset)) {
        throw ModelTextError(
            base.text, block.begin,
            "the geoset that starts here is not closed, and could not be read again after a save.");
    }
    return geoset;
}

void showNotes(Editor& editor, const ModelText& text, const ReadNotes& notes) {
    if (!notes.shortSections.empty()) {
        editor.dialogs.messageBox(kWarningCaption, shortSectionsMessage(text, notes));
    }
    if (notes.notFinite > 0) {
        editor.dialogs.messageBox(kWarningCaption, notFiniteMessage(text, notes));
    }
}

std::optional<PickedGeoset> pickGeoset(Editor& editor, const ModelBase& base,
                                       const ReadAdvice& advice, std::optional<int> wanted) {
    PickedGeoset picked;
    picked.geosetCount = base.geosets.size();
    if (wanted && !base.hasGeoset(*wanted)) {
        sayNoSuchGeoset(editor, base, *wanted, advice);
        return std::nullopt;
    }
    picked.geosetNumber = wanted ? *wanted : chooseGeoset(editor, base.geosets.size());
    try {
        ReadNotes notes;
        picked.geoset = readGeoset(base, picked.geosetNumber, notes);
        showNotes(editor, base.text, notes);
        return picked;
    } catch (const GeosetTooLarge& error) {
        // No line is wrong.
        showUnreadable(editor, picked.geosetNumber, error,
                       advice.outcome + " Choose " + advice.choice +
                           ", or split this geoset in the program that made the model.");
    } catch (const ModelTextError& error) {
        showUnreadable(
            editor, picked.geosetNumber, error,
            advice.outcome + " Mend the line in a text editor, or choose " + advice.choice + ".");
    }
    return std::nullopt;
}

OpenOutcome openPath(Editor& editor, const std::string& path, std::optional<int> wanted) {
    OpenOutcome outcome =
        withoutSelecting(editor, [&] { return readAndMakeCurrent(editor, path, wanted); });
    showOpened(editor, outcome);
    return outcome;
}

OpenOutcome openModel(Editor& editor, bool openMode) {
    OpenOutcome outcome = withoutSelecting(editor, [&]() -> OpenOutcome {
        const std::optional<std::string> path =
            editor.dialogs.openFile(kModelFilter, editor.store.modelPath);
        if (!path) return {.cancelled = true, .picked = {}};
        return openMode ? readAndMakeCurrent(editor, *path) : openForMerge(editor, *path);
    });
    if (openMode) showOpened(editor, outcome);
    return outcome;
}

void openCommand(Editor& editor) { openModel(editor, true); }

void switchGeoset(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    // From the text in memory and not from the model file: they hold the same, but where they do
    // not (after a geoset was removed, or another program wrote the model) a save goes by its
    // numbers.
    chooseAndRead(editor);
}

void chooseAndRead(Editor& editor, bool keepDropped) {
    sayingOutOfMemory(editor, [&] {
        std::optional<PickedGeoset> picked =
            pickGeoset(editor, editor.store.base(),
                       {"The geoset in memory stays as it is.", "another geoset"});
        if (!picked) return;
        if (keepDropped) keepUnsaved(editor, KeptBecause::Switched);
        takeIntoStore(editor, std::move(picked->geoset), picked->geosetNumber);
        show(editor, Show::Views);
    });
}

void takeIntoStore(Editor& editor, Geoset geoset, int geosetNumber) {
    editor.store.takeGeoset(std::move(geoset), geosetNumber);
    // The copies in the history belong to another mesh.
    editor.undo = {};
    show(editor, Show::Buttons);
}

void startUp(Editor& editor) {
    editor.window.showTip(std::string("Welcome to Corvane ") + kVersionText);
    show(editor, Show::Buttons);
    if (formatUserNumber(1.23, editor.userNumbers) == "1,23") {
        editor.dialogs.messageBox(
            kWarningCaption,
            std::string("Warning: You are using commas as a decimal instead of periods. The "
                        "program will not work with that setting. Go to ") +
                editor.decimalSeparatorPage + " for instructions on changing that.");
    }
}

void closeModel(Editor& editor) { editor.store.close(); }

}  // namespace corvane
