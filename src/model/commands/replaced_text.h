// The text that a save replaces, to be kept once it is replaced.
#pragma once

#include <utility>

#include "editor/editor.h"

namespace corvane {

/// Made before the save; what it replaces is known from then on. Handed over at the end of its
/// life, so that the save and the keeping do not wait for the same disk.
class ReplacedText {
public:
    explicit ReplacedText(Editor& editor)
        : editor_(editor),
          text_(editor.wayBack == nullptr ? nullptr : editor.store.textThatASaveReplaces()) {}
    ReplacedText(const ReplacedText&) = delete;
    ReplacedText& operator=(const ReplacedText&) = delete;
    ~ReplacedText() { keep(); }

    /// The save is done: that text is replaced.
    void noteWritten() { isReplaced_ = true; }

    /// Keeps it now where it is replaced and not the same.
    void keep() {
        const SharedBase text = std::exchange(text_, nullptr);
        const ModelDocument& document = editor_.store;
        if (!isReplaced_ || text == nullptr) return;
        if (text->text.view() == document.base().text.view()) return;
        editor_.wayBack->keepReplaced(text, document.savePath);
    }

private:
    Editor& editor_;
    SharedBase text_;
    bool isReplaced_ = false;
};

}  // namespace corvane
