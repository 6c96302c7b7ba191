// The rows of the tables that a window's menus and buttons are made from: name, texts, and what
// they do. `State` is what the window's commands work on.
#pragma once

#include <Qt>
#include <span>
#include <string>
#include <string_view>

#include "app/tool_button.h"

namespace corvane {

/// What an item needs before it can be used.
enum class Needs { Nothing, Model, UndoStep };

/// One entry of a menu. An item has one of `run`, `runNamed` and `press`; Close closes the window.
/// A submenu holds what comes before its end; there are none inside others.
template <class State>
struct MenuEntryOf {
    enum class Kind { Item, Close, Separator, Submenu, SubmenuEnd };
    Kind kind = Kind::Item;
    const char* name = "";
    const char* caption = "";   ///< with the mnemonic's "&"
    const char* shortcut = "";  ///< as QKeySequence reads it
    void (*run)(State&) = nullptr;
    void (*runNamed)(State&, std::string_view name) = nullptr;  ///< called with the entry's name
    const char* press = "";  ///< the name of a button of the panel
    Needs needs = Needs::Nothing;
    bool (*checked)(const State&) = nullptr;            ///< for items with a check mark
    std::string (*captionNow)(const State&) = nullptr;  ///< for a caption that follows the state
};

/// A menu of the menu bar.
template <class State>
struct MenuTableOf {
    const char* name;
    const char* caption;
    Needs needs;
    std::span<const MenuEntryOf<State>> entries;
};

/// A button of a panel.
template <class State>
struct ButtonEntryOf {
    const char* name;
    const char* caption;
    const char* accessibleName;
    int row;  ///< place in its group's grid
    int column;
    void (*run)(State&);
    ButtonLook (*look)(const State&);  ///< null for a button that always looks like others
};

/// A titled group of buttons of a panel.
template <class State>
struct ButtonGroupOf {
    const char* caption;
    std::span<const ButtonEntryOf<State>> buttons;
};

/// What stands on a button that moves a view, and the key that presses it while the view has the
/// focus.
struct ViewSign {
    const char* caption;  ///< empty for an arrow
    Qt::ArrowType arrow;
    Qt::Key key;
};

inline constexpr ViewSign kPlus = {"+", Qt::NoArrow, Qt::Key_Plus};
inline constexpr ViewSign kMinus = {"-", Qt::NoArrow, Qt::Key_Minus};
inline constexpr ViewSign kUp = {"", Qt::UpArrow, Qt::Key_Up};
inline constexpr ViewSign kDown = {"", Qt::DownArrow, Qt::Key_Down};
inline constexpr ViewSign kLeft = {"", Qt::LeftArrow, Qt::Key_Left};
inline constexpr ViewSign kRight = {"", Qt::RightArrow, Qt::Key_Right};

/// A button that moves a view.
template <class State>
struct ViewButtonOf {
    const char* name;
    const char* accessibleName;
    ViewSign sign;
    int row;  ///< place in the view's grid: 3 columns of arrows, zoom above
    int column;
    void (*run)(State&);
};

}  // namespace corvane
