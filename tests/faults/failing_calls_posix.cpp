#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

#include "failing_calls.h"

namespace corvane::faults {

namespace {

struct Fault {
    Call call;
    int errorNumber;
    int first;
    int last;
    std::function<bool(const Asked&)> which;
    int count = 0;
};
std::optional<Fault> fault;

// Whether this call is to fail; then errno is set.
bool fails(Call call, const Asked& asked = {}) {
    if (!fault || fault->call != call || (fault->which && !fault->which(asked))) return false;
    const int number = ++fault->count;
    if (number < fault->first || number > fault->last) return false;
    errno = fault->errorNumber;
    return true;
}

}  // namespace

FailingCall::FailingCall(Call call, int errorNumber, int first, int last,
                         std::function<bool(const Asked&)> which) {
    fault.emplace(Fault{call, errorNumber, first, last, std::move(which)});
}

FailingCall::~FailingCall() { fault.reset(); }

int FailingCall::count() { return fault ? fault->count : 0; }

}  // namespace corvane::faults

using corvane::faults::Call;
using corvane::faults::fails;

// In place of the system's.

extern "C" {

ssize_t writev(int fd, const struct iovec* vectors, int count) {
    if (fails(Call::Writev)) return errno == 0 ? 0 : -1;
    return ::syscall(SYS_writev, fd, vectors, count);
}

ssize_t read(int fd, void* bytes, size_t size) {
    if (fails(Call::Read)) return -1;
    return ::syscall(SYS_read, fd, bytes, size);
}

int fsync(int fd) {
    if (fails(Call::Fsync)) return -1;
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

int close(int fd) {
    const bool failing = fails(Call::Close);
    const int error = errno;
    const auto result = static_cast<int>(::syscall(SYS_close, fd));
    if (!failing) return result;
    errno = error;
    return -1;
}

int ftruncate(int fd, off_t size) noexcept {
    if (fails(Call::Ftruncate)) return -1;
    return static_cast<int>(::syscall(SYS_ftruncate, fd, size));
}

int fchmod(int fd, mode_t mode) noexcept {
    if (fails(Call::Fchmod, {.mode = mode, .path = {}})) return -1;
    return static_cast<int>(::syscall(SYS_fchmod, fd, mode));
}

int stat(const char* path, struct stat* status) noexcept {
    if (fails(Call::Stat, {.mode = 0, .path = path})) return -1;
    return ::fstatat(AT_FDCWD, path, status, 0);
}
}
