// One look at a file that may hold anything, as a texture.
#pragma once

#include <string_view>

namespace corvane {

/// Decodes a texture, twice. Throws BrokenPromise where it is neither refused with a reason nor a
/// picture, or not the same one both times.
void playTextureSession(std::string_view file);

}  // namespace corvane
