#include "app/auto_keep.h"

#include <new>
#include <utility>

namespace corvane {

namespace {

// Milliseconds from an edit until it is handed over. With the time that a disk takes, no more than
// ten seconds are lost however the program ends.
constexpr int kDelay = 5000;

}  // namespace

AutoKeep::AutoKeep(QObject* parent, const Editor& editor, Keeper& keeper,
                   std::function<const UVState*()> texture)
    : QObject(parent),
      editor_(editor),
      keeper_(keeper),
      texture_(std::move(texture)),
      tmrKeep_(new QTimer(this)) {
    tmrKeep_->setObjectName("tmrKeep");
    tmrKeep_->setSingleShot(true);
    tmrKeep_->setInterval(kDelay);
    connect(tmrKeep_, &QTimer::timeout, this, &AutoKeep::keepEdits);
}

// Not started again while it runs: edits that go on must not put it off.
void AutoKeep::noteState() {
    if (!ended_ && editor_.store.modelLoaded && !tmrKeep_->isActive()) tmrKeep_->start();
}

const UVState* AutoKeep::unsavedTexture() const {
    const UVState* const uv = texture_();
    const bool isOurs =
        uv != nullptr && uv->unsaved && uv->takenFrom == editor_.store.revisions.mesh();
    return isOurs ? uv : nullptr;
}

bool AutoKeep::isUnsaved() const {
    const GeosetStore& store = editor_.store;
    return store.modelLoaded && store.sharedBase() &&
           (store.isModified() || unsavedTexture() != nullptr);
}

std::optional<Snapshot> AutoKeep::unsaved() const {
    if (!isUnsaved()) return std::nullopt;
    Snapshot snapshot = snapshotOf(editor_.store);
    if (const UVState* const uv = unsavedTexture()) {
        mergeTexture(snapshot, uv->data.u, uv->data.v, uv->same);
    }
    return snapshot;
}

AutoKeep::State AutoKeep::state() const {
    State now{editor_.store.revisions.current(), editor_.store.sharedBase().get(), {}, {}};
    if (const UVState* const uv = unsavedTexture()) {
        now.u = uv->data.u;
        now.v = uv->data.v;
    }
    return now;
}

void AutoKeep::keepEdits() {
    if (!isUnsaved()) {
        // Saved, or undone.
        if (keeper_.holdsEditing()) keeper_.noteSaved();
        return;
    }
    try {
        State now = state();
        const bool isWorking = keeper_.isWorking();
        if (isWorking && keeper_.holdsEditing() && now == editsKept_) return;
        keeper_.keep(*unsaved(), KeptBecause::Editing);
        editsKept_ = std::move(now);
        if (!isWorking) noteState();  // tries again until it succeeds
    } catch (const std::bad_alloc&) {
        noteState();  // there may be memory again
    }
}

void AutoKeep::keepNow(KeptBecause because) {
    State now = state();
    if (!isUnsaved() || (now == ownKept_ && keeper_.isWorking())) {
        if (keeper_.holdsEditing()) keeper_.noteSaved();
        return;
    }
    keeper_.keep(*unsaved(), because);
    ownKept_ = std::move(now);
}

void AutoKeep::keepTexture() {
    if (unsavedTexture() == nullptr) return;
    keepNow(KeptBecause::TextureDropped);
    noteState();  // the edits go on
}

void AutoKeep::end(KeptBecause because) {
    tmrKeep_->stop();
    try {
        if (!ended_) keepNow(because);
    } catch (const std::bad_alloc&) {
        // Then what was kept a moment ago has to do: the program ends all the same.
    }
    ended_ = true;
}

}  // namespace corvane
