#pragma once

namespace corvane {

/// The version that the program shows. The build passes it on from CMakeLists.txt, the one place
/// where it stands.
inline constexpr const char* kVersionText = CORVANE_VERSION;

}  // namespace corvane
