#include "model/commands/replaced_text.h"

#include <new>
#include <utility>

namespace corvane {

namespace {

// Nothing stops a save, and so it is only told.
void tellUnreadable(WayBack& wayBack, const FormerText& former) {
    if (former.unreadable.empty()) return;
    try {
        wayBack.noteLost(("What a save replaced could not be read. " + former.unreadable).c_str());
    } catch (const std::bad_alloc& error) {
        wayBack.noteLost(error.what());
    }
}

void keepFormer(WayBack& wayBack, const FormerText& former, const std::string& path) {
    if (former.text != nullptr) wayBack.keepReplaced(former.text, path);
    tellUnreadable(wayBack, former);
}

}  // namespace

ReplacedFile::ReplacedFile(WayBack* wayBack, std::string path)
    : wayBack_(wayBack), path_(std::move(path)) {
    if (wayBack_ != nullptr) former_ = ModelDocument::textOf(path_);
}

void ReplacedFile::keep() {
    if (wayBack_ != nullptr) keepFormer(*wayBack_, former_, path_);
}

ReplacedText::ReplacedText(Editor& editor) : editor_(editor) {
    if (editor.wayBack != nullptr) former_ = editor.store.textThatASaveReplaces();
}

void ReplacedText::keep() {
    const FormerText former = std::exchange(former_, {});
    if (!isReplaced_ || editor_.wayBack == nullptr) return;
    const ModelDocument& document = editor_.store;
    if (former.text != nullptr && former.text->text.view() == document.base().text.view()) return;
    keepFormer(*editor_.wayBack, former, document.savePath);
}

void keepForeignWorkingCopy(Editor& editor, const std::string& modelPath, std::string_view text) {
    const std::string path = workPathFor(modelPath);
    if (editor.wayBack == nullptr || path == editor.store.workPath || !stampOf(path)) return;
    const FormerText there = ModelDocument::textOf(path);
    const auto isThere = [&](std::string_view other) {
        return there.text != nullptr && there.text->text.view() == other;
    };
    if (isThere(text)) return;
    // Or the working copy of a program that was killed.
    const FormerText model = ModelDocument::textOf(modelPath);
    if (model.text != nullptr && isThere(model.text->text.view())) return;
    keepFormer(*editor.wayBack, there, path);
}

}  // namespace corvane
