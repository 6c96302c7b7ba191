// The main window with dialogs that answer from a list, and a user's gestures on it.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QScrollBar>
#include <QWindow>
#include <QtTest>
#include <memory>
#include <string>
#include <vector>

#include "app/frm_corvane.h"
#include "app_models.h"
#include "editor_fixture.h"
#include "qt_printers.h"
#include "scripted_dialogs.h"

namespace corvane {

class WindowTest : public testing::Test {
protected:
    ScriptedDialogs dialogs;
    TempFolder folder;
    std::unique_ptr<frmCorvane> window;

    void SetUp() override { showWindow(); }

    void TearDown() override {
        window.reset();
        EXPECT_TRUE(dialogs.files.empty()) << "a file dialog did not come";
        EXPECT_TRUE(dialogs.inputs.empty()) << "an input box did not come";
        EXPECT_TRUE(dialogs.yesNos.empty()) << "a question did not come";
    }

    /// Starts the program anew, for a user who writes numbers in this way.
    void showWindow(const UserNumberFormat& userNumbers = {}) {
        window = std::make_unique<frmCorvane>(dialogs, userNumbers);
        window->show();
        window->start();
        QApplication::processEvents();
    }

    template <class T>
    T& find(const QString& name) const {
        T* const found = window->findChild<T*>(name);
        if (found == nullptr) throw std::runtime_error("there is no " + name.toStdString());
        return *found;
    }
    QWidget& widget(const QString& name) const { return find<QWidget>(name); }
    PictureBox& picture(const QString& name) const { return find<PictureBox>(name); }
    ToolButton& button(const QString& name) const { return find<ToolButton>(name); }
    QAction& item(const QString& name) const { return find<QAction>(name); }
    QString tip() const { return find<QLineEdit>("txtTips").text(); }

    const Editor& editor() const { return window->editor(); }

    /// Whether the user gets at a menu item: no menu on the way is disabled.
    bool isReachable(const QAction& action) const {
        if (!action.isEnabled()) return false;
        for (const QObject* const object : action.associatedObjects()) {
            const auto* const menu = qobject_cast<const QMenu*>(object);
            if (menu != nullptr && !isReachable(*menu->menuAction())) return false;
        }
        return true;
    }

    void choose(const QString& name) {
        ASSERT_TRUE(isReachable(item(name))) << name.toStdString() << " is disabled";
        item(name).trigger();
        QApplication::processEvents();
    }

    /// Opens a model with this text and returns its path. Box selection is possible afterwards.
    std::string openModel(const std::string& name, const std::string& text = modelWithGeosets(1)) {
        std::string path = folder.write(name, text);
        dialogs.files.push_back(path);
        choose("mnuOpen");
        while (!editor().modes.selectEnabled) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return path;
    }

    /// Where a point of a control is in the window.
    QPoint inWindow(const QWidget& control, QPoint at) const {
        return control.mapTo(window.get(), at);
    }

    /// Moves the mouse to a point of a control, as a display would report it.
    void hover(const QWidget& control, QPoint at) {
        QTest::mouseMove(window->windowHandle(), inWindow(control, at));
    }
    void hover(const QWidget& control) { hover(control, control.rect().center()); }

    void click(const QWidget& control) {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                          inWindow(control, control.rect().center()));
    }

    void drag(const QWidget& control, Qt::MouseButton with, QPoint from, QPoint to) {
        QTest::mousePress(window->windowHandle(), with, {}, inWindow(control, from));
        QTest::mouseMove(window->windowHandle(), inWindow(control, to));
        QTest::mouseRelease(window->windowHandle(), with, {}, inWindow(control, to));
    }

    /// Selects all and moves it ten pixels to the right in the front view.
    void edit() {
        choose("mnuSelectAll");
        drag(picture("pbxFront"), Qt::RightButton, {50, 50}, {60, 50});
    }

    /// What is seen of a control, in the content of its window: a panel that scrolls shows a part.
    static QRect seen(const QWidget& control) {
        const QWidget& content = *qobject_cast<QMainWindow*>(control.window())->centralWidget();
        const auto rectOf = [&](const QWidget& part) {
            return QRect(part.mapTo(&content, QPoint(0, 0)), part.size());
        };
        QRect rect = rectOf(control);
        for (const auto* const scroller : content.findChildren<PanelScroller*>()) {
            if (scroller->widget()->isAncestorOf(&control)) rect &= rectOf(*scroller->viewport());
        }
        return rect;
    }

    /// That all of each control of a window is seen, some of them after scrolling.
    static void expectAllReachable(QMainWindow& shown) {
        int inPanel = 0;
        for (auto* const control : shown.centralWidget()->findChildren<QWidget*>()) {
            if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus) continue;
            for (auto* const scroller : shown.findChildren<PanelScroller*>()) {
                if (!scroller->widget()->isAncestorOf(control)) continue;
                scroller->verticalScrollBar()->setValue(
                    control->mapTo(scroller->widget(), QPoint(0, 0)).y());
                ++inPanel;
            }
            EXPECT_EQ(seen(*control).size(), control->size())
                << control->objectName().toStdString();
            EXPECT_TRUE(shown.centralWidget()->rect().contains(seen(*control)))
                << control->objectName().toStdString();
        }
        EXPECT_GT(inPanel, 10);
    }

    /// Runs a check with the application's font in another size.
    static void withFontSize(double points, const std::function<void()>& check) {
        const QFont before = QApplication::font();
        QFont font = before;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        check();
        QApplication::setFont(before);
    }

    /// Every control of the window that does something: buttons, pictures, text boxes.
    std::vector<QWidget*> controls() const {
        std::vector<QWidget*> found;
        for (QWidget* const child : window->centralWidget()->findChildren<QWidget*>()) {
            if (qobject_cast<QPushButton*>(child) != nullptr ||
                qobject_cast<PictureBox*>(child) != nullptr ||
                qobject_cast<QLineEdit*>(child) != nullptr) {
                found.push_back(child);
            }
        }
        return found;
    }
};

}  // namespace corvane
