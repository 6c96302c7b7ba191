#include "model/commands/delete_geoset.h"

#include <new>
#include <string>

#include "editor/run_edit.h"
#include "model/geoset_removal.h"

namespace corvane {

void deleteCurrentGeoset(Editor& editor) {
    GeosetStore& store = editor.store;
    if (!store.modelLoaded) return;
    if (store.isGeosetRemoved()) {
        editor.dialogs.messageBox(
            kWarningCaption,
            std::string("The geoset in memory is removed from the model already.") +
                (store.hasUnsavedText() ? " The model file follows with the next save." : ""));
        return;
    }
    if (!editor.dialogs.yesNo(kConfirmationCaption,
                              "Removing a geoset is not undoable. Are you sure you want to "
                              "continue?" +
                                  store.modelPath + store.workPath)) {
        return;
    }
    if (!store.base().hasGeoset(store.geosetNumber)) {
        editor.dialogs.messageBox(kErrorCaption, store.modelPath + " holds no geoset " +
                                                     std::to_string(store.geosetNumber) +
                                                     " to be removed.");
        return;
    }
    try {
        store.removeGeoset(removeGeoset(store.base().text, store.geosetNumber));
    } catch (const FileError& error) {
        editor.dialogs.messageBox(kErrorCaption,
                                  "The geoset was not removed.\n" + std::string(error.what()));
        return;
    } catch (const std::bad_alloc&) {
        editor.dialogs.messageBox(kErrorCaption,
                                  "The geoset was not removed.\nThere is not enough memory. Close "
                                  "other programs or windows and try again.");
        return;
    }
    show(editor, Show::Buttons);
}

}  // namespace corvane
