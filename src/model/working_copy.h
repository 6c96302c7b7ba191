// The working copy: the text of the open model on disk, beside the model. Saving takes from it
// all that it does not write anew.
//
// It is read through a handle that is kept open, never by its name: another window on the same
// model, or anything else, may replace or delete the file.
#pragma once

#include <optional>
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

    /// The open file; -1 while no model is open.
    int handle = -1;

    /// A geoset was removed from it and none has been read since: the geoset in memory is not in
    /// the working copy.
    bool geosetRemoved = false;

    /// The user was told that the file is missing from its place.
    bool missingSaid = false;

    /// The model file when the working copy was made from it or saved to it, and its stamp then.
    std::string modelPath;
    std::optional<FileStamp> modelStamp;
};

/// A working copy of the text, complete but not yet in its place. `modelPath` is the model that
/// it belongs to, whose permissions it takes. Throws FileError.
PendingFile prepareWorkingCopy(const std::string& modelPath,
                               std::span<const std::string_view> pieces);

/// Puts a prepared working copy of `modelPath` at its place and makes it the store's; another one
/// that the store had is deleted. Throws FileError, and then nothing has changed.
void commitWorkingCopy(GeosetStore& store, WorkingCopy& copy, PendingFile& prepared,
                       const std::string& modelPath);

/// Replaces the text of the working copy where it is. Throws FileError, and then nothing has
/// changed.
void rewriteWorkingCopy(const GeosetStore& store, WorkingCopy& copy,
                        std::span<const std::string_view> pieces);

/// The text of the working copy. Throws FileError where it cannot be read.
ModelText readWorkingCopy(const GeosetStore& store, const WorkingCopy& copy);

/// Whether there is a file at the working copy's place.
bool isWorkingCopyThere(const GeosetStore& store);

/// Puts a missing working copy back at its place; false where that cannot be done.
bool restoreWorkingCopy(const GeosetStore& store, WorkingCopy& copy);

/// Makes the model file itself, just written, serve as the working copy's text, because the working
/// copy could not be renewed; the old one is deleted. False where the model cannot be opened.
bool readFromModelInstead(const GeosetStore& store, WorkingCopy& copy);

/// Remembers the model file as it is now, after it was written.
void noteModelWritten(const GeosetStore& store, WorkingCopy& copy);

/// Whether the model file is another one now than when it was last read or written here. False
/// where it is missing: then there is nothing that saving could destroy.
bool isModelChangedOutside(const GeosetStore& store, const WorkingCopy& copy);

/// Deletes the working copy, unless something else stands in its place.
void deleteWorkingCopy(GeosetStore& store, WorkingCopy& copy);

}  // namespace corvane
