#include "model/commands/recover_model.h"

#include <memory>
#include <utility>

#include "editor/run_edit.h"
#include "model/commands/open_model.h"
#include "model/commands/replaced_text.h"
#include "model/geoset_reader.h"

namespace corvane {

namespace {

void showError(Editor& editor, const KeptModel& kept, const char* reason) {
    editor.dialogs.messageBox(kErrorCaption,
                              "What was kept of " + kept.modelPath + " was not opened.\n" + reason +
                                  "\n\nIt is still there: Save a Copy writes it to another place.");
}

void makeCurrent(Editor& editor, const KeptModel& kept) {
    const auto base =
        std::make_shared<const ModelBase>(ModelText(kept.modelPath, kept.text.view()));
    const int number = base->hasGeoset(kept.geosetNumber)
                           ? kept.geosetNumber
                           : chooseGeoset(editor, base->geosets.size());
    ReadNotes notes;
    Geoset geoset = readGeoset(*base, number, notes);
    PendingFile workingCopy = prepareWorkingCopy(kept.modelPath, base->text.view());
    showNotes(editor, base->text, notes);
    keepForeignWorkingCopy(editor, kept.modelPath, base->text.view());
    // A stamp that no file has: whatever stands in the model's place now, a save asks.
    editor.store.open(kept.modelPath, base, kept.stamp.value_or(FileStamp{}), workingCopy);
    editor.store.noteTextUnsaved();
    takeIntoStore(editor, std::move(geoset), number);
}

}  // namespace

void showRecover(Editor& editor) { editor.window.showRecover(); }

bool openKept(Editor& editor, const KeptModel& kept) {
    if (clashesWithWorkingCopy(editor, kept.modelPath)) return false;
    try {
        makeCurrent(editor, kept);
    } catch (const std::runtime_error& error) {
        showError(editor, kept, error.what());
        return false;
    }
    // As after Open: the mouse release that ends a double click in the list must not select.
    editor.modes.selectEnabled = false;
    editor.modes.editButtonsEnabled = true;
    editor.window.startSelectTimer();
    sayNoGeoset(editor);
    show(editor, Show::ButtonsThenViews);
    drawPerspective(editor);
    return true;
}

}  // namespace corvane
