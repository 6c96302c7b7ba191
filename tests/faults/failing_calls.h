// Makes calls of the system fail, on systems of the Unix kind. Everything else goes through to it.
#pragma once

#include <functional>
#include <string_view>

namespace corvane::faults {

/// The calls that can fail.
enum class Call {
    Read,
    Writev,  ///< with the error number 0, it takes nothing and calls that no error
    Fsync,
    Ftruncate,
    Fchmod,
    Stat,
    Close,  ///< which closes all the same, as the system does
};

/// What a call that fails is about: a mode, for Fchmod; a path, for Stat.
struct Asked {
    unsigned mode = 0;
    std::string_view path;
};

/// While it lives, calls fail with an error number: all for which `which` says so, from the first
/// to the last number (counted from 1 among them).
class FailingCall {
public:
    static constexpr int kForEver = 1000000;

    FailingCall(Call call, int errorNumber, int first = 1, int last = kForEver,
                std::function<bool(const Asked&)> which = nullptr);
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;
    ~FailingCall();

    /// How many of the calls have come so far.
    static int count();
};

}  // namespace corvane::faults
