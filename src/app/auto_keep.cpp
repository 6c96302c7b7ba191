#include "app/auto_keep.h"

#include <new>
#include <utility>

#include "uveditor/commands/exchange.h"

namespace corvane {

namespace {

// Milliseconds from an edit until it is handed over. With the time that a disk takes, no more than
// ten seconds are lost however the program ends.
constexpr int kDelay = 5000;

}  // namespace

AutoKeep::AutoKeep(QObject* parent, const Editor& editor, Keeper& keeper,
                   std::function<const UVEditor*()> texture)
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

const UVEditor* AutoKeep::unsavedTexture(bool inMemory) const {
    const UVEditor* const uv = texture_();
    if (uv == nullptr || !uv->unsaved || isTakenFrom(*uv, editor_.store) != inMemory) {
        return nullptr;
    }
    return inMemory || uv->leftMesh ? uv : nullptr;
}

bool AutoKeep::isUnsaved() const {
    const GeosetStore& store = editor_.store;
    return store.modelLoaded && store.sharedBase() &&
           (store.isModified() || unsavedTexture(true) != nullptr);
}

// Of the mesh in memory, or of the one that was there before.
Snapshot AutoKeep::snapshot(bool inMemory) const {
    const UVEditor* const uv = unsavedTexture(inMemory);
    return uv != nullptr ? *corvane::unsavedTexture(*uv, editor_.store) : snapshotOf(editor_.store);
}

AutoKeep::State AutoKeep::state(bool inMemory) const {
    State now;
    now.losses = keeper_.losses();
    if (inMemory) {
        now.revision = editor_.store.revisions.current();
        now.text = editor_.store.sharedBase().get();
    }
    if (const UVEditor* const uv = unsavedTexture(inMemory)) {
        if (!inMemory) now.text = uv->leftMesh->base.get();
        now.u = uv->data.u;
        now.v = uv->data.v;
    }
    return now;
}

// Whether it was really handed over.
bool AutoKeep::keepGoingOn(KeptBecause because) {
    const bool inMemory = because == KeptBecause::Editing;
    if (inMemory ? !isUnsaved() : unsavedTexture(false) == nullptr) {
        // Saved, or undone.
        if (keeper_.holds(because)) keeper_.noteSettled(because);
        return false;
    }
    State now = state(inMemory);
    if (keeper_.isWorking() && keeper_.holds(because) && now == editsKept_[because]) return false;
    keeper_.keep(snapshot(inMemory), because);
    editsKept_[because] = std::move(now);
    return true;
}

void AutoKeep::keepEdits() {
    const bool isWorking = keeper_.isWorking();
    try {
        const bool geoset = keepGoingOn(KeptBecause::Editing);
        const bool texture = keepGoingOn(KeptBecause::TextureEditing);
        if ((geoset || texture) && !isWorking) noteState();  // tries again until it succeeds
        if (keeper_.hasToRetry()) {
            keeper_.retry();
            noteState();
        }
    } catch (const std::bad_alloc&) {
        noteState();  // there may be memory again
    }
}

void AutoKeep::keepOwn(KeptBecause because, bool inMemory) {
    const KeptBecause goingOn = inMemory ? KeptBecause::Editing : KeptBecause::TextureEditing;
    const bool has = inMemory ? isUnsaved() : unsavedTexture(false) != nullptr;
    State now = state(inMemory);
    const bool isThere = has && now == ownKept_[goingOn].state && keeper_.isWorking() &&
                         keeper_.isStillThere(ownKept_[goingOn].because);
    if (!has || isThere) {
        if (keeper_.holds(goingOn)) keeper_.noteSettled(goingOn);
        return;
    }
    keeper_.keep(snapshot(inMemory), because);
    if (inMemory) {
        if (std::optional<Snapshot> removal = unsavedRemoval(editor_.store)) {
            keeper_.keep(*std::move(removal), because);
        }
    }
    ownKept_[goingOn] = {std::move(now), because};
}

void AutoKeep::keepNow(KeptBecause because) {
    keepOwn(because, true);
    keepOwn(KeptBecause::TextureDropped, false);
}

void AutoKeep::keepTexture() {
    const bool inMemory = unsavedTexture(true) != nullptr;
    if (!inMemory && unsavedTexture(false) == nullptr) return;
    keepOwn(KeptBecause::TextureDropped, inMemory);
    noteState();  // the edits go on
}

void AutoKeep::end(KeptBecause because) {
    tmrKeep_->stop();
    try {
        if (!ended_) keepNow(because);
        keeper_.retry();
    } catch (const std::bad_alloc&) {
        // Then what was kept a moment ago has to do: the program ends all the same.
    }
    ended_ = true;
}

}  // namespace corvane
