// Runs code in a child process: for limits, rights and deaths that the test itself must survive.
#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <exception>
#include <functional>
#include <string>

namespace corvane {

/// The user and the group that stand for somebody without privileges.
inline constexpr uid_t kUnprivilegedId = 65534;

/// What became of a child.
struct ChildResult {
    std::string said;  ///< what its work returned, or "exception: " and what() of what it threw
    int signal = 0;    ///< the signal that ended it; 0 when it ended by itself
};

/// Runs `work` in a child and waits for it. No assertions in the child: it says what it saw.
inline ChildResult inForkedChild(const std::function<std::string()>& work) {
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0) return {"no pipe", 0};
    const pid_t child = ::fork();
    if (child < 0) return {"no fork", 0};
    if (child == 0) {
        ::close(ends[0]);
        std::string said;
        try {
            said = work();
        } catch (const std::exception& error) {
            said = std::string("exception: ") + error.what();
        }
        std::size_t sent = 0;
        while (sent < said.size()) {
            const ssize_t count = ::write(ends[1], said.data() + sent, said.size() - sent);
            if (count <= 0) break;
            sent += static_cast<std::size_t>(count);
        }
        ::_exit(0);  // nothing of the test's own may be run or flushed a second time
    }
    ::close(ends[1]);
    ChildResult result;
    char buffer[4096];
    ssize_t count = 0;
    while ((count = ::read(ends[0], buffer, sizeof buffer)) > 0) {
        result.said.append(buffer, static_cast<std::size_t>(count));
    }
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) result.signal = WTERMSIG(status);
    return result;
}

/// Gives a file or folder to the user that asUnprivilegedUser() runs as.
inline void giveToUnprivilegedUser(const std::string& path) {
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(path.c_str(), kUnprivilegedId, kUnprivilegedId), 0) << path;
    }
}

/// Runs `work` in a child that permissions hold for: tests run by root would pass over them.
inline ChildResult asUnprivilegedUser(const std::function<std::string()>& work) {
    return inForkedChild([&work]() -> std::string {
        if (::geteuid() == 0) {
            if (::setgroups(0, nullptr) != 0 || ::setgid(kUnprivilegedId) != 0 ||
                ::setuid(kUnprivilegedId) != 0) {
                return "privileges cannot be given up";
            }
        }
        return work();
    });
}

}  // namespace corvane
