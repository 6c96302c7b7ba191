#include "kept/kept_folder.h"

#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <set>
#include <system_error>
#include <tuple>

#include "kept/run_lock.h"

namespace corvane {

namespace {

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

std::string pathIn(const std::string& folder, const std::string& name) {
    return folder + '/' + name;
}

// A file's name, parted before the last period.
struct FileName {
    std::string stem;
    std::string extension;  // with its period

    explicit FileName(const std::string& name)
        : stem(name.substr(0, name.rfind('.'))), extension(name.substr(stem.size())) {}
};

// Since a file was written, by the system's clock, milliseconds.
std::int64_t ageOf(const std::string& path) {
    const std::optional<FileStamp> stamp = stampOf(path);
    if (!stamp) return 0;
    const std::chrono::nanoseconds now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               now - std::chrono::nanoseconds(stamp->modified))
        .count();
}

// What is left of an entry whose JSON cannot be read.
KeptEntry damagedEntry(const std::string& folder, const std::string& name, const FileStamp& model) {
    constexpr std::int64_t kNanoseconds = 1'000'000;  // a millisecond
    KeptEntry entry;
    entry.name = name;
    entry.modelPath = keptModelPath(folder, name);
    entry.time = model.modified / kNanoseconds;
    entry.because = KeptBecause::Replaced;
    entry.run = name.substr(0, kRunDigits);
    entry.damaged = true;
    return entry;
}

bool isNewer(const KeptEntry& a, const KeptEntry& b) {
    return std::tie(a.order, a.time, a.name) > std::tie(b.order, b.time, b.name);
}

// One pass over the entries of a folder, newest first.
class Pruning {
public:
    Pruning(const std::string& folder, const KeptLimits& limits, const Pruner& pruner)
        : folder_(folder), limits_(limits), pruner_(pruner), entries_(readEntries(folder)) {}

    // Returns the number of entries removed.
    std::size_t run() {
        mendTimes();
        // Where even the newest is too old the clock may be wrong, and nothing has come in between.
        const bool agesCount =
            pruner_.byAge && std::ranges::any_of(entries_, [this](const KeptEntry& entry) {
                return !isTooOld(entry);
            });
        std::erase_if(entries_, [this](const KeptEntry& entry) { return isProtected(entry); });
        if (agesCount) removeWhere([this](const KeptEntry& entry) { return isTooOld(entry); });
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
        return removed_;
    }

private:
    // An entry is no older than those that were written before it, whatever the clock said then.
    void mendTimes() {
        std::int64_t latest = 0;
        std::for_each(entries_.rbegin(), entries_.rend(), [&](KeptEntry& entry) {
            if (entry.damaged) return;
            if (entry.time <= pruner_.now) latest = std::max(latest, entry.time);
            entry.time = std::max(entry.time, latest);
        });
    }

    template <class Goes>
    void removeWhere(Goes goes) {
        std::erase_if(entries_, [&](const KeptEntry& entry) {
            if (!goes(entry)) return false;
            removeEntry(folder_, entry.name);
            ++removed_;
            return true;
        });
    }

    bool isAlive(const std::string& run) {
        const auto [known, isNew] = alive_.try_emplace(run, false);
        if (isNew) known->second = isRunAlive(folder_, run);
        return known->second;
    }

    bool isTooOld(const KeptEntry& entry) const { return pruner_.now - entry.time > limits_.age; }

    // Counts what stays against the limits of the others.
    bool isProtected(const KeptEntry& entry) {
        const bool own = entry.run == pruner_.run;
        bool stays = own ? goesOn(entry.because) : isAlive(entry.run);
        if (stays && !own) {
            sparedBytes_ += entry.size;
            return true;
        }
        if (!own && wasCutOff(entry.because) && !entry.opened) {
            const bool isNewest =
                cutOffOf_.emplace(entry.modelPath, entry.geosetNumber, entry.because).second;
            stays = isNewest || !entry.asked;
        }
        if (!stays && !pruner_.spared.contains(entry.name)) return false;
        sparedBytes_ += entry.size;
        ++sparedOf_[entry.modelPath];
        return true;
    }

    const std::string& folder_;
    const KeptLimits& limits_;
    const Pruner& pruner_;
    std::vector<KeptEntry> entries_;
    std::map<std::string, bool> alive_;                             // by run
    std::set<std::tuple<std::string, int, KeptBecause>> cutOffOf_;  // by model and geoset
    std::map<std::string, std::size_t> sparedOf_;                   // entries by model
    std::int64_t sparedBytes_ = 0;
    std::size_t removed_ = 0;
};

// Half entries, locks and files that never took their place.
void removeLeftovers(const std::string& folder, const Pruner& pruner) {
    for (const std::string& file : files::namesIn(folder, "")) {
        const std::string path = pathIn(folder, file);
        if (ageOf(path) <= kLeftoverAge) continue;
        const auto [name, extension] = FileName(file);
        if (extension == ".tmp" && name.starts_with(".corvane-")) {
            deleteFile(path);
        } else if (extension == ".lock" && isRunName(name) && name != pruner.run) {
            if (!isRunAlive(folder, name)) deleteFile(path);
        } else if ((extension == ".mdl" || extension == ".json") && isEntryName(name)) {
            const bool whole =
                stampOf(keptModelPath(folder, name)) && stampOf(keptJsonPath(folder, name));
            if (!whole && !isRunAlive(folder, name.substr(0, kRunDigits))) {
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
    makeFoldersAbove(folder);
    // Models are nobody else's business.
    const std::error_code error = files::makePrivateFolder(folder);
    if (error) throw FileError(folder, error);
}

std::string keptModelPath(const std::string& folder, const std::string& name) {
    return folder + '/' + name + ".mdl";
}

std::string keptJsonPath(const std::string& folder, const std::string& name) {
    return folder + '/' + name + ".json";
}

std::optional<KeptEntry> readEntry(const std::string& folder, const std::string& name) {
    const std::optional<FileStamp> model = stampOf(keptModelPath(folder, name));
    if (!model) return std::nullopt;
    try {
        const ModelText json = readModelFile(keptJsonPath(folder, name));
        std::optional<KeptEntry> entry = entryFromJson(name, json.view());
        if (!entry) entry = damagedEntry(folder, name, *model);
        entry->size = model->size;
        return entry;
    } catch (const FileError&) {
        return std::nullopt;
    }
}

std::vector<KeptEntry> readEntries(const std::string& folder) {
    std::vector<KeptEntry> entries;
    for (const std::string& file : files::namesIn(folder, "")) {
        const auto [name, extension] = FileName(file);
        if (extension != ".json" || !isEntryName(name)) continue;
        if (std::optional<KeptEntry> entry = readEntry(folder, name)) {
            entries.push_back(std::move(*entry));
        }
    }
    std::ranges::sort(entries, isNewer);
    return entries;
}

void writeEntry(const std::string& folder, const KeptEntry& entry,
                std::span<const std::string_view> pieces, const std::string& permissionsOf) {
    replaceFile(keptModelPath(folder, entry.name), pieces,
                {.readSoon = false, .permissionsOf = permissionsOf});
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

std::size_t pruneFolder(const std::string& folder, const KeptLimits& limits, const Pruner& pruner) {
    const std::size_t removed = Pruning(folder, limits, pruner).run();
    removeLeftovers(folder, pruner);
    return removed;
}

}  // namespace corvane
