// What is known of one model that was kept.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editor/way_back.h"
#include "model/model_files.h"

namespace corvane {

/// One entry: a complete model "NAME.mdl" in the folder, and all else in "NAME.json" beside it.
struct KeptEntry {
    std::string name{};
    std::string modelPath{};  ///< where the model had its place, UTF-8
    int geosetNumber = 0;     ///< 1-based, of the geoset that was edited; 0 for none
    std::int64_t time = 0;    ///< milliseconds since 1970, UTC
    std::int64_t order = 0;   ///< larger for later entries, whatever the clock says
    KeptBecause because = KeptBecause::Editing;
    std::string run{};                 ///< the run of the program that kept it
    std::optional<FileStamp> stamp{};  ///< of the model file when it was last read or written
    std::string digest{};              ///< of the model's bytes
    bool asked = false;                ///< the user was asked once whether to open it
    bool opened = false;               ///< it was opened again
    std::int64_t size = 0;             ///< bytes of the model; not in the JSON
    /// The JSON is damaged: modelPath is that of the entry's own model.
    bool damaged = false;
};

/// The contents of "NAME.json".
std::string entryJson(const KeptEntry& entry);

/// An entry from that; nothing where it is damaged. `name` is the name of its files.
std::optional<KeptEntry> entryFromJson(const std::string& name, std::string_view json);

/// Why it was kept, for the user: "closed without saving".
const char* reasonText(KeptBecause because);

}  // namespace corvane
