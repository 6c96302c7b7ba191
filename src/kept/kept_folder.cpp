#include "kept/kept_folder.h"

#include <sys/stat.h>

#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <map>
#include <set>
#include <system_error>
#include <tuple>

#include "kept/run_lock.h"

namespace corvane {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kRunDigits = 16;
constexpr std::int64_t kLeftoverAge = std::int64_t{24} * 60 * 60 * 1000;  // milliseconds

bool isRunName(std::string_view text) {
    return text.size() == kRunDigits &&
           text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

// Whether a file's name, less its extension, is one that is given to entries: "RUN-NUMBER". Other
// files in the folder are somebody else's.
bool isEntryName(std::string_view name) {
    return name.size() > kRunDigits + 1 && isRunName(name.substr(0, kRunDigits)) &&
           name[kRunDigits] == '-' &&
           name.find_first_not_of("0123456789", kRunDigits + 1) == std::string_view::npos;
}

// Calls with the path of each file in the folder. The names are the system's own, not the standard
// library's: its folders end the program where memory runs out.
template <class Call>
void forEachFile(const std::string& folder, Call call) {
    for (const std::string& name : files::namesIn(folder, "")) call(fs::path(folder + '/' + name));
}

// Since a file was written, by the system's clock, milliseconds.
std::int64_t ageOf(const fs::path& path) {
    std::error_code error;
    const fs::file_time_type written = fs::last_write_time(path, error);
    if (error) return 0;
    return std::chrono::duration_cast<std::chrono::milliseconds>(fs::file_time_type::clock::now() -
                                                                 written)
        .count();
}

std::optional<KeptEntry> readEntry(const std::string& folder, const std::string& name) {
    const std::optional<FileStamp> model = stampOf(keptModelPath(folder, name));
    if (!model) return std::nullopt;
    try {
        const ModelText json = readModelFile(keptJsonPath(folder, name));
        std::optional<KeptEntry> entry = entryFromJson(name, json.view());
        if (entry) entry->size = model->size;
        return entry;
    } catch (const FileError&) {
        return std::nullopt;
    }
}

bool isNewer(const KeptEntry& a, const KeptEntry& b) {
    return std::tie(a.order, a.time, a.name) > std::tie(b.order, b.time, b.name);
}

// One pass over the entries of a folder, newest first.
class Pruning {
public:
    Pruning(const std::string& folder, const KeptLimits& limits, const Pruner& pruner)
        : folder_(folder), limits_(limits), pruner_(pruner), entries_(readEntries(folder)) {}

    void run() {
        std::erase_if(entries_, [this](const KeptEntry& entry) { return isProtected(entry); });
        removeWhere(
            [this](const KeptEntry& entry) { return pruner_.now - entry.time > limits_.age; });
        std::map<std::string, std::size_t> counts;
        for (const auto& [model, count] : sparedOf_) counts[model] = count;
        removeWhere([&](const KeptEntry& entry) {
            return ++counts[entry.modelPath] > limits_.entriesOfModel;
        });
        std::int64_t bytes = sparedBytes_;
        for (const KeptEntry& entry : entries_) bytes += entry.size;
        std::ranges::reverse(entries_);
        removeWhere([&](const KeptEntry& entry) {
            if (bytes <= limits_.bytes) return false;
            bytes -= entry.size;
            return true;
        });
    }

private:
    template <class Goes>
    void removeWhere(Goes goes) {
        std::erase_if(entries_, [&](const KeptEntry& entry) {
            if (!goes(entry)) return false;
            removeEntry(folder_, entry.name);
            return true;
        });
    }

    bool isAlive(const std::string& run) {
        const auto [known, isNew] = alive_.try_emplace(run, false);
        if (isNew) known->second = isRunAlive(folder_, run);
        return known->second;
    }

    // Counts what stays against the limits of the others.
    bool isProtected(const KeptEntry& entry) {
        const bool own = entry.run == pruner_.run;
        bool stays =
            own ? entry.name == pruner_.spare || goesOn(entry.because) : isAlive(entry.run);
        if (stays && !own) {
            sparedBytes_ += entry.size;
            return true;
        }
        const bool ofKilled = !own && goesOn(entry.because) && !entry.opened;
        // The newest of a model.
        if (ofKilled) stays = killedOf_.emplace(entry.modelPath, entry.because).second;
        if (!stays) return false;
        sparedBytes_ += entry.size;
        ++sparedOf_[entry.modelPath];
        return true;
    }

    const std::string& folder_;
    const KeptLimits& limits_;
    const Pruner& pruner_;
    std::vector<KeptEntry> entries_;
    std::map<std::string, bool> alive_;  // by run
    std::set<std::pair<std::string, KeptBecause>> killedOf_;
    std::map<std::string, std::size_t> sparedOf_;  // entries by model
    std::int64_t sparedBytes_ = 0;
};

// Half entries, damaged ones, locks and files that never took their place.
void removeLeftovers(const std::string& folder, const KeptLimits& limits, const Pruner& pruner) {
    std::vector<fs::path> old;
    forEachFile(folder, [&](const fs::path& path) {
        if (ageOf(path) > kLeftoverAge) old.push_back(path);
    });
    for (const fs::path& path : old) {
        const std::string name = path.stem().string();
        const std::string extension = path.extension().string();
        if (extension == ".tmp" && name.starts_with(".corvane-")) {
            deleteFile(path.string());
        } else if (extension == ".lock" && isRunName(name) && name != pruner.run) {
            if (!isRunAlive(folder, name)) deleteFile(path.string());
        } else if ((extension == ".mdl" || extension == ".json") && isEntryName(name)) {
            const bool whole =
                stampOf(keptModelPath(folder, name)) && stampOf(keptJsonPath(folder, name));
            const bool damaged = whole && ageOf(path) > limits.age && !readEntry(folder, name);
            if ((!whole || damaged) && !isRunAlive(folder, name.substr(0, kRunDigits))) {
                removeEntry(folder, name);
            }
        }
    }
}

}  // namespace

std::string standardKeptFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString() +
           "/corvane/kept";
}

void makeKeptFolder(const std::string& folder) {
    std::error_code error;
    fs::create_directories(fs::path(folder).parent_path(), error);
    if (error) throw FileError(folder, error.value());
    if (::mkdir(folder.c_str(), 0700) == 0) return;
    if (errno != EEXIST) throw FileError(folder, errno);
    if (!fs::is_directory(folder, error)) throw FileError(folder, ENOTDIR);
    // Models are nobody else's business. Where that cannot be had, keeping counts for more.
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0 || (status.st_mode & 077U) == 0) return;
    [[maybe_unused]] const int changed = ::chmod(folder.c_str(), status.st_mode & 0700U);
}

std::string keptModelPath(const std::string& folder, const std::string& name) {
    return folder + '/' + name + ".mdl";
}

std::string keptJsonPath(const std::string& folder, const std::string& name) {
    return folder + '/' + name + ".json";
}

std::vector<KeptEntry> readEntries(const std::string& folder) {
    std::vector<KeptEntry> entries;
    forEachFile(folder, [&](const fs::path& path) {
        const std::string name = path.stem().string();
        if (path.extension() != ".json" || !isEntryName(name)) return;
        if (std::optional<KeptEntry> entry = readEntry(folder, name)) {
            entries.push_back(std::move(*entry));
        }
    });
    std::ranges::sort(entries, isNewer);
    return entries;
}

void writeEntry(const std::string& folder, const KeptEntry& entry,
                std::span<const std::string_view> pieces, const std::string& permissionsOf) {
    replaceFile(keptModelPath(folder, entry.name), pieces, {.permissionsOf = permissionsOf});
    try {
        writeEntryJson(folder, entry, permissionsOf);
    } catch (...) {
        removeEntry(folder, entry.name);
        throw;
    }
}

void writeEntryJson(const std::string& folder, const KeptEntry& entry,
                    const std::string& permissionsOf) {
    const std::string json = entryJson(entry);
    replaceFile(keptJsonPath(folder, entry.name), std::array{std::string_view(json)},
                {.permissionsOf = permissionsOf});
}

void removeEntry(const std::string& folder, const std::string& name) {
    deleteFile(keptJsonPath(folder, name));
    deleteFile(keptModelPath(folder, name));
}

void pruneFolder(const std::string& folder, const KeptLimits& limits, const Pruner& pruner) {
    Pruning(folder, limits, pruner).run();
    removeLeftovers(folder, limits, pruner);
}

}  // namespace corvane
