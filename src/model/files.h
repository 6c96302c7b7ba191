// What the program asks of the system about files: the one header before all that is different from
// system to system. files_posix.cpp answers it for systems of the Unix kind, files_windows.cpp for
// Windows; what is built on it, model_files.h, knows no system. Paths are the system's bytes, on
// Windows UTF-8, with "/" or "\\" in those that are given and "/" in those that come back. No
// function here throws but where it says so; errors are of std::generic_category().
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "model/file_stamp.h"

namespace corvane::files {

enum class Kind : std::uint8_t { Regular, Folder, Other };

/// What the system says of a file.
struct Status {
    FileStamp stamp;
    Kind kind = Kind::Other;
    std::uint64_t names = 1;  ///< how many names (hard links) lead to it
    std::uint32_t owner = 0;  ///< as the system numbers users, groups and permissions
    std::uint32_t group = 0;
    std::uint32_t permissions = 0;
};

/// What an error means. Throws std::bad_alloc.
std::string wordsFor(std::error_code error);

enum class Links : std::uint8_t { Follow, Stay };

/// With "/" between the folders, where the system takes something else for it, too. Throws
/// std::bad_alloc.
std::string withSlashes(std::string path);

/// Whether a path is that of a computer in the network, or of what it shares, and no more. No
/// folder is above that. Throws std::bad_alloc.
bool isShare(const std::string& path);

/// Nothing where there is no such file, and where it cannot be looked at; then `error` says why.
std::optional<Status> statusOf(const std::string& path, std::error_code& error,
                               Links links = Links::Follow) noexcept;

/// What a symbolic link leads to, as it stands in it or whole; nothing where the path is no such
/// link, and where it cannot be looked at. `error` says why a link cannot be read. Throws
/// std::bad_alloc.
std::optional<std::string> linkTarget(const std::string& path, std::error_code& error);

/// Why the user may not write an existing file; no error where they may.
std::error_code whyNotWritable(const std::string& path) noexcept;

/// Gives a file another name, whose former file is replaced, at once or not at all.
std::error_code rename(const std::string& from, const std::string& to) noexcept;

/// Deletes a file, or a link and not what it leads to. Leaves folders alone.
std::error_code remove(const std::string& path) noexcept;

/// Waits until the disk holds the names in a folder; empty for the current one. Best effort: not
/// every system lets a folder be flushed.
void flushFolder(const std::string& folder) noexcept;

/// The names in a folder (empty for the current one) that begin with a text; none where it cannot
/// be read. Throws std::bad_alloc.
std::vector<std::string> namesIn(const std::string& folder, std::string_view beginning);

/// Makes a folder and those above it, where they are missing. Throws std::bad_alloc.
std::error_code makeFolders(const std::string& path);

/// Makes a folder that only its owner can look into, unless it is there; then others lose their
/// rights in it, where that is to be had. The folders above must be there.
std::error_code makePrivateFolder(const std::string& path) noexcept;

/// Whether the file belongs to the user who runs the program.
bool isOwnedByUser(const Status& status) noexcept;

/// The number of this process, and whether a number is that of none that runs.
long processId() noexcept;
bool isProcessGone(long id) noexcept;

/// The user's home folder; empty where there is none.
std::string homeFolder();

/// Memory for the bytes of a file, with its content undefined. Throws std::bad_alloc.
std::unique_ptr<char[]> memoryFor(std::size_t size);

/// Who may use a file that is made.
enum class Privacy : std::uint8_t { Usual, OwnerOnly };

/// An open file, which closes itself.
class File {
public:
    File() = default;
    File(File&& other) noexcept : handle_(std::exchange(other.handle_, kNone)) {}
    File& operator=(File&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { close(); }

    /// Opens a file to be read. Never waits, as it would for the writer of a named pipe.
    static File toRead(const std::string& path, std::error_code& error) noexcept;
    /// Makes a file that must not be there yet, to be written.
    static File toCreate(const std::string& path, Privacy privacy, std::error_code& error) noexcept;
    /// Opens a file to be written in place, from its beginning.
    static File toRewrite(const std::string& path, std::error_code& error) noexcept;

    /// Opens a file to be locked, made for its owner only where it is missing.
    static File toLock(const std::string& path, std::error_code& error) noexcept;

    bool isOpen() const { return handle_ != kNone; }

    /// Locks the file against lock() by any other process, for which it waits, until the file is
    /// closed, however the process ends. False where the file system knows no locks.
    bool lock() noexcept;
    /// Whether another process holds that lock.
    bool isLocked() noexcept;

    std::optional<Status> status(std::error_code& error) const noexcept;

    /// The number of bytes read; 0 at the end, and after an error.
    std::size_t read(std::span<char> into, std::error_code& error) noexcept;

    /// Writes the pieces, in order and whole.
    std::error_code write(std::span<const std::string_view> pieces) noexcept;

    /// Cuts the file, or makes it longer, to a size in bytes.
    std::error_code setSize(std::size_t size) noexcept;

    /// Waits until the disk holds what was written.
    std::error_code flush() noexcept;

    /// Gives back the memory in which the system holds what was flushed, for nobody will read it
    /// soon.
    void forget() noexcept;

    /// Gives the file the owner and the permissions of another one; `addWriting` lets its owner
    /// write it in any case. An owner that the user may not give away stays; on a file system
    /// without permissions of its own there are none to give.
    std::error_code takeOver(const Status& from, bool addWriting) noexcept;

    /// No error where the file is not open.
    std::error_code close() noexcept;

private:
    static constexpr std::intptr_t kNone = -1;
    explicit File(std::intptr_t handle) : handle_(handle) {}

    std::intptr_t handle_ = kNone;
};

}  // namespace corvane::files
