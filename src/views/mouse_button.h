// The buttons of the mouse as the views tell them apart.
#pragma once

#include <cstdint>

namespace corvane {

/// The left button selects, the right one and the middle one transform; others do nothing.
enum class MouseButton : std::uint8_t { Left, Other };

}  // namespace corvane
