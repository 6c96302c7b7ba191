// The texts of the tips and of the Help menu. UTF-8; a line break in a box is CR LF.
#pragma once

#include <span>

#include "editor.h"

namespace corvane {

/// The tip of a control.
struct Tip {
    const char* control;
    const char* text;
};

/// The tips of the controls, by control name. The views' tips come with the mouse readout.
std::span<const Tip> controlTips();

/// A box of the Help menu.
struct HelpBox {
    const char* menuItem;
    const char* title;
    const char* text;
    bool rightToLeft = false;
};

std::span<const HelpBox> helpBoxes();

/// Shows a box of the Help menu; nothing where there is none for that menu item.
void showHelp(Editor& editor, std::string_view menuItem);

}  // namespace corvane
