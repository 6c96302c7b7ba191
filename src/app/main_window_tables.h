// The main window's menus and buttons as tables.
#pragma once

#include "app/window_tables.h"
#include "editor/editor.h"

namespace corvane {

using MenuEntry = MenuEntryOf<Editor>;
using MenuTable = MenuTableOf<Editor>;
using ButtonEntry = ButtonEntryOf<Editor>;
using ButtonGroup = ButtonGroupOf<Editor>;
using ViewButton = ViewButtonOf<Editor>;

std::span<const MenuTable> mainMenus();

std::span<const ButtonGroup> toolPanel();

/// The buttons beside the front, top and left pictures and the perspective picture, in this order.
std::span<const std::span<const ViewButton>> viewButtons();

}  // namespace corvane
