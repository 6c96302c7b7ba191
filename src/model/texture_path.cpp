#include "model/texture_path.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <system_error>

#include "base/text.h"
#include "model/files.h"
#include "model/model_files.h"

namespace corvane {

namespace {

constexpr std::array<std::string_view, 4> kExtensions = {".blp", ".dds", ".tga", ".png"};

// The game itself takes no longer names.
constexpr std::size_t kLongestName = 260;

using Parts = std::vector<std::string>;

// The folders and the name; what leads elsewhere than down is left out.
Parts partsOf(std::string_view image) {
    Parts parts;
    if (image.size() > kLongestName) return parts;
    while (!image.empty()) {
        const std::size_t end = std::min(image.find_first_of("\\/"), image.size());
        const std::string_view part = image.substr(0, end);
        const bool isDrive = part.ends_with(':');
        if (!part.empty() && part != "." && part != ".." && !isDrive) parts.emplace_back(part);
        image.remove_prefix(std::min(end + 1, image.size()));
    }
    return parts;
}

// The names that a file may have, without its folders.
std::vector<std::string> namesOf(const std::string& name) {
    std::vector<std::string> names = {name};
    const std::size_t period = name.rfind('.');
    const std::string_view own =
        period == std::string::npos ? std::string_view() : std::string_view(name).substr(period);
    const std::string stem = name.substr(0, name.size() - own.size());
    for (const std::string_view extension : kExtensions) {
        if (!isSameIgnoringCase(extension, own)) names.push_back(stem + std::string(extension));
    }
    return names;
}

std::string joined(const std::string& folder, const std::string& name) {
    return folder.empty() || folder.ends_with('/') ? folder + name : folder + '/' + name;
}

// Looks for files whatever the case of their names; each folder is read once.
class Finder {
public:
    // The file that the parts lead to from a folder; empty where they lead to none.
    std::string find(const std::string& folder, std::span<const std::string> parts) {
        for (const std::string& name : matching(folder, parts.front())) {
            std::string path = joined(folder, name);
            if (parts.size() > 1) {
                path = find(path, parts.subspan(1));
            } else if (!isFile(path)) {
                path.clear();
            }
            if (!path.empty()) return path;
        }
        return {};
    }

private:
    // The names in a folder that are a part, the one that is it to the letter first.
    std::vector<std::string> matching(const std::string& folder, const std::string& part) {
        const auto [entry, isNew] = known_.try_emplace(folder);
        if (isNew) {
            entry->second = files::namesIn(folder, "");
            std::ranges::sort(entry->second);
        }
        std::vector<std::string> found;
        for (const std::string& name : entry->second) {
            if (name == part) {
                found.insert(found.begin(), name);
            } else if (isSameIgnoringCase(name, part)) {
                found.push_back(name);
            }
        }
        return found;
    }

    static bool isFile(const std::string& path) {
        std::error_code ignored;
        const auto status = files::statusOf(path, ignored);
        return status && status->kind == files::Kind::Regular;
    }

    std::map<std::string, std::vector<std::string>> known_;
};

// The folder of a file and those above it.
std::vector<std::string> foldersAbove(const std::string& path) {
    std::vector<std::string> folders;
    std::string folder = folderOf(path);
    while (folders.empty() || folder != folders.back()) {
        folders.push_back(folder);
        folder = folderOf(folder);
    }
    return folders;
}

}  // namespace

std::vector<std::string> textureFileNames(std::string_view image) {
    const Parts parts = partsOf(image);
    if (parts.empty()) return {};
    std::string folders;
    for (const std::string& folder : std::span(parts).first(parts.size() - 1)) {
        folders += folder + '/';
    }
    std::vector<std::string> names = namesOf(parts.back());
    for (std::string& name : names) name.insert(0, folders);
    return names;
}

std::string findTexture(const std::string& modelPath, std::string_view image) {
    Parts parts = partsOf(image);
    if (parts.empty()) return {};
    const std::vector<std::string> names = namesOf(parts.back());
    Finder finder;
    for (const std::string& folder : foldersAbove(modelPath)) {
        for (std::size_t first = 0; first < parts.size(); ++first) {
            for (const std::string& name : names) {
                parts.back() = name;
                std::string found = finder.find(folder, std::span(parts).subspan(first));
                if (!found.empty()) return found;
            }
        }
    }
    return {};
}

}  // namespace corvane
