// The main window. It turns events into calls of the core and shows the state that they leave.
#pragma once

#include <QHash>
#include <QLineEdit>
#include <QMainWindow>
#include <QTimer>
#include <memory>

#include "app/frm_uv_editor.h"
#include "app/main_window_tables.h"
#include "app/picture_box.h"
#include "app/window_builder.h"
#include "editor/editor.h"

namespace corvane {

class frmCorvane : public QMainWindow, private EditorWindow {
    Q_OBJECT

public:
    /// `dialogs` outlives the window.
    frmCorvane(Dialogs& dialogs, const UserNumberFormat& userNumbers);

    /// What happens when the program starts: the welcome, and the warning about decimal commas.
    void start();

    /// The state behind the window.
    const Editor& editor() const { return editor_; }

    /// The texture editor's window; null before it was first opened.
    frmUVEditor* textureEditor() const { return textureEditor_.get(); }

    /// What drawing the perspective view worked out and did not use, one number a vertex: how far
    /// across it lies, model units. Empty before the first drawing.
    std::vector<double> TVertX() const { return editor_.perspective.across; }
    /// Nothing fills this one.
    std::vector<double> TVertY() const { return {}; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // EditorWindow
    void updateButtons() override;
    void showTip(const std::string& text) override;
    void showNotice(const std::string& text) override;
    void startSelectTimer() override;
    void showTextureEditor(UVData data) override;
    void copyText(const std::string& text) override;

    void buildPictures();
    QWidget* buildViewButtons(PictureBox& picture, std::span<const ViewButton> buttons);
    void fillPictureGrid();
    void buildToolPanel();
    void buildReadouts();
    void buildTipBox();
    void connectPicture(PictureBox& picture, View view);
    void watchControls();
    int longestTip() const;
    void layOut();
    void placeTip();
    void updateTitle();
    bool isMet(Needs needs) const;
    ToolButton* button(const char* name) const { return buttons_.byName.value(QString(name)); }

    QWidget* central_;
    PictureBox* pbxFront_;
    PictureBox* pbxTop_;
    PictureBox* pbxLeft_;
    PictureBox* pbxPersp_;
    QWidget* toolPanel_;
    QLineEdit* txtX_;
    QLineEdit* txtY_;
    QLineEdit* txtZ_;
    QLineEdit* txtTips_;
    QGridLayout* layout_;
    QGridLayout* pictureGrid_;
    bool tipsBesidePanel_ = true;  // whether the tip's box ends where the tool panel begins
    QString notice_;               // takes the place of the tips
    QTimer tmrTime_;
    ButtonsOf<Editor> buttons_;
    MenusOf<Editor> menus_;
    std::vector<QWidget*> focusOrder_;  // for the tab key
    QHash<QString, QString> tips_;      // by control name
    Editor editor_;
    std::unique_ptr<frmUVEditor> textureEditor_;  // made when it is first asked for
};

}  // namespace corvane
