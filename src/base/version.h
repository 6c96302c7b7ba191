#pragma once

namespace corvane {

/// The version that the program shows.
inline constexpr const char* kVersionText = "1.14";

}  // namespace corvane
