// The text that a save replaces, to be kept once it is replaced.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// Made before the save; what it replaces is known from then on.
class ReplacedText {
public:
    explicit ReplacedText(Editor& editor)
        : editor_(editor),
          text_(editor.wayBack == nullptr ? nullptr : editor.store.textThatASaveReplaces()) {}

    /// After the save: keeps that text where it is not the same.
    void keep() const {
        const ModelDocument& document = editor_.store;
        if (text_ == nullptr || text_->text.view() == document.base().text.view()) return;
        editor_.wayBack->keepReplaced(text_, document.savePath);
    }

private:
    Editor& editor_;
    SharedBase text_;
};

}  // namespace corvane
