// The texts of the tips and of the Help menu. UTF-8; a line break in a box is CR LF.
#pragma once

#include <span>
#include <string_view>

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

/// The box of a menu item; null where there is none.
const HelpBox* helpBoxOf(std::string_view menuItem);

}  // namespace corvane
