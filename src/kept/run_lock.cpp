#include "kept/run_lock.h"

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
    if (isHeld()) deleteFile(path_);
}

bool RunLock::isHeld() const {
    if (!file_.isOpen()) return false;
    std::error_code ignored;
    const std::optional<files::Status> held = file_.status(ignored);
    const std::optional<FileStamp> there = stampOf(path_);
    return held && there && held->stamp.isSameFileAs(*there);
}

void RunLock::hold() {
    if (isHeld()) return;
    file_.close();
    std::error_code error;
    file_ = files::File::toLock(path_, error);
    if (error) throw FileError(path_, error);
    // Where the file system knows no locks, the entries count as those of a run that has ended.
    // Another program that looks whether this one lives holds it for a moment.
    file_.lock();
}

bool isRunAlive(const std::string& folder, const std::string& run) {
    std::error_code error;
    files::File file = files::File::toRead(lockPath(folder, run), error);
    // Where it cannot be told, entries are rather left alone than taken away from a run that lives.
    if (!file.isOpen()) return error != std::errc::no_such_file_or_directory;
    return file.isLocked();
}

}  // namespace corvane
