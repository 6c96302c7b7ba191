// Makes a window's menus and buttons from its tables, which are there as long as the program runs.
#pragma once

#include <QGridLayout>
#include <QHash>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <functional>
#include <utility>
#include <vector>

#include "app/picture_box.h"
#include "app/window_tables.h"

namespace corvane {

/// The buttons of a window, by name.
using ToolButtons = QHash<QString, ToolButton*>;

/// What a window keeps of its menus: each with the row of its table.
template <class State>
struct MenusOf {
    std::vector<std::pair<QMenu*, Needs>> menus;
    std::vector<std::pair<QAction*, const MenuEntryOf<State>*>> items;
};

/// What a window keeps of its buttons: those of the panel with the rows of their tables, and all
/// of them by name.
template <class State>
struct ButtonsOf {
    std::vector<std::pair<ToolButton*, const ButtonEntryOf<State>*>> panel;
    ToolButtons byName;
};

/// Adds a titled group to a panel and returns the grid inside it.
QGridLayout& addGroup(QWidget& panel, const QString& caption);

/// Makes a button with these texts; an "&" in the caption is for its mnemonic.
ToolButton& makeButton(QWidget& parent, const char* name, const char* caption,
                       const char* accessibleName);

/// The same for one that moves a view. Its tool tip says what it does.
ToolButton& makeViewButton(QWidget& parent, const char* name, const char* accessibleName,
                           const ViewSign& sign);

/// Adds a text box that shows a coordinate, with its letter before it, as row `row`. `widest` is
/// the longest text that it has to show.
void addReadout(QGridLayout& grid, int row, QLineEdit& text, const QString& letter,
                const QString& widest);

/// Gives a menu, or a menu inside another one, its name.
void nameMenu(QMenu& menu, const char* name);

/// Lets the tab key go through these in this order.
void setFocusOrder(const std::vector<QWidget*>& order);

/// Passes the keys that a picture gets while it has the focus to the buttons that move it.
void pressByKeys(PictureBox& picture, const QHash<int, ToolButton*>& buttons);

/// A text for a title, in which "[*]" is where edits are marked: twice it stands for itself.
QString inTitle(QString text);

/// Runs `abandon` when Escape is pressed anywhere in the window.
void abandonByEscape(QWidget& window, const std::function<void()>& abandon);

/// For a text box that nothing can be typed into: whether it must leave this event to the window,
/// whose shortcuts it would keep to itself while it has the focus, such as the one that selects
/// all.
bool isForShortcuts(const QEvent& event);

/// Adds a group's buttons to its grid, and to the tab order. `state` outlives them.
template <class State>
void addButtons(QGridLayout& grid, std::span<const ButtonEntryOf<State>> entries, State& state,
                ButtonsOf<State>& buttons, std::vector<QWidget*>& order) {
    for (const ButtonEntryOf<State>& entry : entries) {
        ToolButton& button =
            makeButton(*grid.parentWidget(), entry.name, entry.caption, entry.accessibleName);
        QObject::connect(&button, &QPushButton::clicked, [&state, &entry] { entry.run(state); });
        grid.addWidget(&button, entry.row, entry.column);
        button.setCheckable(entry.look != nullptr);
        buttons.panel.emplace_back(&button, &entry);
        buttons.byName.insert(entry.name, &button);
        order.push_back(&button);
    }
}

/// Adds the buttons that move a picture's view to a grid, and to the tab order; keys press them
/// while the picture has the focus. `state` outlives them.
template <class State>
std::vector<ToolButton*> addViewButtons(QGridLayout& grid,
                                        std::span<const ViewButtonOf<State>> entries, State& state,
                                        PictureBox& picture, ButtonsOf<State>& buttons,
                                        std::vector<QWidget*>& order) {
    std::vector<ToolButton*> made;
    QHash<int, ToolButton*> keys;
    for (const ViewButtonOf<State>& entry : entries) {
        ToolButton& button =
            makeViewButton(*grid.parentWidget(), entry.name, entry.accessibleName, entry.sign);
        QObject::connect(&button, &QPushButton::clicked, [&state, &entry] { entry.run(state); });
        grid.addWidget(&button, entry.row, entry.column);
        buttons.byName.insert(entry.name, &button);
        keys.insert(entry.sign.key, &button);
        order.push_back(&button);
        made.push_back(&button);
    }
    pressByKeys(picture, keys);
    return made;
}

/// Brings the panel's buttons in line with the state.
template <class State>
void showState(const ButtonsOf<State>& buttons, const State& state) {
    for (const auto& [button, entry] : buttons.panel) {
        if (entry->look != nullptr) button->setLook(entry->look(state));
    }
}

/// Makes an item of a menu, whatever choosing it does.
template <class State>
QAction& addItem(QMenu& menu, const MenuEntryOf<State>& entry) {
    QAction* const action = menu.addAction(QMenu::tr(entry.caption));
    action->setObjectName(entry.name);
    action->setShortcut(QKeySequence(QString(entry.shortcut)));
    action->setCheckable(entry.checked != nullptr);
    return *action;
}

/// Adds the entries of a table to a menu. `connectItem(action, entry)` is called for each item.
template <class State, class Connect>
void addEntries(QMenu& menu, std::span<const MenuEntryOf<State>> entries, MenusOf<State>& made,
                Connect connectItem) {
    using Kind = typename MenuEntryOf<State>::Kind;
    QMenu* current = &menu;
    for (const MenuEntryOf<State>& entry : entries) {
        switch (entry.kind) {
            case Kind::Separator:
                current->addSeparator();
                break;
            case Kind::Submenu:
                current = menu.addMenu(QMenu::tr(entry.caption));
                nameMenu(*current, entry.name);
                break;
            case Kind::SubmenuEnd:
                current = &menu;
                break;
            case Kind::Item:
            case Kind::Close:
                QAction& action = addItem(*current, entry);
                connectItem(action, entry);
                made.items.emplace_back(&action, &entry);
                break;
        }
    }
}

/// Makes the menus of a window. Its buttons are there already; `state` outlives the menus.
template <class State>
MenusOf<State> addMenus(QMainWindow& window, std::span<const MenuTableOf<State>> tables,
                        State& state, const ToolButtons& buttons) {
    const auto connectItem = [&](QAction& action, const MenuEntryOf<State>& entry) {
        if (entry.kind == MenuEntryOf<State>::Kind::Close) {
            QObject::connect(&action, &QAction::triggered, &window, &QWidget::close);
        } else if (entry.run != nullptr) {
            QObject::connect(&action, &QAction::triggered, [&state, &entry] { entry.run(state); });
        } else if (entry.runNamed != nullptr) {
            QObject::connect(&action, &QAction::triggered,
                             [&state, &entry] { entry.runNamed(state, entry.name); });
        } else {
            QObject::connect(&action, &QAction::triggered, buttons.value(entry.press),
                             &QPushButton::click);
        }
    };
    MenusOf<State> made;
    for (const MenuTableOf<State>& table : tables) {
        QMenu* const menu = window.menuBar()->addMenu(QMenu::tr(table.caption));
        if (*table.name != '\0') nameMenu(*menu, table.name);
        made.menus.emplace_back(menu, table.needs);
        addEntries(*menu, table.entries, made, connectItem);
    }
    return made;
}

/// Brings the menus in line with the state. `isMet(needs)` says what can be used.
template <class State, class IsMet>
void showState(const MenusOf<State>& made, const State& state, const ToolButtons& buttons,
               IsMet isMet) {
    for (const auto& [menu, needs] : made.menus) menu->menuAction()->setEnabled(isMet(needs));
    for (const auto& [action, entry] : made.items) {
        const ToolButton* const pressed = buttons.value(entry->press);
        action->setEnabled(isMet(entry->needs) && (pressed == nullptr || pressed->isEnabled()));
        if (entry->checked != nullptr) action->setChecked(entry->checked(state));
        if (entry->captionNow != nullptr) {
            action->setText(QString::fromStdString(entry->captionNow(state)));
        }
    }
}

}  // namespace corvane
