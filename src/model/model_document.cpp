#include "model/model_document.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane {

ModelBase::ModelBase(ModelText itsText)
    : text(std::move(itsText)), blocks(scanBlocks(text.view())) {
    std::ranges::copy_if(blocks, std::back_inserter(geosets), isGeoset);
}

PendingFile prepareWorkingCopy(const std::string& modelPath, std::string_view text) {
    // It can be made again from memory, so a loss of power does no harm.
    return {workPathFor(modelPath),
            std::array{text},
            {.flushToDisk = false, .permissionsOf = modelPath, .skipTooLongName = true}};
}

void ModelDocument::open(const std::string& path, SharedBase text, const FileStamp& stamp,
                         PendingFile& workingCopy) {
    deleteLeftovers(path);
    std::string model = path;
    std::string stamped = path;
    placeWorkingCopy(workingCopy, workPathFor(path));
    // Nothing from here on asks for memory: the model is open as a whole or not at all.
    base_ = std::move(text);
    modelPath = std::move(model);
    stampedPath_ = std::move(stamped);
    stamp_ = stamp;
    unsavedRemoval_ = false;
}

bool ModelDocument::isChangedOutside() const {
    if (modelPath != stampedPath_) return false;
    const std::optional<FileStamp> now = stampOf(modelPath);
    return now && now != stamp_;
}

void ModelDocument::writeText(std::string_view text) {
    std::string stamped = savePath;
    // Taken before the file has its name: what another program does to it then is noticed.
    stamp_ = replaceFile(savePath, std::array{text});
    stampedPath_ = std::move(stamped);
    unsavedRemoval_ = false;
    ++writes_;
}

void ModelDocument::write(const PiecedText& text) {
    // Complete in memory before the file is touched.
    auto saved = std::make_shared<const ModelBase>(joinedText(savePath, text.pieces()));
    writeText(saved->text.view());
    base_ = std::move(saved);
}

void ModelDocument::writeAsItIs() { writeText(base_->text.view()); }

void ModelDocument::renewWorkingCopy() {
    PendingFile prepared = prepareWorkingCopy(modelPath, base_->text.view());
    placeWorkingCopy(prepared, workPathFor(modelPath));
}

void ModelDocument::removeGeoset(const PiecedText& text) {
    auto without = std::make_shared<const ModelBase>(joinedText(modelPath, text.pieces()));
    PendingFile prepared = prepareWorkingCopy(modelPath, without->text.view());
    placeWorkingCopy(prepared, workPathFor(modelPath));
    base_ = std::move(without);
    geosetRemoved_ = unsavedRemoval_ = true;
}

bool ModelDocument::isWorkingCopyOwn() const {
    return !workPath.empty() && workStamp_ && stampOf(workPath) == workStamp_;
}

void ModelDocument::placeWorkingCopy(PendingFile& prepared, std::string place) {
    const bool hadOwn = isWorkingCopyOwn();
    prepared.commit();
    // Two paths may lead to the same folder, and then the old file is the new one.
    if (hadOwn && isWorkingCopyOwn()) deleteFile(workPath);
    workPath = std::move(place);
    // Some file systems give a file its time only when it is closed.
    const std::optional<FileStamp> there = stampOf(workPath);
    workStamp_ = there && there->isSameFileAs(prepared.stamp()) ? *there : prepared.stamp();
}

void ModelDocument::close() {
    if (isWorkingCopyOwn()) deleteFile(workPath);
    workPath.clear();
    workStamp_.reset();
}

}  // namespace corvane
