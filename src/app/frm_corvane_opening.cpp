// The main window's part in opening models that no dialog asked for.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QTimer>

#include "app/dropped_file.h"
#include "app/frm_corvane.h"
#include "model/commands/open_model.h"

namespace corvane {

void frmCorvane::openOnStart(const std::string& path, std::optional<int> geoset) {
    if (editor_.store.modelLoaded) {
        editor_.dialogs.messageBox(
            "Open", path + " was not opened, since the unsaved edits are. File, Open opens it.");
        return;
    }
    openPath(editor_, path, geoset);
}

void frmCorvane::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedModel(*event->mimeData()).empty()) event->acceptProposedAction();
}

void frmCorvane::dropEvent(QDropEvent* event) {
    const std::string path = droppedModel(*event->mimeData());
    if (path.empty()) return;
    event->acceptProposedAction();
    // What is asked is asked here, after the other program was told that the file has arrived.
    QTimer::singleShot(0, this, [this, path] {
        activateWindow();
        openPath(editor_, path);
    });
}

}  // namespace corvane
