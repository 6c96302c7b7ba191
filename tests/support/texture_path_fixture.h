// A folder of models and textures.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "model/texture_path.h"
#include "temp_folder.h"

namespace corvane {

class TexturePathTest : public testing::Test {
protected:
    TempFolder folder;

    /// Makes a file with the folders before it, and returns its path.
    std::string make(const std::string& name) {
        const std::filesystem::path path = folder.path(name);
        std::filesystem::create_directories(path.parent_path());
        return folder.write(name, "picture");
    }

    /// Where the texture of the model "mods/orc/hero.mdl" is, without the folder of the test.
    std::string found(const std::string& image) {
        std::filesystem::create_directories(folder.path("mods/orc"));
        const std::string path = findTexture(folder.path("mods/orc/hero.mdl"), image);
        const std::string root = folder.path("");
        return path.starts_with(root) ? path.substr(root.size()) : path;
    }
};

}  // namespace corvane
