// What the tests of replacing files share: a folder of their own, and what became of a replacement.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/model_files.h"
#include "temp_folder.h"

namespace corvane {

using Names = std::vector<std::string>;

/// Replaces a file with `text`; the message where that fails, "written" where it does not.
inline std::string replacingResult(const std::string& path, std::string_view text,
                                   const ReplaceOptions& options = {}) {
    try {
        replaceFile(path, std::array{text}, options);
    } catch (const FileError& error) {
        return error.what();
    }
    return "written";
}

class ReplaceFileTest : public testing::Test {
protected:
    void makeFolder(const std::string& name) const {
        ASSERT_TRUE(std::filesystem::create_directory(folder.path(name)));
    }

    TempFolder folder;
};

}  // namespace corvane
