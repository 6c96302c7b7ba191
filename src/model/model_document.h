// The open model: the one owner of its text, its paths, and what is known of its file. A save takes
// from the text in memory all that it does not write anew.
//
// The working copy beside the model holds the same text. It is written from memory and never read.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
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
    // The blocks' keywords are views into the text.
    ModelBase(const ModelBase&) = delete;
    ModelBase& operator=(const ModelBase&) = delete;
    ~ModelBase() = default;

    bool hasGeoset(int geosetNumber) const {
        return geosetNumber >= 1 && static_cast<std::size_t>(geosetNumber) <= geosets.size();
    }
};
using SharedBase = std::shared_ptr<const ModelBase>;

/// A working copy of a text, complete but not yet in its place. `modelPath` is the model that it
/// belongs to, whose permissions it takes. Where its name would be too long for the file system,
/// there is none: no model must be refused for a file that is never read. Throws FileError.
PendingFile prepareWorkingCopy(const std::string& modelPath, std::string_view text);

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

    /// Whether a geoset was removed from the text and none has been read since: then the geoset in
    /// memory is not in it.
    bool isGeosetRemoved() const { return geosetRemoved_; }

    /// Whether a geoset was removed from the text and no save has written it since.
    bool hasUnsavedRemoval() const { return unsavedRemoval_; }

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

    /// The geoset in memory has no place in the text any more, or has one again.
    void noteGeosetRemoved() { geosetRemoved_ = true; }
    void noteGeosetRead() { geosetRemoved_ = false; }

    /// Deletes the working copy, unless something else stands in its place.
    void close();

private:
    void placeWorkingCopy(PendingFile& prepared, std::string place);
    bool isWorkingCopyOwn() const;
    void writeText(std::string_view text);

    SharedBase base_;
    bool geosetRemoved_ = false;
    bool unsavedRemoval_ = false;
    std::uint64_t writes_ = 0;
    std::string stampedPath_;         // the model file when the stamp was taken
    std::optional<FileStamp> stamp_;  // of the model file
    std::optional<FileStamp> workStamp_;
};

}  // namespace corvane
