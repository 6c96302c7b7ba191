// The main window's menus and buttons as tables: name, texts, and what they do.
#pragma once

#include <Qt>
#include <span>
#include <string_view>

#include "editor/editor.h"

namespace corvane {

/// What an item needs before it can be used.
enum class Needs { Nothing, Model, UndoStep };

/// One entry of a menu. An item runs `run` or presses the button that `press` names; with neither
/// it closes the window. A Help entry is an item that shows the help box of its own name.
struct MenuEntry {
    enum class Kind { Item, Help, Separator, Submenu, SubmenuEnd };
    Kind kind = Kind::Item;
    const char* name = "";
    const char* caption = "";   ///< with the mnemonic's "&"
    const char* shortcut = "";  ///< as QKeySequence reads it
    void (*run)(Editor&) = nullptr;
    const char* press = "";
    Needs needs = Needs::Nothing;
    bool (*checked)(const Editor&) = nullptr;  ///< for items with a check mark
};

/// A menu of the menu bar.
struct MenuTable {
    const char* name;
    const char* caption;
    Needs needs;
    std::span<const MenuEntry> entries;
};

std::span<const MenuTable> mainMenus();

/// A button of the tool panel.
struct ButtonEntry {
    const char* name;
    const char* caption;
    const char* accessibleName;
    int row;  ///< place in its group's grid
    int column;
    void (*run)(Editor&);
    Colour (*colour)(const Editor&);  ///< null for a button that is always a button's colour
};

/// A titled group of buttons of the tool panel.
struct ButtonGroup {
    const char* caption;
    std::span<const ButtonEntry> buttons;
};

std::span<const ButtonGroup> toolPanel();

/// A button beside a picture.
struct ViewButton {
    const char* name;
    const char* accessibleName;
    const char* caption;  ///< empty for the arrows
    Qt::ArrowType arrow;
    int row;  ///< place in the grid beside the picture: 3 columns of pan arrows, zoom above
    int column;
    void (*run)(Editor&);
};

/// The buttons beside the front, top and left pictures and the perspective picture, in this order.
std::span<const std::span<const ViewButton>> viewButtons();

}  // namespace corvane
