#include "model/working_copy.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace corvane {

namespace {

void setHandle(WorkingCopy& copy, int handle) {
    if (copy.handle >= 0) ::close(copy.handle);
    copy.handle = handle;
    copy.missingSaid = false;
}

// It can be made again from the next save's own text, so a loss of power does no harm.
ReplaceOptions optionsFor(const std::string& modelPath) {
    return {.flushToDisk = false, .permissionsOf = modelPath};
}

// Whether the file at the working copy's place is the one that the handle has open.
bool isOwn(const GeosetStore& store, const WorkingCopy& copy) {
    const std::optional<FileStamp> there = stampOf(store.workPath);
    const std::optional<FileStamp> open = stampOf(copy.handle);
    return there && open && there->isSameFileAs(*open);
}

void commitAndOpen(WorkingCopy& copy, PendingFile& prepared) {
    const int handle = prepared.openForReading();
    try {
        prepared.commit();
    } catch (const FileError&) {
        ::close(handle);
        throw;
    }
    setHandle(copy, handle);
}

}  // namespace

WorkingCopy::~WorkingCopy() {
    if (handle >= 0) ::close(handle);
}

PendingFile prepareWorkingCopy(const std::string& modelPath,
                               std::span<const std::string_view> pieces) {
    return {workPathFor(modelPath), pieces, optionsFor(modelPath)};
}

void commitWorkingCopy(GeosetStore& store, WorkingCopy& copy, PendingFile& prepared,
                       const std::string& modelPath) {
    const bool hadOwn = !store.workPath.empty() && isOwn(store, copy);
    const std::string workPath = workPathFor(modelPath);
    commitAndOpen(copy, prepared);
    // Two paths may lead to the same folder, and then the old file is the new one.
    if (hadOwn && !isOwn(store, copy)) deleteFile(store.workPath);
    store.workPath = workPath;
    copy.modelPath = modelPath;
    copy.modelStamp = stampOf(modelPath);
}

void rewriteWorkingCopy(const GeosetStore& store, WorkingCopy& copy,
                        std::span<const std::string_view> pieces) {
    PendingFile prepared(store.workPath, pieces, optionsFor(store.modelPath));
    commitAndOpen(copy, prepared);
}

ModelText readWorkingCopy(const GeosetStore& store, const WorkingCopy& copy) {
    // Messages name the model: that is the file which the user can mend.
    return readOpenFile(copy.handle, store.modelPath);
}

bool isWorkingCopyThere(const GeosetStore& store) { return stampOf(store.workPath).has_value(); }

bool restoreWorkingCopy(const GeosetStore& store, WorkingCopy& copy) {
    try {
        const ModelText text = readWorkingCopy(store, copy);
        rewriteWorkingCopy(store, copy, std::array{text.view()});
        return true;
    } catch (const FileError&) {
        return false;
    }
}

bool readFromModelInstead(const GeosetStore& store, WorkingCopy& copy) {
    const int handle = ::open(store.modelPath.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0) return false;
    if (isOwn(store, copy)) deleteFile(store.workPath);
    setHandle(copy, handle);
    copy.missingSaid = true;  // the user knows
    return true;
}

void noteModelWritten(const GeosetStore& store, WorkingCopy& copy) {
    copy.modelPath = store.modelPath;
    copy.modelStamp = stampOf(store.modelPath);
}

bool isModelChangedOutside(const GeosetStore& store, const WorkingCopy& copy) {
    if (store.modelPath != copy.modelPath) return false;
    const std::optional<FileStamp> now = stampOf(store.modelPath);
    return now && now != copy.modelStamp;
}

void deleteWorkingCopy(GeosetStore& store, WorkingCopy& copy) {
    if (!store.workPath.empty() && isOwn(store, copy)) deleteFile(store.workPath);
    setHandle(copy, -1);
    store.workPath.clear();
}

}  // namespace corvane
