// The buttons of the mouse as the views tell them apart.
#pragma once

#include <cstdint>

namespace corvane {

/// Every button but the left one transforms.
enum class MouseButton : std::uint8_t { Left, Other };

}  // namespace corvane
