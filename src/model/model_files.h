// Reading and replacing files. A file is never written in place: the new text goes into a file
// beside it, is flushed to the disk and then renamed over it, so that a full disk, a missing
// permission or a killed process leaves either the old file or the new one.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "model/model_text.h"

namespace corvane {

/// A file that cannot be read or written. what() is "PATH: REASON"; paths are UTF-8.
class FileError : public std::runtime_error {
public:
    FileError(const std::string& path, const std::string& reason);
    /// With the reason that belongs to a value of errno.
    FileError(const std::string& path, int errorNumber);
};

/// The largest file that is read, bytes. Far beyond any model, and safely within memory.
inline constexpr std::int64_t kLargestFile = std::int64_t{1} << 30;

/// What tells a file from another one, and from itself after it was written again.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;      ///< bytes
    std::int64_t modified = 0;  ///< nanoseconds since 1970

    bool operator==(const FileStamp&) const = default;
    /// Whether both are the same file, whatever was written to it.
    bool isSameFileAs(const FileStamp& other) const {
        return device == other.device && inode == other.inode;
    }
};

/// Reads a whole file. `stamp` takes that of the bytes that were read. Throws FileError where the
/// file is missing, unreadable, too large or no regular file.
ModelText readModelFile(const std::string& path, FileStamp* stamp = nullptr);

/// A text in memory of its own, made from pieces. `path` is for messages.
ModelText joinedText(const std::string& path, std::span<const std::string_view> pieces);

/// How a file is replaced.
struct ReplaceOptions {
    /// Wait until the disk holds the file, so that it survives a loss of power.
    bool flushToDisk = true;
    /// The file is the program's own: replace it whatever its permissions say, and take those of
    /// this file, with writing by the owner added. Empty for a file of the user's.
    std::string permissionsOf;
};

/// A file that is complete beside its target but has not taken its place yet. Going out of scope
/// without commit() leaves everything as it was.
class PendingFile {
public:
    /// Writes the pieces, in order, beside the file that `path` names (through symbolic links).
    /// Throws FileError.
    PendingFile(const std::string& path, std::span<const std::string_view> pieces,
                const ReplaceOptions& options = {});
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    /// The stamp that the file has when it takes its place.
    const FileStamp& stamp() const { return stamp_; }

    /// Puts the file in its place; it keeps the permissions of the file that was there.
    /// Throws FileError, and then nothing has changed.
    void commit();

private:
    void create(const std::string& folder);
    void write(std::span<const std::string_view> pieces);
    void discard();

    std::string path_;    // as given, for messages
    std::string target_;  // where it leads
    std::string side_;    // the file beside it; empty when there is none
    bool flushToDisk_;
    int fd_ = -1;
    FileStamp stamp_;
};

/// PendingFile and commit() in one step. Returns the stamp of the file that was written.
FileStamp replaceFile(const std::string& path, std::span<const std::string_view> pieces,
                      const ReplaceOptions& options = {});

/// The stamp of the file that a path leads to; nothing where there is none.
std::optional<FileStamp> stampOf(const std::string& path);

/// Deletes a file; a file that is missing, or cannot be deleted, is left at that.
void deleteFile(const std::string& path);

/// True when both paths name the same existing file.
bool isSameFile(const std::string& a, const std::string& b);

/// The path of the working copy of a model: the model's path less its last 4 characters, with
/// "_TMP.tdl" after it.
std::string workPathFor(const std::string& modelPath);

}  // namespace corvane
