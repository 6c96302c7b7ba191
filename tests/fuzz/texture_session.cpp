#include "texture_session.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

#include "fuzz_session.h"
#include "textures/jpeg_marks.h"
#include "textures/texture.h"

namespace corvane {

namespace {

// Larger pictures only take longer.
constexpr std::size_t kMostPixels = std::size_t{1} << 18U;

// A file as it was decoded: a picture, or why it is none.
struct Decoded {
    std::optional<Texture> texture;
    std::string reason;
};

Decoded decode(std::string_view file) {
    try {
        return {.texture = decodeTexture(file, kMostPixels), .reason = {}};
    } catch (const TextureError& error) {
        return {.texture = std::nullopt, .reason = error.what()};
    }
}

bool areSame(const Texture& a, const Texture& b) {
    return a.width == b.width && a.height == b.height &&
           std::equal(a.pixels.get(), a.pixels.get() + a.size(), b.pixels.get());
}

}  // namespace

void playTextureSession(std::string_view file) {
    const Decoded first = decode(file);
    const Decoded second = decode(file);
    if (first.reason != second.reason) {
        throw BrokenPromise("two reasons: " + first.reason + " and " + second.reason);
    }
    if (!first.texture) {
        if (first.reason.empty()) throw BrokenPromise("refused without a reason");
    } else {
        if (!isTexture(file)) throw BrokenPromise("what is no texture was decoded");
        if (first.texture->size() == 0) throw BrokenPromise("a picture without a pixel");
        if (first.texture->size() > kMostPixels) throw BrokenPromise("too many pixels");
        if (!second.texture || !areSame(*first.texture, *second.texture)) {
            throw BrokenPromise("two pictures of one file");
        }
    }
    comesInPasses(file);
}

}  // namespace corvane
