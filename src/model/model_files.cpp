#include "model/model_files.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

namespace corvane {

namespace {

namespace fs = std::filesystem;

// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }

    int get() const { return fd_; }

private:
    int fd_;
};

// Follows symbolic links to the file that is really meant, which need not exist.
std::string resolvedTarget(const std::string& path) {
    constexpr int kMostLinks = 40;  // as the kernel has it; more than that is a loop
    fs::path target(path);
    std::error_code error;
    for (int links = 0; fs::is_symlink(target, error); ++links) {
        if (links == kMostLinks) throw FileError(path, ELOOP);
        const fs::path next = fs::read_symlink(target, error);
        if (error) throw FileError(path, error.value());
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target.string();
}

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return status;
}

FileStamp stampFrom(const struct stat& status) {
#ifdef __APPLE__
    const struct timespec& time = status.st_mtimespec;
#else
    const struct timespec& time = status.st_mtim;
#endif
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino),
            static_cast<std::int64_t>(status.st_size), time.tv_sec * kNanoseconds + time.tv_nsec};
}

bool writeAll(int fd, std::span<const std::string_view> pieces) {
    constexpr std::size_t kMostAtOnce = 256;  // at most IOV_MAX
    std::vector<struct iovec> vectors;
    std::size_t next = 0;
    while (next < pieces.size() || !vectors.empty()) {
        while (next < pieces.size() && vectors.size() < kMostAtOnce) {
            const std::string_view piece = pieces[next++];
            if (piece.empty()) continue;
            vectors.push_back({const_cast<char*>(piece.data()), piece.size()});
        }
        if (vectors.empty()) break;
        const ssize_t written = ::writev(fd, vectors.data(), static_cast<int>(vectors.size()));
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        auto left = static_cast<std::size_t>(written);
        auto done = vectors.begin();
        while (done != vectors.end() && left >= done->iov_len) left -= (done++)->iov_len;
        if (done != vectors.end()) {
            done->iov_base = static_cast<char*>(done->iov_base) + left;
            done->iov_len -= left;
        }
        vectors.erase(vectors.begin(), done);
    }
    return true;
}

// Gives the new file the owner and the permissions of the one that it takes the place of.
void takeOver(int fd, const struct stat& from, mode_t addedBits) {
    // Only a privileged process may change the owner; elsewhere the file belongs to the user who
    // saved it. It comes first because it clears bits of the permissions.
    [[maybe_unused]] const int owner = ::fchown(fd, from.st_uid, from.st_gid);
    ::fchmod(fd, (from.st_mode & 07777) | addedBits);
}

// So that a new name, too, survives a loss of power. Best effort: not every file system lets a
// folder be flushed.
void flushFolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    const Descriptor fd(
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd.get() >= 0) ::fsync(fd.get());
}

// Memory for the bytes of a file. For large files the system is asked for large pages: the first
// touch of every small page would take longer than reading what goes into it.
std::unique_ptr<char[]> memoryForFile(std::size_t size) {
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

}  // namespace

FileError::FileError(const std::string& path, const std::string& reason)
    : std::runtime_error(path + ": " + reason) {}

FileError::FileError(const std::string& path, int errorNumber)
    : FileError(path, std::generic_category().message(errorNumber)) {}

ModelText readModelFile(const std::string& path, FileStamp* stamp) {
    // Not blocking: opening a named pipe must not hang the program.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.get() < 0) throw FileError(path, errno);
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) throw FileError(path, errno);
    if (S_ISDIR(status.st_mode)) throw FileError(path, EISDIR);
    if (!S_ISREG(status.st_mode)) throw FileError(path, "not a regular file");
    if (status.st_size > kLargestFile) {
        throw FileError(path, "larger than " + std::to_string(kLargestFile >> 20) + " MiB");
    }
    if (stamp != nullptr) *stamp = stampFrom(status);

    // One byte more than the file had, to notice if it grows meanwhile.
    const auto expected = static_cast<std::size_t>(status.st_size);
    auto bytes = memoryForFile(expected + 1);
    std::size_t size = 0;
    while (size <= expected) {
        const ssize_t got = ::read(file.get(), bytes.get() + size, expected + 1 - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw FileError(path, errno);
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
    }
    if (size != expected) throw FileError(path, "changed while it was read");
    return {path, std::move(bytes), size};
}

ModelText joinedText(const std::string& path, std::span<const std::string_view> pieces) {
    std::size_t size = 0;
    for (const std::string_view piece : pieces) size += piece.size();
    auto bytes = memoryForFile(size);
    char* to = bytes.get();
    for (const std::string_view piece : pieces) to = std::copy(piece.begin(), piece.end(), to);
    return {path, std::move(bytes), size};
}

PendingFile::PendingFile(const std::string& path, std::span<const std::string_view> pieces,
                         const ReplaceOptions& options)
    : path_(path), flushToDisk_(options.flushToDisk) {
    const bool own = !options.permissionsOf.empty();
    target_ = own ? path : resolvedTarget(path);
    const std::optional<struct stat> old = statusOf(target_);
    if (old && S_ISDIR(old->st_mode)) throw FileError(path_, EISDIR);
    if (old && !S_ISREG(old->st_mode)) throw FileError(path_, "not a regular file");
    if (old && !own && ::access(target_.c_str(), W_OK) != 0) throw FileError(path_, errno);

    create(fs::path(target_).parent_path().string());
    try {
        const std::optional<struct stat> like = own ? statusOf(options.permissionsOf) : old;
        if (like) takeOver(fd_, *like, own ? S_IRUSR | S_IWUSR : 0);
        write(pieces);
    } catch (...) {
        discard();
        throw;
    }
}

PendingFile::~PendingFile() { discard(); }

void PendingFile::create(const std::string& folder) {
    constexpr int kMostTries = 1000;  // names may be left over from killed processes
    for (int i = 0; i < kMostTries && fd_ < 0; ++i) {
        side_ = (fs::path(folder) /
                 (".corvane-" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".tmp"))
                    .string();
        fd_ = ::open(side_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd_ < 0 && errno != EEXIST) break;
    }
    if (fd_ >= 0) return;
    side_.clear();
    throw FileError(path_, errno);
}

void PendingFile::write(std::span<const std::string_view> pieces) {
    if (!writeAll(fd_, pieces)) throw FileError(path_, errno);
    if (flushToDisk_ && ::fsync(fd_) != 0) throw FileError(path_, errno);
    struct stat status {};
    if (::fstat(fd_, &status) != 0) throw FileError(path_, errno);
    stamp_ = stampFrom(status);
    const int fd = std::exchange(fd_, -1);
    if (::close(fd) != 0) throw FileError(path_, errno);
}

void PendingFile::commit() {
    if (::rename(side_.c_str(), target_.c_str()) != 0) throw FileError(path_, errno);
    side_.clear();
    if (flushToDisk_) flushFolderOf(target_);
}

void PendingFile::discard() {
    if (fd_ >= 0) ::close(std::exchange(fd_, -1));
    if (!side_.empty()) ::unlink(side_.c_str());
    side_.clear();
}

FileStamp replaceFile(const std::string& path, std::span<const std::string_view> pieces,
                      const ReplaceOptions& options) {
    PendingFile file(path, pieces, options);
    file.commit();
    return file.stamp();
}

std::optional<FileStamp> stampOf(const std::string& path) {
    const std::optional<struct stat> status = statusOf(path);
    if (!status) return std::nullopt;
    return stampFrom(*status);
}

void deleteFile(const std::string& path) { ::unlink(path.c_str()); }

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return fs::equivalent(a, b, error);
}

std::string workPathFor(const std::string& modelPath) {
    constexpr int kCutCharacters = 4;  // of an extension such as ".mdl"
    std::size_t end = modelPath.size();
    for (int cut = 0; cut < kCutCharacters && end > 0; ++cut) {
        // One character of UTF-8: back over its continuation bytes.
        do {
            --end;
        } while (end > 0 && (static_cast<unsigned char>(modelPath[end]) & 0xC0U) == 0x80U);
    }
    return modelPath.substr(0, end) + "_TMP.tdl";
}

}  // namespace corvane
