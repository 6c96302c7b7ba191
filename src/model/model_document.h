// The open model: the one owner of its text, its paths, and what is known of its file. A save takes
// from the text in memory all that it does not write anew.
//
// The working copy beside the model holds the same text. It is written from memory and never read.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/model_files.h"
#include "model/model_scanner.h"
#include "model/model_text.h"
#include "model/model_writer.h"

namespace corvane {

/// A model's text with its blocks, found once. Never changes.
struct ModelBase {
    ModelText text;
    std::vector<ModelBlock> blocks;
    std::vector<GeosetBlock> geosets;  ///< those of the blocks that are geosets

    explicit ModelBase(ModelText itsText);
    /// With blocks that are known already.
    ModelBase(ModelText itsText, std::vector<ModelBlock> itsBlocks);
    // The blocks' keywords are views into the text.
    ModelBase(const ModelBase&) = delete;
    ModelBase& operator=(const ModelBase&) = delete;
    ~ModelBase() = default;

    bool hasGeoset(int geosetNumber) const {
        return geosetNumber >= 1 && static_cast<std::size_t>(geosetNumber) <= geosets.size();
    }
};
using SharedBase = std::shared_ptr<const ModelBase>;

/// A text that differs from `base` in nothing but geoset `geosetNumber` (1-based). Only that block
/// is scanned anew, where the base's braces leave no doubt; the others keep their places.
SharedBase withGeosetWritten(const ModelBase& base, ModelText text, int geosetNumber);

/// A working copy of a text, complete but not yet in its place. `modelPath` is the model that it
/// belongs to, whose permissions it takes. Where its name would be too long for the file system,
/// there is none: no model must be refused for a file that is never read. Throws FileError.
PendingFile prepareWorkingCopy(const std::string& modelPath, std::string_view text);

/// What a file holds that may be replaced.
struct FormerText {
    SharedBase text{};         ///< null where there is no file, or none that can be read
    std::string unreadable{};  ///< the reason why it cannot be read
};

/// Paths are UTF-8 and empty until a model is open.
class ModelDocument {
public:
    std::string modelPath;  ///< the current model file; a save writes here
    std::string workPath;   ///< the working copy beside it, if its name is not too long
    std::string savePath;   ///< the path of the latest save
    int geosetNumber = 0;   ///< 1-based number of the edited geoset in the text
    bool modelLoaded = false;

    /// The text in memory; only while a model is open.
    const ModelBase& base() const { return *base_; }
    /// The same to be kept beyond that; null before a model was open.
    const SharedBase& sharedBase() const { return base_; }

    /// The model file that was last read or written here, and its stamp then. It is not modelPath
    /// where a save to that failed, or a new model was made there.
    const std::string& filePath() const { return stampedPath_; }
    const std::optional<FileStamp>& knownStamp() const { return stamp_; }

    /// Whether a geoset was removed from the text and none has been read since: then the geoset in
    /// memory is not in it.
    bool isGeosetRemoved() const { return geosetRemoved_; }

    /// The text in which the geoset in memory has its place, by geosetNumber: where it was removed,
    /// the one that it was removed from.
    const SharedBase& geosetBase() const { return geosetRemoved_ ? removedFrom_ : base_; }

    /// What a file holds, without its blocks.
    static FormerText textOf(const std::string& path);
    /// What the file at savePath holds; likewise.
    FormerText textThatASaveReplaces() const;

    /// Whether the text in memory is one that no file at modelPath holds, whatever is edited in it.
    bool hasUnsavedText() const { return base_ != fileBase_; }
    void noteTextUnsaved() { fileBase_.reset(); }

    /// What stands at the path that the next save writes to.
    enum class Target : std::uint8_t { Chosen, NewTemplate };
    /// Makes a path the one that the next save writes to.
    void setTarget(std::string path, Target target) {
        modelPath = std::move(path);
        target_ = target;
    }
    /// Whether that is a new model which is not the open one.
    bool isTargetNew() const { return target_ == Target::NewTemplate; }

    /// Makes a model the open one: its text, the stamp of its file when it was read, and its
    /// working copy, which takes its place. The working copy of the model that was open before is
    /// deleted. Throws FileError where the working copy cannot take its place, and then nothing has
    /// changed.
    void open(const std::string& path, SharedBase text, const FileStamp& stamp,
              PendingFile& workingCopy);

    /// Whether the model file is another one now than when it was last read or written here. False
    /// where it is missing: then there is nothing that saving could destroy.
    bool isChangedOutside() const;

    /// Writes a text to savePath and makes it the text in memory. Throws FileError, and then
    /// nothing has changed.
    void write(const PiecedText& text);
    /// The same for a text that differs from the one in memory in nothing but the edited geoset.
    void writeGeoset(const PiecedText& text);
    /// The same with the text in memory as it is.
    void writeAsItIs();

    /// Makes the working copy hold the text in memory, beside modelPath. Throws FileError, and then
    /// the former one is still there; the text in memory is what counts.
    void renewWorkingCopy();

    /// Takes the text without the geoset in memory: into memory and into the working copy. Throws
    /// FileError, and then nothing has changed.
    void removeGeoset(const PiecedText& text);

    /// How many times a model file was written here.
    std::uint64_t writes() const { return writes_; }

    /// The geoset in memory has its place no longer in the text but in an older one, or has its
    /// place in the text again.
    void noteGeosetRemoved(SharedBase from) {
        geosetRemoved_ = true;
        removedFrom_ = std::move(from);
    }
    void noteGeosetRead() {
        geosetRemoved_ = false;
        removedFrom_.reset();
    }

    /// Deletes the working copy, unless something else stands in its place.
    void close();

private:
    void placeWorkingCopy(PendingFile& prepared, std::string place);
    bool isWorkingCopyOwn() const;
    void writeText(std::string_view text);
    void writeBase(SharedBase saved);

    SharedBase base_;
    SharedBase fileBase_;     // what the file held when it was last read or written
    SharedBase removedFrom_;  // while the geoset in memory is removed
    bool geosetRemoved_ = false;
    Target target_ = Target::Chosen;
    std::uint64_t writes_ = 0;
    std::string stampedPath_;         // the model file when the stamp was taken
    std::optional<FileStamp> stamp_;  // of the model file
    std::optional<FileStamp> workStamp_;
};

}  // namespace corvane
