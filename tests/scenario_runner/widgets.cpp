#include "widgets.h"

#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>

#include "script.h"

namespace corvane::scenario {

namespace {

[[noreturn]] void fail(const QString& name, const char* why) {
    throw ScenarioError((name + ' ' + why).toStdString());
}

void send(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button,
          Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

// The first row with that text in one of its columns.
void chooseRow(QTreeWidget& list, const QString& text) {
    for (int column = 0; column < list.columnCount(); ++column) {
        const auto rows = list.findItems(text, Qt::MatchExactly, column);
        if (!rows.isEmpty()) return list.setCurrentItem(rows.first());
    }
    fail(list.objectName(), "has no such entry");
}

}  // namespace

bool isReachable(const QAction& action) {
    if (!action.isEnabled()) return false;
    for (const QObject* const object : action.associatedObjects()) {
        const auto* const menu = qobject_cast<const QMenu*>(object);
        if (menu != nullptr && !isReachable(*menu->menuAction())) return false;
    }
    return true;
}

void triggerMenu(const QWidget& window, const QString& name) {
    auto* const action = window.findChild<QAction*>(name);
    if (action == nullptr) fail(name, "is no menu item");
    if (action->menu() != nullptr) fail(name, "is a menu, not one of its items");
    if (!window.isVisible()) fail(name, "belongs to a window that is closed");
    if (!isReachable(*action)) fail(name, "is disabled");
    action->trigger();
}

QWidget& widgetNamed(QWidget& window, const QString& name) {
    auto* const widget = window.objectName() == name ? &window : window.findChild<QWidget*>(name);
    if (widget == nullptr) fail(name, "is no control of this window");
    if (!widget->isVisible()) fail(name, "is hidden");
    return *widget;
}

void pressButton(QWidget& window, const QString& name) {
    auto* const button = qobject_cast<QPushButton*>(&widgetNamed(window, name));
    if (button == nullptr) fail(name, "is no button");
    if (!button->isEnabled()) fail(name, "is disabled");
    const QPoint centre = button->rect().center();
    send(*button, QEvent::MouseButtonPress, centre, Qt::LeftButton, Qt::LeftButton);
    send(*button, QEvent::MouseButtonRelease, centre, Qt::LeftButton, Qt::NoButton);
}

void chooseEntry(QWidget& window, const QString& name, const QString& text) {
    if (auto* const list = qobject_cast<QTreeWidget*>(&widgetNamed(window, name))) {
        return chooseRow(*list, text);
    }
    auto* const box = qobject_cast<QComboBox*>(&widgetNamed(window, name));
    if (box == nullptr) fail(name, "is no combo box");
    if (!box->isEnabled()) fail(name, "is disabled");
    const int entry = box->findText(text);
    if (entry < 0) fail(name, "has no such entry");
    box->setCurrentIndex(entry);
}

void drag(QWidget& widget, Qt::MouseButton button, QPoint from, QPoint to) {
    send(widget, QEvent::MouseMove, from, Qt::NoButton, Qt::NoButton);
    send(widget, QEvent::MouseButtonPress, from, button, button);
    send(widget, QEvent::MouseMove, to, Qt::NoButton, button);
    send(widget, QEvent::MouseButtonRelease, to, button, Qt::NoButton);
}

void hover(QWidget& widget, QPoint at) {
    send(widget, QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
}

Qt::MouseButton buttonNamed(const QString& name) {
    if (name == "left") return Qt::LeftButton;
    if (name == "right") return Qt::RightButton;
    if (name == "middle") return Qt::MiddleButton;
    fail(name, "is no mouse button");
}

}  // namespace corvane::scenario
