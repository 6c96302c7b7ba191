// The folder of what was kept. Several programs may use one folder at the same time: each writes
// entries of its own, and leaves alone those of others that still run.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kept/kept_entry.h"

namespace corvane {

/// How much is kept. Beyond that the oldest goes first.
struct KeptLimits {
    std::size_t entriesOfModel = 10;
    std::int64_t age = std::int64_t{30} * 24 * 60 * 60 * 1000;  ///< milliseconds
    std::int64_t bytes = std::int64_t{1} << 30;                 ///< of all models
};

/// The folder of a user's programs: "corvane/kept" where the system keeps data of programs.
std::string standardKeptFolder();

/// Makes the folder, which only its owner can look into, if it is missing. Throws FileError.
void makeKeptFolder(const std::string& folder);

/// The files of an entry.
std::string keptModelPath(const std::string& folder, const std::string& name);
std::string keptJsonPath(const std::string& folder, const std::string& name);

/// The entry with that name; nothing where it is not complete.
std::optional<KeptEntry> readEntry(const std::string& folder, const std::string& name);

/// All entries that are complete, newest first. None where the folder is missing.
std::vector<KeptEntry> readEntries(const std::string& folder);

/// Writes an entry: the model first, so that an entry with a JSON is complete. Both files get the
/// permissions of the file `permissionsOf`. Throws FileError.
void writeEntry(const std::string& folder, const KeptEntry& entry,
                std::span<const std::string_view> pieces, const std::string& permissionsOf);

/// Writes only what is known of an entry that is there. Throws FileError.
void writeEntryJson(const std::string& folder, const KeptEntry& entry,
                    const std::string& permissionsOf);

/// Deletes an entry; the JSON first, so that no half of it is ever listed.
void removeEntry(const std::string& folder, const std::string& name);

/// Whose entries pruneFolder() may remove.
struct Pruner {
    std::string run{};               ///< its own run, whose entries it may remove
    std::set<std::string> spared{};  ///< but not those with these names, whoever's they are
    std::int64_t now = 0;            ///< milliseconds since 1970, UTC
    bool byAge = false;              ///< also removes what is too old
};

/// Removes what is beyond the limits, and what is left over from programs that were killed. Never
/// an entry of another run that lives, nor one of edits that were cut off before the user was asked
/// about it; of those that nobody opened since, never the last one of a geoset. Returns the number
/// of entries removed.
std::size_t pruneFolder(const std::string& folder, const KeptLimits& limits, const Pruner& pruner);

}  // namespace corvane
