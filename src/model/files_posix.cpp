#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "model/files.h"

namespace corvane::files {

namespace {

constexpr mode_t kPermissionBits = 07777;

std::error_code lastError() noexcept { return {errno, std::generic_category()}; }

std::error_code errorUnless(bool done) noexcept { return done ? std::error_code() : lastError(); }

Kind kindOf(mode_t mode) noexcept {
    if (S_ISREG(mode)) return Kind::Regular;
    return S_ISDIR(mode) ? Kind::Folder : Kind::Other;
}

Status statusFrom(const struct stat& status) noexcept {
#ifdef __APPLE__
    const struct timespec& time = status.st_mtimespec;
#else
    const struct timespec& time = status.st_mtim;
#endif
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return {.stamp = {static_cast<std::uint64_t>(status.st_dev),
                      static_cast<std::uint64_t>(status.st_ino),
                      static_cast<std::int64_t>(status.st_size),
                      time.tv_sec * kNanoseconds + time.tv_nsec},
            .kind = kindOf(status.st_mode),
            .names = static_cast<std::uint64_t>(status.st_nlink),
            .owner = status.st_uid,
            .group = status.st_gid,
            .permissions = status.st_mode & kPermissionBits};
}

int descriptor(std::intptr_t handle) noexcept { return static_cast<int>(handle); }

// Whether a file system takes no permissions at all, after it has refused some with an error. The
// file was made by this process, so that a user's rights are not the reason.
bool hasNoPermissions(int fd, int error) noexcept {
    // Not compared one by one: some of them are one number on some systems.
    const std::array refusals = {EPERM, ENOSYS, ENOTSUP, EOPNOTSUPP};
    if (std::ranges::find(refusals, error) == refusals.end()) return false;
    return ::fchmod(fd, S_IRUSR | S_IWUSR) != 0;
}

}  // namespace

std::string wordsFor(std::error_code error) { return error.message(); }

// "\\" is a character like any other one.
std::string withSlashes(std::string path) { return path; }

// What is shared has a folder of the system's, as everything has.
bool isShare(const std::string& /*path*/) { return false; }

std::optional<Status> statusOf(const std::string& path, std::error_code& error,
                               Links links) noexcept {
    error.clear();
    struct stat status {};
    const int result =
        links == Links::Follow ? ::stat(path.c_str(), &status) : ::lstat(path.c_str(), &status);
    if (result == 0) return statusFrom(status);
    if (errno != ENOENT && errno != ENOTDIR) error = lastError();
    return std::nullopt;
}

std::optional<std::string> linkTarget(const std::string& path, std::error_code& error) {
    const bool isLink = std::filesystem::is_symlink(path, error);
    error.clear();
    if (!isLink) return std::nullopt;
    std::string target = std::filesystem::read_symlink(path, error).string();
    if (error) return std::nullopt;
    return target;
}

std::error_code whyNotWritable(const std::string& path) noexcept {
    return errorUnless(::access(path.c_str(), W_OK) == 0);
}

std::error_code rename(const std::string& from, const std::string& to) noexcept {
    return errorUnless(::rename(from.c_str(), to.c_str()) == 0);
}

std::error_code remove(const std::string& path) noexcept {
    return errorUnless(::unlink(path.c_str()) == 0);
}

void flushFolder(const std::string& folder) noexcept {
    const int fd =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

std::vector<std::string> namesIn(const std::string& folder, std::string_view beginning) {
    const auto close = [](DIR* open) { ::closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> open(
        ::opendir(folder.empty() ? "." : folder.c_str()), close);
    if (open == nullptr) return {};
    std::vector<std::string> names;
    while (const struct dirent* const entry = ::readdir(open.get())) {
        const std::string_view name(entry->d_name);
        if (name.starts_with(beginning)) names.emplace_back(name);
    }
    return names;
}

std::error_code makeFolders(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return error;
}

std::error_code makePrivateFolder(const std::string& path) noexcept {
    constexpr mode_t kOthers = S_IRWXG | S_IRWXO;
    if (::mkdir(path.c_str(), S_IRWXU) == 0) return {};
    if (errno != EEXIST) return lastError();
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return lastError();
    if (!S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::not_a_directory);
    if ((status.st_mode & kOthers) != 0) {
        [[maybe_unused]] const int changed = ::chmod(path.c_str(), status.st_mode & S_IRWXU);
    }
    return {};
}

bool isOwnedByUser(const Status& status) noexcept { return status.owner == ::geteuid(); }

long processId() noexcept { return ::getpid(); }

bool isProcessGone(long id) noexcept {
    // 0 and below stand for groups of processes.
    return id > 0 && ::kill(static_cast<pid_t>(id), 0) != 0 && errno == ESRCH;
}

std::string homeFolder() {
    const char* const home = std::getenv("HOME");
    if (home != nullptr && *home != '\0') return home;
    const struct passwd* const user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

// For large files the system is asked for large pages: the first touch of every small page would
// take longer than reading what goes into it.
std::unique_ptr<char[]> memoryFor(std::size_t size) {
    auto bytes = std::make_unique_for_overwrite<char[]>(size);
#ifdef MADV_HUGEPAGE
    constexpr std::size_t kLargePage = std::size_t{2} << 20U;
    if (size > kLargePage) {
        const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
        const std::size_t toPage = page - reinterpret_cast<std::uintptr_t>(bytes.get()) % page;
        ::madvise(bytes.get() + toPage, size - toPage, MADV_HUGEPAGE);
    }
#endif
    return bytes;
}

File File::toRead(const std::string& path, std::error_code& error) noexcept {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    error = errorUnless(fd >= 0);
    return File(fd);
}

File File::toCreate(const std::string& path, Privacy privacy, std::error_code& error) noexcept {
    const mode_t mode = privacy == Privacy::OwnerOnly ? 0600 : 0666;
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    error = errorUnless(fd >= 0);
    return File(fd);
}

File File::toRewrite(const std::string& path, std::error_code& error) noexcept {
    const int fd = ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
    error = errorUnless(fd >= 0);
    return File(fd);
}

File File::toLock(const std::string& path, std::error_code& error) noexcept {
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    error = errorUnless(fd >= 0);
    return File(fd);
}

// Not a lock of POSIX's: that would be let go of as soon as any descriptor of the file is closed.
bool File::lock() noexcept {
    while (::flock(descriptor(handle_), LOCK_EX) != 0) {
        if (errno != EINTR) return false;
    }
    return true;
}

bool File::isLocked() noexcept {
    return ::flock(descriptor(handle_), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

std::optional<Status> File::status(std::error_code& error) const noexcept {
    struct stat status {};
    error = errorUnless(::fstat(descriptor(handle_), &status) == 0);
    if (error) return std::nullopt;
    return statusFrom(status);
}

std::size_t File::read(std::span<char> into, std::error_code& error) noexcept {
    error.clear();
    while (true) {
        const ssize_t got = ::read(descriptor(handle_), into.data(), into.size());
        if (got >= 0) return static_cast<std::size_t>(got);
        if (errno == EINTR) continue;
        error = lastError();
        return 0;
    }
}

std::error_code File::write(std::span<const std::string_view> pieces) noexcept {
    constexpr std::size_t kMostAtOnce = 256;  // at most IOV_MAX
    std::array<struct iovec, kMostAtOnce> vectors{};
    std::size_t next = 0;  // the first piece that is not written
    std::size_t done = 0;  // bytes of it that are
    while (true) {
        std::size_t count = 0;
        for (std::size_t i = next; i < pieces.size() && count < kMostAtOnce; ++i) {
            const std::string_view piece = pieces[i].substr(i == next ? done : 0);
            if (piece.empty()) continue;
            vectors[count++] = {const_cast<char*>(piece.data()), piece.size()};
        }
        if (count == 0) return {};
        const ssize_t written =
            ::writev(descriptor(handle_), vectors.data(), static_cast<int>(count));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return lastError();
        if (written == 0) return std::make_error_code(std::errc::io_error);
        auto left = static_cast<std::size_t>(written);
        while (next < pieces.size() && left >= pieces[next].size() - done) {
            left -= pieces[next++].size() - done;
            done = 0;
        }
        done += left;
    }
}

std::error_code File::setSize(std::size_t size) noexcept {
    while (::ftruncate(descriptor(handle_), static_cast<off_t>(size)) != 0) {
        if (errno != EINTR) return lastError();
    }
    return {};
}

std::error_code File::flush() noexcept { return errorUnless(::fsync(descriptor(handle_)) == 0); }

void File::forget() noexcept {
#ifdef POSIX_FADV_DONTNEED
    ::posix_fadvise(descriptor(handle_), 0, 0, POSIX_FADV_DONTNEED);
#endif
}

std::error_code File::takeOver(const Status& from, bool addWriting) noexcept {
    const int fd = descriptor(handle_);
    // Only a privileged process may change the owner; elsewhere the file belongs to the user who
    // saved it, and keeps its group where they are in it. It comes first because it clears bits of
    // the permissions.
    if (::fchown(fd, from.owner, from.group) != 0) {
        [[maybe_unused]] const int group = ::fchown(fd, static_cast<uid_t>(-1), from.group);
    }
    const auto wanted =
        static_cast<mode_t>(from.permissions) | (addWriting ? S_IRUSR | S_IWUSR : 0U);
    if (::fchmod(fd, wanted) == 0) return {};
    const std::error_code refused = lastError();
    struct stat now {};
    if (::fstat(fd, &now) == 0 && (now.st_mode & kPermissionBits) == wanted) return {};
    return hasNoPermissions(fd, refused.value()) ? std::error_code() : refused;
}

std::error_code File::close() noexcept {
    if (handle_ == kNone) return {};
    return errorUnless(::close(descriptor(std::exchange(handle_, kNone))) == 0);
}

}  // namespace corvane::files
