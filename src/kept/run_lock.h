// Tells whether the program that kept something still runs: each run holds a lock on a file of its
// own, which the system lets go of however the run ends.
#pragma once

#include <string>

#include "model/files.h"

namespace corvane {

/// The lock of this run, held from the first hold() until the end of this object's life.
class RunLock {
public:
    /// `run` names the run; the file is "RUN.lock" in the folder.
    RunLock(const std::string& folder, const std::string& run);
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;
    ~RunLock();

    const std::string& path() const { return path_; }

    /// Makes sure that the lock is held, also where its file was deleted meanwhile. Throws
    /// FileError.
    void hold();

private:
    bool isHeld() const;

    std::string path_;
    files::File file_;
};

/// Whether the run with that name holds its lock.
bool isRunAlive(const std::string& folder, const std::string& run);

}  // namespace corvane
