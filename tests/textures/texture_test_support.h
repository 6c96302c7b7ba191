// What the tests of textures share.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

#include "texture_files.h"
#include "textures/texture.h"

namespace corvane {

inline constexpr std::size_t kMostTestPixels = std::size_t{8192} * 8192;

inline constexpr const char* kCutOff = "ends before its picture does";

/// The pixels of a file as "AARRGGBB", row by row; the reason where it cannot be read.
inline std::vector<std::string> pixels(const std::string& file) {
    try {
        const Texture texture = decodeTexture(file, kMostTestPixels);
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < texture.size(); ++i) {
            std::ostringstream text;
            text << std::hex << std::setw(8) << std::setfill('0') << texture.pixels[i];
            texts.push_back(text.str());
        }
        return texts;
    } catch (const TextureError& error) {
        return {error.what()};
    }
}

/// Why a file cannot be read.
inline std::string refusal(const std::string& file) {
    const std::vector<std::string> texts = pixels(file);
    return texts.size() == 1 ? texts.front() : "was read";
}

/// That a file cut off at any byte behind its first ones is refused, unless it lacks at most this
/// many; then it is the same picture.
inline void expectCutsAreSeen(const std::string& file, std::size_t head, std::size_t unneeded = 0) {
    const std::vector<std::string> whole = pixels(file);
    ASSERT_GT(whole.size(), 1U) << whole.front();
    for (std::size_t size = head; size < file.size(); ++size) {
        const std::string cut = file.substr(0, size);
        ASSERT_TRUE(isTexture(cut)) << size;
        if (file.size() - size <= unneeded) {
            EXPECT_EQ(pixels(cut), whole) << size << " of " << file.size();
        } else {
            EXPECT_EQ(refusal(cut), kCutOff) << size << " of " << file.size();
        }
    }
}

using Texts = std::vector<std::string>;

}  // namespace corvane
