#include "model/working_copy.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "model/model_scanner.h"

namespace corvane {

namespace {

void closeHandle(WorkingCopy& copy) {
    if (copy.handle >= 0) ::close(copy.handle);
    copy.handle = -1;
    copy.readHandle = false;
}

void openHandle(WorkingCopy& copy, const std::string& workPath) {
    closeHandle(copy);
    copy.handle = ::open(workPath.c_str(), O_RDONLY | O_CLOEXEC);
}

// It can be made again from the next save's own text, so a loss of power does no harm.
ReplaceOptions optionsFor(const std::string& modelPath) {
    return {.flushToDisk = false, .permissionsOf = modelPath};
}

// The text that a missing working copy should have. Another window on the same model may have
// saved it and, closing, taken the working copy along, so the model comes first; but not where it
// no longer holds the geoset that is being edited.
ModelText textToRestore(const GeosetStore& store, const WorkingCopy& copy) {
    if (!copy.copyOf.empty()) {
        try {
            ModelText text = readModelFile(copy.copyOf);
            const std::size_t geosets = scanGeosets(text.view()).size();
            if (static_cast<std::size_t>(store.geosetNumber) <= geosets) return text;
        } catch (const FileError&) {
            // The handle is left.
        }
    }
    return readOpenFile(copy.handle, store.workPath);
}

}  // namespace

WorkingCopy::~WorkingCopy() { closeHandle(*this); }

PendingFile prepareWorkingCopy(const std::string& modelPath,
                               std::span<const std::string_view> pieces) {
    return {workPathFor(modelPath), pieces, optionsFor(modelPath)};
}

void commitWorkingCopy(GeosetStore& store, WorkingCopy& copy, PendingFile& prepared,
                       const std::string& workPath, const std::string& copyOf) {
    prepared.commit();
    // Two paths may lead to the same folder, and then the old file is the new one.
    if (!store.workPath.empty() && !isSameFile(store.workPath, workPath)) {
        deleteFile(store.workPath);
    }
    store.workPath = workPath;
    copy.copyOf = copyOf;
    openHandle(copy, workPath);
}

void rewriteWorkingCopy(const GeosetStore& store, WorkingCopy& copy,
                        std::span<const std::string_view> pieces, const std::string& copyOf) {
    replaceFile(store.workPath, pieces, optionsFor(store.modelPath));
    copy.copyOf = copyOf;
    openHandle(copy, store.workPath);
}

ModelText readWorkingCopy(const GeosetStore& store, const WorkingCopy& copy) {
    if (copy.readHandle) return readOpenFile(copy.handle, store.workPath);
    return readModelFile(store.workPath);
}

bool restoreWorkingCopy(const GeosetStore& store, WorkingCopy& copy) {
    try {
        const ModelText text = textToRestore(store, copy);
        const std::array<std::string_view, 1> pieces = {text.view()};
        try {
            replaceFile(store.workPath, pieces, optionsFor(store.modelPath));
            openHandle(copy, store.workPath);
        } catch (const FileError&) {
            copy.readHandle = copy.handle >= 0;
            return copy.readHandle;
        }
        return true;
    } catch (const FileError&) {
        return false;
    }
}

void deleteWorkingCopy(GeosetStore& store, WorkingCopy& copy) {
    closeHandle(copy);
    if (!store.workPath.empty()) deleteFile(store.workPath);
    store.workPath.clear();
}

}  // namespace corvane
