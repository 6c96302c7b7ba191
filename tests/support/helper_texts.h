// The two texts that corvane_file_helper saves in turn.
#pragma once

#include <cstddef>
#include <string>

namespace corvane {

/// Number 0 or 1; long enough for a save of it to be cut anywhere.
inline std::string helperText(int number) {
    constexpr std::size_t kSize = 300'000;
    return number == 0 ? std::string(kSize, 'o') : std::string(kSize + 77, 'n');
}

}  // namespace corvane
