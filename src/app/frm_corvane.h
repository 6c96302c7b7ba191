// The main window. It turns events into calls of the core and shows the state that they leave.
#pragma once

#include <QHash>
#include <QLineEdit>
#include <QMainWindow>
#include <QTimer>
#include <memory>

#include "app/auto_keep.h"
#include "app/frm_recover.h"
#include "app/frm_uv_editor.h"
#include "app/main_window_tables.h"
#include "app/picture_box.h"
#include "app/status_line.h"
#include "app/window_builder.h"
#include "app/window_size.h"
#include "editor/editor.h"

namespace corvane {

class frmCorvane : public QMainWindow, private EditorWindow {
    Q_OBJECT

public:
    /// `dialogs` and `keeper` outlive the window. Nothing is kept where `keeper` is null.
    frmCorvane(Dialogs& dialogs, const UserNumberFormat& userNumbers, Keeper* keeper = nullptr);
    ~frmCorvane() override;

    /// What happens when the program starts: the welcome, the warning about decimal commas, and
    /// the question whether to open the unsaved edits of a program that was killed.
    void start();

    /// Opens the model that the program was started with, and its geoset `geoset` (1-based) or one
    /// that the user picks. Not where unsaved edits were brought back before: these stay.
    void openOnStart(const std::string& path, std::optional<int> geoset);

    /// Keeps what is unsaved, and waits until the disk has it.
    void keepUnsaved();

    /// The program has to end, whatever it is doing: keeps what is unsaved and deletes the working
    /// copy. Asks nothing.
    void endInOrder();

    /// The state behind the window.
    const Editor& editor() const { return editor_; }

    /// The texture editor's window; null before it was first opened.
    frmUVEditor* textureEditor() const { return textureEditor_.get(); }

    /// The window of Recover; null before it was first shown.
    frmRecover* recoverWindow() const { return recoverWindow_.get(); }

    /// What drawing the perspective view worked out and did not use, one number a vertex: how far
    /// across it lies, model units. Empty before the first drawing.
    std::vector<double> TVertX() const { return editor_.perspective.across; }
    /// Nothing fills this one.
    std::vector<double> TVertY() const { return {}; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // EditorWindow
    void updateButtons() override;
    void showTip(const std::string& text) override;
    void showNotice(const std::string& text) override;
    bool addUnsavedTexture(Snapshot& snapshot) override;
    void startSelectTimer() override;
    void showTextureEditor(UVData data) override;
    void showRecover() override;
    void showGuide() override;
    void copyText(const std::string& text) override;

    void startKeeping();
    bool mayClose();
    void stopKeeping();
    void showKeepingState(const QString& failure);
    bool openKeptEntry(const KeptEntry& entry);
    void offerKilled();
    void buildPictures();
    QWidget* buildViewButtons(PictureBox& picture, std::span<const ViewButton> buttons);
    void fillPictureGrid();
    void buildToolPanel();
    void buildReadouts();
    void buildTipBox();
    void connectPicture(PictureBox& picture, View view);
    void watchControls();
    int longestTip() const;
    int panelExcess() const;
    void layOut();
    void placeTip();
    void updateTitle();
    void abandon();
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
    QGridLayout* pictureGrid_ = nullptr;
    PanelScroller* toolScroller_ = nullptr;
    StatusLine* statusLine_;
    bool tipsBesidePanel_ = true;  // whether the tip's box ends where the tool panel begins
    QString notice_;               // takes the place of the tips
    QTimer tmrTime_;
    ButtonsOf<Editor> buttons_;
    MenusOf<Editor> menus_;
    std::vector<QWidget*> focusOrder_;  // for the tab key
    QHash<QString, QString> tips_;      // by control name
    Editor editor_;
    std::unique_ptr<frmUVEditor> textureEditor_;  // made when it is first asked for
    Keeper* keeper_;
    std::unique_ptr<AutoKeep> autoKeep_;         // null where nothing is kept
    std::unique_ptr<frmRecover> recoverWindow_;  // made when it is first asked for
};

}  // namespace corvane
