// Folders and files of a test's own, on every system.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace corvane {

/// The standard library's path for one in UTF-8, whatever the system's own encoding is.
inline std::filesystem::path systemPathOf(const std::string& text) {
    return {std::u8string(text.begin(), text.end())};
}

/// A folder that is deleted in the end. Paths are UTF-8, with "/" between the folders.
class TempFolder {
public:
    TempFolder() {
        std::random_device random;
        const std::filesystem::path above = std::filesystem::temp_directory_path();
        do {
            path_ = above / ("corvane-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// The path of a file in the folder.
    std::string path(const std::string& name) const { return textOf(path_ / systemPathOf(name)); }

    /// Writes a file and returns its path.
    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / systemPathOf(name), std::ios::binary) << bytes;
        return path(name);
    }

    /// The names of everything in the folder, hidden files included, sorted.
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            found.push_back(textOf(entry.path().filename()));
        }
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    static std::string textOf(const std::filesystem::path& path) {
        const std::u8string text = path.generic_u8string();
        return {text.begin(), text.end()};
    }

    std::filesystem::path path_;
};

inline std::string readFile(const std::string& path) {
    std::ifstream in(systemPathOf(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace corvane
