// The texture coordinate editor's window. It turns events into calls of the core and shows the
// state that they leave.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <functional>

#include "app/picture_box.h"
#include "app/uv_window_tables.h"
#include "app/window_builder.h"
#include "editor/editor.h"
#include "uveditor/commands/uv_editor.h"

namespace corvane {

class frmUVEditor : public QMainWindow, private UVWindow {
    Q_OBJECT

public:
    /// `main` is the main window's state, to which Save Changes writes; it outlives this window.
    explicit frmUVEditor(Editor& main);

    /// Shows the window with new data in place of what it had.
    void showWith(UVData newData);

    /// After an edit in the main window: marks texture coordinates that Undo took back there.
    void noteEdits();

    /// Before another geoset may be read: see addUnsavedTexture().
    bool addUnsavedTexture(Snapshot& mesh);

    /// Called after texture coordinates may have changed, and when the user closes the window.
    std::function<void()> onChange;
    std::function<void()> onClose;

    /// The state behind the window.
    const UVEditor& uv() const { return uv_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // UVWindow
    void updateButtons() override;
    void showNotice(const std::string& text) override;
    std::string loadPicture(const std::string& path) override;

    void updateTitle();
    void layOut();
    void connectView();
    void buildPanel();
    void addPlanes(QGridLayout& grid);
    void addReadouts(QGridLayout& grid);

    Editor& main_;
    PictureBox* pbxUVView_;
    QWidget* panel_;
    QWidget* foot_;  // below the panel, always seen
    QComboBox* cboView_;
    QLineEdit* txtUVX_;
    QLineEdit* txtUVY_;
    QLabel* lblNotice_;
    UVEditor uv_;
    UVCommands commands_;
    ButtonsOf<UVCommands> buttons_;
    QString source_;                    // the geoset that the coordinates are of, and its model
    std::vector<QWidget*> focusOrder_;  // for the tab key
};

}  // namespace corvane
