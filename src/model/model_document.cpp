#include "model/model_document.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane {

namespace {

// The block with its offsets moved and its keyword in another text.
ModelBlock moved(ModelBlock block, std::string_view from, std::string_view to, std::size_t by) {
    for (std::size_t* const offset : {&block.begin, &block.bodyBegin, &block.bodyEnd, &block.end}) {
        *offset += by;  // modulo 2^64, so that it moves back, too
    }
    if (!block.keyword.empty()) {
        const auto at = static_cast<std::size_t>(block.keyword.data() - from.data());
        block.keyword = to.substr(at + by, block.keyword.size());
    }
    return block;
}

}  // namespace

ModelBase::ModelBase(ModelText itsText, std::vector<ModelBlock> itsBlocks)
    : text(std::move(itsText)), blocks(std::move(itsBlocks)) {
    std::ranges::copy_if(blocks, std::back_inserter(geosets), isGeoset);
}

ModelBase::ModelBase(ModelText itsText)
    : text(std::move(itsText)), blocks(scanBlocks(text.view())) {
    std::ranges::copy_if(blocks, std::back_inserter(geosets), isGeoset);
}

SharedBase withGeosetWritten(const ModelBase& base, ModelText text, int geosetNumber) {
    const std::string_view before = base.text.view();
    const std::string_view after = text.view();
    const ModelBlock& edited = base.geosets.at(static_cast<std::size_t>(geosetNumber) - 1);
    const std::size_t by = after.size() - before.size();
    const ModelBlock written = scanBlockAt(after, edited.begin);
    const bool isCertain = written.closed && written.end == edited.end + by &&
                           std::ranges::all_of(base.blocks, [](const ModelBlock& block) {
                               return block.closed && block.strayAt == std::string_view::npos;
                           });
    if (!isCertain) return std::make_shared<const ModelBase>(std::move(text));
    std::vector<ModelBlock> blocks;
    blocks.reserve(base.blocks.size());
    for (const ModelBlock& block : base.blocks) {
        blocks.push_back(block.begin == edited.begin
                             ? written
                             : moved(block, before, after, block.begin > edited.begin ? by : 0));
    }
    return std::make_shared<const ModelBase>(std::move(text), std::move(blocks));
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
    fileBase_ = base_;
    modelPath = std::move(model);
    stampedPath_ = std::move(stamped);
    stamp_ = stamp;
    target_ = Target::Chosen;
}

FormerText ModelDocument::textOf(const std::string& path) {
    try {
        return {.text = std::make_shared<const ModelBase>(readModelFile(path),
                                                          std::vector<ModelBlock>())};
    } catch (const FileError& error) {
        const bool isMissing = error.code() == std::errc::no_such_file_or_directory;
        return {.unreadable = isMissing ? "" : error.what()};
    }
}

FormerText ModelDocument::textThatASaveReplaces() const {
    const bool isKnown = fileBase_ && savePath == stampedPath_ && stampOf(savePath) == stamp_;
    return isKnown ? FormerText{.text = fileBase_} : textOf(savePath);
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
    target_ = Target::Chosen;
    ++writes_;
}

// What is written is complete in memory before the file is touched.
void ModelDocument::writeBase(SharedBase saved) {
    writeText(saved->text.view());
    base_ = std::move(saved);
    fileBase_ = base_;
}

void ModelDocument::write(const PiecedText& text) {
    writeBase(std::make_shared<const ModelBase>(joinedText(savePath, text.pieces())));
}

void ModelDocument::writeGeoset(const PiecedText& text) {
    writeBase(withGeosetWritten(*base_, joinedText(savePath, text.pieces()), geosetNumber));
}

void ModelDocument::writeAsItIs() {
    writeText(base_->text.view());
    fileBase_ = base_;
}

void ModelDocument::renewWorkingCopy() {
    PendingFile prepared = prepareWorkingCopy(modelPath, base_->text.view());
    placeWorkingCopy(prepared, workPathFor(modelPath));
}

void ModelDocument::removeGeoset(const PiecedText& text) {
    auto without = std::make_shared<const ModelBase>(joinedText(modelPath, text.pieces()));
    PendingFile prepared = prepareWorkingCopy(modelPath, without->text.view());
    placeWorkingCopy(prepared, workPathFor(modelPath));
    removedFrom_ = std::exchange(base_, std::move(without));
    geosetRemoved_ = true;
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
