// Reading and replacing files. The new text goes into a file beside the old one, is flushed to the
// disk and then renamed over it, so that a full disk, a missing permission or a killed process
// leaves either the old file or the new one. Only a file that has other names (hard links) is
// written in place, because a rename would part it from them; its former text is on the disk
// meanwhile.
//
// What the files beside are called: ".corvane-PROCESS-NUMBER.tmp" for a new text, ".former" for a
// former one.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "model/file_stamp.h"
#include "model/files.h"
#include "model/model_text.h"

namespace corvane {

/// A file that cannot be read or written. what() is "PATH: REASON"; paths are UTF-8.
class FileError : public std::runtime_error {
public:
    FileError(const std::string& path, const std::string& reason);
    FileError(const std::string& path, std::error_code code);
    /// With the reason that belongs to a value of errno.
    FileError(const std::string& path, int errorNumber);

    /// What the system said; no error where the reason is the program's own.
    std::error_code code() const { return code_; }

private:
    std::error_code code_;
};

/// A file that could neither be written in place nor be given its former text back. The reason
/// names the file that holds that text.
class FileDamagedError : public FileError {
public:
    using FileError::FileError;
};

/// The largest file that is read, bytes. Far beyond any model, and safely within memory.
inline constexpr std::int64_t kLargestFile = std::int64_t{1} << 30;

/// Reads a whole file. `stamp` takes that of the bytes that were read. Throws FileError where the
/// file is missing, unreadable, too large or no regular file.
ModelText readModelFile(const std::string& path, FileStamp* stamp = nullptr);

/// A text in memory of its own, made from pieces. `path` is for messages.
ModelText joinedText(const std::string& path, std::span<const std::string_view> pieces);

/// How a file is replaced.
struct ReplaceOptions {
    /// Wait until the disk holds the file, so that it survives a loss of power.
    bool flushToDisk = true;
    /// Whether somebody may read the file before long. A large file that nobody reads would take
    /// the system's memory away from the files that are worked on.
    bool readSoon = true;
    /// The file is the program's own: replace it whatever its permissions say, and take those of
    /// this file, with writing by the owner added. Empty for a file of the user's.
    std::string permissionsOf;
    /// Where the file's name is longer than the file system takes, write nothing instead of
    /// throwing.
    bool skipTooLongName = false;
};

/// A file that is complete beside its target but has not taken its place yet. Going out of scope
/// without commit() leaves everything as it was.
class PendingFile {
public:
    /// Writes the pieces, in order, beside the file that `path` names (through symbolic links).
    /// Throws FileError.
    PendingFile(std::string path, std::span<const std::string_view> pieces,
                const ReplaceOptions& options = {});
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    /// The stamp that the file has when it takes its place. That of a file with other names, or one
    /// that the file system numbers anew under its new name, is known only after commit().
    const FileStamp& stamp() const { return stamp_; }

    /// Puts the file in its place; it keeps the permissions of the file that was there, and its
    /// other names. Throws FileError, and then nothing has changed; but see FileDamagedError.
    /// Nothing is thrown once the file is in its place.
    void commit();

private:
    void prepare(std::span<const std::string_view> pieces, const ReplaceOptions& options);
    files::File createBeside(const char* ending, bool secret, std::string& name);
    FileStamp write(std::span<const std::string_view> pieces, files::File& file);
    void keepFormer();
    void writeInPlace();
    void discard();

    std::string path_;    // as given, for messages
    std::string target_;  // where it leads
    std::string folder_;  // of the target
    std::string side_;    // the file beside it; empty when there is none
    std::string former_;  // the file with the former text; empty when there is none
    bool flushToDisk_;
    bool readSoon_;
    bool inPlace_ = false;
    FileStamp stamp_;
};

/// PendingFile and commit() in one step. Returns the stamp of the file that was written.
FileStamp replaceFile(const std::string& path, std::span<const std::string_view> pieces,
                      const ReplaceOptions& options = {});

/// The stamp of the file that a path leads to; nothing where there is none.
std::optional<FileStamp> stampOf(const std::string& path);

/// Deletes a file; a file that is missing, or cannot be deleted, is left at that.
void deleteFile(const std::string& path);

/// Deletes the files that processes which are gone have left beside a model: those with a new text,
/// which no file was to have unless it was whole, of the user's own, and more than a minute old.
/// Best effort.
void deleteLeftovers(const std::string& modelPath);

/// The files beside a model that hold what a file held before a process wrote it in place and was
/// gone before the end. Throws FileError where the path leads nowhere.
std::vector<std::string> formerTextsBeside(const std::string& modelPath);

/// True when both paths name the same existing file.
bool isSameFile(const std::string& a, const std::string& b);

/// A path beside another one that names no file: folder/STEMEXTENSION, or with "-2", "-3" and so on
/// between the two. `extension` begins with its period.
std::string freePath(const std::string& folder, const std::string& stem,
                     const std::string& extension);

/// Makes the folders that a path leads through, where they are missing. Throws FileError.
void makeFoldersAbove(const std::string& path);

/// The folder that a path names a file in, empty for a bare name, and itself for what no folder is
/// above; the name; and the name without its extension.
std::string folderOf(const std::string& path);
std::string nameOf(const std::string& path);
std::string stemOf(const std::string& path);

/// The path of the working copy of a model: the model's path less its last 4 characters, with
/// "_TMP.tdl" after it.
std::string workPathFor(const std::string& modelPath);

}  // namespace corvane
