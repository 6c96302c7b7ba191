// Asking the user for a whole number of 16 signed bits.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "base/numbers.h"

namespace corvane {

/// An answer as a whole number, a fraction rounded to the nearest (ties to even). Nothing where it
/// is no number or lies outside 16 signed bits.
std::optional<std::int16_t> toInt16(std::string_view answer, const UserNumberFormat& format);

}  // namespace corvane
