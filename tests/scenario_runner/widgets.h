// Finding and using the widgets of a window as a user would.
#pragma once

#include <QAction>
#include <QString>
#include <QWidget>

namespace corvane::scenario {

/// Whether a user can trigger the item: it and every menu around it are enabled.
bool isReachable(const QAction& action);

/// Triggers a menu item. Throws ScenarioError where it is missing or disabled.
void triggerMenu(const QWidget& window, const QString& name);

/// The widget with that name. Throws ScenarioError where there is none, or it is hidden.
QWidget& widgetNamed(QWidget& window, const QString& name);

/// Clicks a button. Throws ScenarioError where it is missing or disabled.
void pressButton(QWidget& window, const QString& name);

/// Picks an entry of a combo box. Throws ScenarioError where it is missing.
void chooseEntry(QWidget& window, const QString& name, const QString& text);

/// Presses a button at one point of a widget, moves to another and releases it there. Whole pixels
/// inside the widget.
void drag(QWidget& widget, Qt::MouseButton button, QPoint from, QPoint to);

/// Moves the mouse, no button down, to a point of a widget.
void hover(QWidget& widget, QPoint at);

/// A mouse button by its name. Throws ScenarioError for another word.
Qt::MouseButton buttonNamed(const QString& name);

}  // namespace corvane::scenario
