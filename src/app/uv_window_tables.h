// The texture editor's menus and buttons as tables.
#pragma once

#include "app/window_tables.h"
#include "uveditor/commands/exchange.h"

namespace corvane {

/// What the commands of the texture editor's window work on.
struct UVCommands {
    UVEditor& uv;
    Editor& main;                        ///< the main window's state
    RemapPlane plane = RemapPlane::Top;  ///< chosen for Remap
};

using UVMenuEntry = MenuEntryOf<UVCommands>;
using UVMenuTable = MenuTableOf<UVCommands>;
using UVButton = ButtonEntryOf<UVCommands>;
using UVViewButton = ViewButtonOf<UVCommands>;

/// A titled group of the panel beside the view.
struct UVGroup {
    /// What stands above its buttons.
    enum class Top { Nothing, ViewButtons, Planes, Readouts };
    const char* caption;
    std::span<const UVButton> buttons;
    Top top = Top::Nothing;
    bool atFoot = false;  ///< below what scrolls, so that it is always seen
};

/// An entry of the combo box.
struct UVPlane {
    const char* caption;
    RemapPlane plane;
};

std::span<const UVMenuTable> uvMenus();

std::span<const UVGroup> uvPanel();

/// The buttons that move the view.
std::span<const UVViewButton> uvViewButtons();

std::span<const UVPlane> uvPlanes();

}  // namespace corvane
