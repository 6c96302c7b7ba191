// The working copy: the text of the open model on disk, beside the model. Saving takes from it
// all that it does not write anew.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "model/geoset_store.h"
#include "model/model_files.h"
#include "model/model_text.h"

namespace corvane {

/// What is known of the working copy; its path is GeosetStore::workPath.
struct WorkingCopy {
    WorkingCopy() = default;
    WorkingCopy(const WorkingCopy&) = delete;
    WorkingCopy& operator=(const WorkingCopy&) = delete;
    ~WorkingCopy();

    /// The model file that it is a copy of; empty while it is the copy of none, which is after a
    /// geoset was removed from it and before the next save.
    std::string copyOf;

    /// A geoset was removed from it and none has been read since: the geoset in memory is not in
    /// the working copy.
    bool geosetRemoved = false;

    /// An open handle of the file, from which the text can be had back when something deletes the
    /// file itself; -1 for none.
    int handle = -1;

    /// The file cannot be had back at its path (its folder is gone, say): read the handle instead.
    bool readHandle = false;
};

/// A working copy of the text, complete but not yet in its place. `modelPath` is the model that
/// it belongs to, whose permissions it takes. Throws FileError.
PendingFile prepareWorkingCopy(const std::string& modelPath,
                               std::span<const std::string_view> pieces);

/// Puts a prepared working copy at its place and makes it the store's; another one that the store
/// had is deleted. `copyOf` as in WorkingCopy. Throws FileError, and then nothing has changed.
void commitWorkingCopy(GeosetStore& store, WorkingCopy& copy, PendingFile& prepared,
                       const std::string& workPath, const std::string& copyOf);

/// Replaces the text of the working copy where it is. Throws FileError, and then nothing has
/// changed.
void rewriteWorkingCopy(const GeosetStore& store, WorkingCopy& copy,
                        std::span<const std::string_view> pieces, const std::string& copyOf);

/// The text of the working copy. Throws FileError where it cannot be read.
ModelText readWorkingCopy(const GeosetStore& store, const WorkingCopy& copy);

/// Makes a missing working copy again, from the model that it is a copy of or else from the open
/// handle. Returns whether the text is to be had again (if only from the handle).
bool restoreWorkingCopy(const GeosetStore& store, WorkingCopy& copy);

/// Deletes the working copy, if there is one.
void deleteWorkingCopy(GeosetStore& store, WorkingCopy& copy);

}  // namespace corvane
