// The main window. It turns events into calls of the core and shows the state that they leave.
#pragma once

#include <QHash>
#include <QLineEdit>
#include <QMainWindow>
#include <QTimer>

#include "app/main_window_tables.h"
#include "app/picture_box.h"
#include "app/tool_button.h"
#include "editor.h"

namespace corvane {

class frmCorvane : public QMainWindow, private MainWindow {
    Q_OBJECT

public:
    /// `dialogs` outlives the window.
    frmCorvane(Dialogs& dialogs, const UserNumberFormat& userNumbers);

    /// What happens when the program starts: the welcome, and the warning about decimal commas.
    void start();

    /// The state behind the window.
    const Editor& editor() const { return editor_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // MainWindow
    void updateButtons() override;
    void showTip(const std::string& text) override;
    void startSelectTimer() override;
    void copyText(const std::string& text) override;

    void buildMenus();
    QAction* addEntry(QMenu& menu, const MenuEntry& entry);
    void buildPictures();
    void buildViewButtons();
    void buildToolPanel();
    void buildReadouts(QWidget& panel);
    void connectPicture(PictureBox& picture, View view);
    void finishControls();
    void layOut();
    void updateTitle();
    bool isMet(Needs needs) const;
    ToolButton* button(const char* name) const { return buttons_.value(QString(name)); }

    QWidget* central_;
    PictureBox* pbxFront_;
    PictureBox* pbxTop_;
    PictureBox* pbxLeft_;
    PictureBox* pbxPersp_;
    std::vector<QWidget*> viewColumns_;  // the buttons beside each picture, in picture order
    QWidget* toolPanel_;
    QLineEdit* txtX_;
    QLineEdit* txtY_;
    QLineEdit* txtZ_;
    QLineEdit* txtTips_;
    QTimer tmrTime_;
    QHash<QString, ToolButton*> buttons_;
    QHash<QString, QString> tips_;  // by control name
    std::vector<std::pair<QAction*, const MenuEntry*>> items_;
    std::vector<std::pair<QMenu*, Needs>> menus_;
    Editor editor_;
};

}  // namespace corvane
