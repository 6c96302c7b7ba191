// What a command is about to write over, to be kept once it is replaced.
#pragma once

#include <string>

#include "editor/editor.h"

namespace corvane {

/// What a file holds that is replaced by something else than the model in memory.
class ReplacedFile {
public:
    /// Reads the file, where there is a way back; that may be null.
    ReplacedFile(WayBack* wayBack, std::string path);

    /// The file is replaced: keeps what it held, or tells that this could not be read.
    void keep();

private:
    WayBack* wayBack_;
    std::string path_;
    FormerText former_;
};

/// The text that a save replaces. Made before the save; what it replaces is known from then on.
/// Handed over at the end of its life, so that the save and the keeping do not wait for the same
/// disk.
class ReplacedText {
public:
    explicit ReplacedText(Editor& editor);
    ReplacedText(const ReplacedText&) = delete;
    ReplacedText& operator=(const ReplacedText&) = delete;
    ~ReplacedText() { keep(); }

    /// The save is done: that text is replaced.
    void noteWritten() { isReplaced_ = true; }

    /// Keeps it now where it is replaced and not the same.
    void keep();

private:
    Editor& editor_;
    FormerText former_;
    bool isReplaced_ = false;
};

/// A file with the name of a model's working copy may be somebody's: keeps it before it is
/// replaced by a copy of `text`.
void keepForeignWorkingCopy(Editor& editor, const std::string& modelPath, std::string_view text);

}  // namespace corvane
