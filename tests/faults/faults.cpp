#include "faults.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <optional>

namespace corvane::faults {

namespace {

// Plain numbers: they are looked at wherever memory is asked for.
std::size_t failingAllocation = 0;
std::size_t allocations = 0;
bool hasAllocationFailed = false;

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

void* allocate(std::size_t size) {
    if (failingAllocation != 0 && ++allocations == failingAllocation) {
        hasAllocationFailed = true;
        throw std::bad_alloc();
    }
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace

FailingMemory::FailingMemory(std::size_t number) {
    allocations = 0;
    hasAllocationFailed = false;
    failingAllocation = number;
}

FailingMemory::~FailingMemory() { failingAllocation = 0; }

bool FailingMemory::hasFailed() { return hasAllocationFailed; }

FailingCall::FailingCall(Call call, int errorNumber, int first, int last,
                         std::function<bool(const Asked&)> which) {
    fault.emplace(Fault{call, errorNumber, first, last, std::move(which)});
}

FailingCall::~FailingCall() { fault.reset(); }

int FailingCall::count() { return fault ? fault->count : 0; }

}  // namespace corvane::faults

using corvane::faults::Call;
using corvane::faults::fails;

// In place of the standard library's and of the system's.

void* operator new(std::size_t size) { return corvane::faults::allocate(size); }
void* operator new[](std::size_t size) { return corvane::faults::allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

extern "C" {

ssize_t writev(int fd, const struct iovec* vectors, int count) {
    if (fails(Call::Writev)) return -1;
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
