// The marks between the parts of a JPEG file.
#pragma once

#include <string_view>

namespace corvane {

/// Whether the picture of a JPEG file comes in several passes, as far as the file goes. What it
/// holds besides, such as a small picture in what the camera says, does not count.
bool comesInPasses(std::string_view bytes);

}  // namespace corvane
