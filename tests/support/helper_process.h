// Another process that does something to files: for what a program cannot do to itself. Windows
// only; elsewhere forked_child.h serves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace corvane {

/// A run of corvane_file_helper, which stands beside the test program. It is killed in the end, if
/// it still runs.
class HelperProcess {
public:
    /// Starts it. The arguments are a word that file_helper_windows.cpp knows and a path in ASCII.
    explicit HelperProcess(const std::string& arguments);
    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;
    ~HelperProcess();

    long id() const { return id_; }

    /// Waits until it has said so many bytes; false where it ends before.
    bool waitForBytes(std::size_t count) const;

    /// Ends it on the spot, wherever it is, and waits until it is gone.
    void kill();

    /// Lets it go on to its end, and waits for that.
    void finish();

private:
    void wait();

    std::intptr_t process_ = 0;
    std::intptr_t input_ = 0;   // what it reads
    std::intptr_t output_ = 0;  // what it says
    long id_ = 0;
};

}  // namespace corvane
