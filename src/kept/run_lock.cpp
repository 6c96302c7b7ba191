#include "kept/run_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "model/model_files.h"

namespace corvane {

namespace {

std::string lockPath(const std::string& folder, const std::string& run) {
    return folder + '/' + run + ".lock";
}

}  // namespace

RunLock::RunLock(const std::string& folder, const std::string& run)
    : path_(lockPath(folder, run)) {}

RunLock::~RunLock() {
    if (fd_ < 0) return;
    if (isHeld()) deleteFile(path_);
    ::close(fd_);
}

bool RunLock::isHeld() const {
    struct stat held {};
    struct stat there {};
    return fd_ >= 0 && ::fstat(fd_, &held) == 0 && ::stat(path_.c_str(), &there) == 0 &&
           held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

void RunLock::hold() {
    if (isHeld()) return;
    if (fd_ >= 0) ::close(std::exchange(fd_, -1));
    fd_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd_ < 0) throw FileError(path_, errno);
    // Where the file system knows no locks, the entries count as those of a run that has ended.
    // Another program that looks whether this one lives holds it for a moment.
    while (::flock(fd_, LOCK_EX) != 0 && errno == EINTR) {
    }
}

bool isRunAlive(const std::string& folder, const std::string& run) {
    const int fd = ::open(lockPath(folder, run).c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool alive = ::flock(fd, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(fd);
    return alive;
}

}  // namespace corvane
