// The texture coordinate editor's window. It turns events into calls of the core and shows the
// state that they leave.
#pragma once

#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <functional>

#include "app/picture_box.h"
#include "app/tool_button.h"
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

    /// The state behind the window.
    const UVEditor& uv() const { return uv_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // UVWindow
    void updateButtons() override;
    std::string loadPicture(const std::string& path) override;

    void buildMenus();
    void buildPanel();
    void connectView();
    void setFocusOrder();
    void addTool(QGridLayout& grid, const char* name, const char* caption, int row, int column,
                 std::function<void()> run);

    Editor& main_;
    PictureBox* pbxUVView_;
    QWidget* panel_;
    QComboBox* cboView_;
    QLineEdit* txtUVX_;
    QLineEdit* txtUVY_;
    UVEditor uv_;
};

}  // namespace corvane
