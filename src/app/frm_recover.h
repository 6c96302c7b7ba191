// The window of File, Recover: what was kept, and ways to bring it back.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QTreeWidget>
#include <functional>
#include <optional>
#include <vector>

#include "app/picture_box.h"
#include "editor/dialogs.h"
#include "kept/keeper.h"

namespace corvane {

class frmRecover : public QDialog {
    Q_OBJECT

public:
    /// `open` makes an entry the current model and returns whether it did; `refuses` tells, after a
    /// message, whether no copy may be written to a path. `keeper` is null where nothing is kept.
    /// All of these outlive the window.
    frmRecover(QWidget* parent, Keeper* keeper, Dialogs& dialogs,
               std::function<bool(const KeptEntry&)> open,
               std::function<bool(const std::string&)> refuses);

    /// Shows the window with what there is now.
    void showEntries();

private:
    void fillList();
    const KeptEntry* selected() const;
    void showSelected();
    void drawPicture();
    void openSelected();
    void copySelected();
    void deleteSelected();

    Keeper* keeper_;
    Dialogs& dialogs_;
    std::function<bool(const KeptEntry&)> open_;
    std::function<bool(const std::string&)> refuses_;
    QTreeWidget* lstRecover_;
    PictureBox* pbxRecover_;
    std::vector<QPushButton*> buttons_;  // those that need an entry
    std::vector<KeptEntry> entries_;     // as listed
    std::optional<Geoset> geoset_;       // of the selected entry, for the picture
};

/// A time of an entry as the user reads it.
QString timeText(const KeptEntry& entry);

}  // namespace corvane
