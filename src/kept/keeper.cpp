#include "kept/keeper.h"

#include <QCryptographicHash>
#include <QUuid>
#include <algorithm>
#include <chrono>
#include <exception>
#include <new>
#include <utility>

namespace corvane {

namespace {

std::string newRunName() {
    constexpr int kDigits = 16;
    return QUuid::createUuid().toString(QUuid::Id128).last(kDigits).toStdString();
}

std::int64_t systemTime() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

std::string digestOf(const PiecedText& text) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const std::string_view piece : text.pieces()) {
        hash.addData(QByteArrayView(piece.data(), static_cast<qsizetype>(piece.size())));
    }
    return hash.result().toHex().toStdString();
}

}  // namespace

Keeper::Keeper(KeeperOptions options)
    : options_(std::move(options)), run_(newRunName()), lock_(options_.folder, run_) {
    if (!options_.now) options_.now = systemTime;
    queue_.emplace_back();  // prunes
    thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
}

Keeper::~Keeper() {
    finish();
    thread_.request_stop();
    thread_.join();
}

void Keeper::keep(Snapshot snapshot, KeptBecause because) {
    if (!snapshot.base) return;
    Work work;
    work.snapshot = std::move(snapshot);
    work.because = because;
    if (work.isEditing()) {
        holds_.insert(because);
    } else {
        holds_.erase(goingOnIn(because));
    }
    hand(std::move(work));
}

void Keeper::keepReplaced(SharedBase text, const std::string& path) {
    if (!text) return;
    try {
        Work work;
        work.text = std::move(text);
        work.path = path;
        hand(std::move(work));
    } catch (const std::bad_alloc& error) {
        noteLost(error.what());
    }
}

void Keeper::noteLost(const char* reason) {
    {
        const std::scoped_lock lock(mutex_);
        ++failures_;
    }
    tell(reason);
}

void Keeper::noteSettled(KeptBecause goingOn) {
    holds_.erase(goingOn);
    Work work;
    work.settled = goingOn;
    hand(std::move(work));
}

void Keeper::noteSaved() {
    holds_.erase(KeptBecause::Editing);
    Work work;
    work.settled = KeptBecause::Editing;
    work.saved = true;
    hand(std::move(work));
}

bool Keeper::isStillThere(KeptBecause because) {
    finish();  // then nothing else looks at what is the thread's
    const auto latest = latest_.find(because);
    return latest != latest_.end() && readEntry(options_.folder, latest->second);
}

void Keeper::spare(std::string name) {
    const std::scoped_lock lock(mutex_);
    spared_ = std::move(name);
}

// Where the queue holds nothing but edits that go on from.
std::deque<Keeper::Work>::iterator Keeper::firstGoingOn() {
    const auto isOther = [](const Work& work) { return !work.isEditing(); };
    return std::find_if(queue_.rbegin(), queue_.rend(), isOther).base();
}

void Keeper::hand(Work work) {
    try {
        const std::scoped_lock lock(mutex_);
        // Edits that were saved, or changed further, before their turn came need not be written.
        const auto first = work.settled ? queue_.begin() : firstGoingOn();
        const KeptBecause because = work.settled.value_or(work.because);
        if (work.settled || work.isEditing()) {
            queue_.erase(std::remove_if(first, queue_.end(),
                                        [&](const Work& old) {
                                            return old.isEditing() && old.because == because;
                                        }),
                         queue_.end());
        }
        queue_.push_back(std::move(work));
    } catch (const std::exception& error) {
        noteLost(error.what());
    }
    changed_.notify_all();
}

void Keeper::onState(std::function<void(const std::string&)> call) {
    const std::scoped_lock lock(mutex_);
    onState_ = std::move(call);
    if (onState_ && !failure_.empty()) onState_(failure_);
}

bool Keeper::isWorking() const {
    const std::scoped_lock lock(mutex_);
    return failure_.empty();
}

std::string Keeper::failure() const {
    const std::scoped_lock lock(mutex_);
    return failure_;
}

std::uint64_t Keeper::losses() const {
    const std::scoped_lock lock(mutex_);
    return removals_ + failures_;
}

bool Keeper::hasToRetry() const {
    const std::scoped_lock lock(mutex_);
    return hasToRetry_;
}

void Keeper::retry() {
    if (!hasToRetry()) return;
    Work work;
    work.retries = true;
    hand(std::move(work));
}

void Keeper::finish() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return queue_.empty() && !busy_; });
}

void Keeper::run(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return !queue_.empty(); })) {
        {
            Work work = std::move(queue_.front());
            queue_.pop_front();
            busy_ = true;
            lock.unlock();
            perform(std::move(work));
        }
        lock.lock();
        busy_ = false;
        changed_.notify_all();
    }
}

// No error ends the program: its user can still save.
void Keeper::perform(Work work) {
    try {
        if (options_.beforeWork) options_.beforeWork();
        carryOut(work);
        if (work.snapshot && !work.isEditing()) dropGoingOn(goingOnIn(work.because));
    } catch (const std::exception& error) {
        noteFailed(std::move(work), error.what());
        return;
    }
    if (work.isEditing()) failingEdits_.erase(work.because);
    if (work.settled) failingEdits_.erase(*work.settled);
    const bool hadToRetry = !failed_.empty();
    const bool isAllKept = keepWhatFailed() && failingEdits_.empty();
    if (isAllKept && (hadToRetry || work.isToBeKept())) tell("");
}

void Keeper::carryOut(const Work& work) {
    if (work.snapshot) {
        const Snapshot& snapshot = *work.snapshot;
        write({.modelPath = snapshot.modelPath,
               .geosetNumber = snapshot.geosetNumber,
               .because = work.because,
               .stamp = snapshot.stamp},
              composeSnapshot(snapshot));
    } else if (work.text) {
        PiecedText text;
        text.addView(work.text->text.view());
        write({.modelPath = work.path, .because = KeptBecause::Replaced}, text);
    } else if (work.settled) {
        dropGoingOn(*work.settled);
        if (!work.saved) return;
        for (const std::string& name : ended_) mark(name, &KeptEntry::opened);
        ended_.clear();
    } else if (!work.retries) {
        // Only at the start: by a clock that is wrong for a while a save is not to take anything.
        prune("", true);
    }
}

void Keeper::noteFailed(Work work, const char* reason) {
    // What could not be kept is in memory no longer: the entry of the edits before it, which holds
    // nearly the same, must not go with the next one's.
    if (work.snapshot && !work.isEditing()) goingOn_.erase(goingOnIn(work.because));
    try {
        if (work.isEditing()) {
            failingEdits_.insert(work.because);
        } else if (work.isToBeKept()) {
            // Each may hold a whole model. The first is what was there before all the others.
            constexpr std::size_t kMost = 8;
            if (failed_.size() == kMost) failed_.erase(failed_.begin() + 1);
            failed_.push_back(std::move(work));
        }
    } catch (const std::bad_alloc&) {
        // Then it is lost; the reason is told.
    }
    {
        const std::scoped_lock lock(mutex_);
        ++failures_;
        hasToRetry_ = !failed_.empty();
    }
    tell(reason);
}

// Whether nothing is left of it.
bool Keeper::keepWhatFailed() {
    try {
        for (; !failed_.empty(); failed_.pop_front()) carryOut(failed_.front());
    } catch (const std::exception& error) {
        tell(error.what());
    }
    const std::scoped_lock lock(mutex_);
    hasToRetry_ = !failed_.empty();
    return failed_.empty();
}

void Keeper::write(KeptEntry entry, const PiecedText& text) {
    entry.run = run_;
    entry.digest = digestOf(text);
    makeKeptFolder(options_.folder);
    const bool isGoingOn = goesOn(entry.because);
    if (isGoingOn && isGoingOnThere(entry)) return;
    std::vector<KeptEntry> all;
    if (!isGoingOn || order_ == 0) all = readEntries(options_.folder);
    for (const KeptEntry& other : all) order_ = std::max(order_, other.order);
    lock_.hold();
    entry.time = options_.now();
    entry.order = ++order_;
    if (!isGoingOn) {
        if (const KeptEntry* const same = sameIn(all, entry)) {
            entry.name = same->name;  // kept once more, and so from now on
            writeEntryJson(options_.folder, entry, lock_.path());
            latest_[entry.because] = entry.name;
            return;
        }
    }
    entry.name = run_ + '-' + std::to_string(++written_);
    writeEntry(options_.folder, entry, text.pieces(), lock_.path());
    if (isGoingOn) {
        dropGoingOn(entry.because);
        goingOn_[entry.because] = entry;
    } else {
        if (entry.because == KeptBecause::Ended) ended_.push_back(entry.name);
        latest_[entry.because] = entry.name;
        prune(entry.name, false);
    }
}

namespace {

bool isSame(const KeptEntry& a, const KeptEntry& b) {
    return a.digest == b.digest && a.modelPath == b.modelPath && a.geosetNumber == b.geosetNumber &&
           a.stamp == b.stamp;
}

}  // namespace

// Whether the entry of those edits that go on holds the same.
bool Keeper::isGoingOnThere(const KeptEntry& entry) const {
    const auto last = goingOn_.find(entry.because);
    return last != goingOn_.end() && isSame(last->second, entry) &&
           stampOf(keptJsonPath(options_.folder, last->second.name)) &&
           stampOf(keptModelPath(options_.folder, last->second.name));
}

// The newest entry for the same model and reason, if it holds the same; else null. One of another
// program that runs does not count, for it is not offered here.
const KeptEntry* Keeper::sameIn(const std::vector<KeptEntry>& all, const KeptEntry& entry) const {
    const auto newest = std::ranges::find_if(all, [&](const KeptEntry& other) {
        return other.because == entry.because && other.modelPath == entry.modelPath &&
               !other.damaged && (other.run == run_ || !isRunAlive(options_.folder, other.run));
    });
    return newest != all.end() && isSame(*newest, entry) ? &*newest : nullptr;
}

void Keeper::dropGoingOn(KeptBecause goingOn) {
    const auto last = goingOn_.find(goingOn);
    if (last == goingOn_.end()) return;
    removeEntry(options_.folder, last->second.name);
    goingOn_.erase(last);
}

void Keeper::prune(const std::string& written, bool byAge) {
    Pruner pruner{.run = run_, .spared = {written}, .now = options_.now(), .byAge = byAge};
    {
        const std::scoped_lock lock(mutex_);
        pruner.spared.insert(spared_);
    }
    const std::size_t removed = pruneFolder(options_.folder, options_.limits, pruner);
    const std::scoped_lock lock(mutex_);
    removals_ += removed;
}

void Keeper::tell(const std::string& failure) {
    const std::scoped_lock lock(mutex_);
    // The first reason stands until something could be kept again.
    if (failure.empty() == failure_.empty()) return;
    try {
        failure_ = failure;
        if (onState_) onState_(failure_);
    } catch (const std::bad_alloc&) {
        // Telling is not worth the thread.
    }
}

std::vector<KeptEntry> Keeper::offered() {
    finish();
    std::vector<KeptEntry> all = readEntries(options_.folder);
    std::map<std::string, bool> alive;
    std::erase_if(all, [&](const KeptEntry& entry) {
        if (entry.run == run_) return goesOn(entry.because);
        const auto [known, isNew] = alive.try_emplace(entry.run, false);
        if (isNew) known->second = isRunAlive(options_.folder, entry.run);
        return known->second;
    });
    return all;
}

std::vector<KeptEntry> Keeper::cutOff() {
    std::vector<KeptEntry> all = offered();
    std::erase_if(all, [this](const KeptEntry& entry) {
        return !wasCutOff(entry.because) || entry.run == run_ || entry.asked || entry.opened;
    });
    return all;
}

ModelText Keeper::read(const KeptEntry& entry) const {
    return readModelFile(keptModelPath(options_.folder, entry.name));
}

void Keeper::noteAsked(const KeptEntry& entry) const { mark(entry.name, &KeptEntry::asked); }

void Keeper::noteOpened(const KeptEntry& entry) const { mark(entry.name, &KeptEntry::opened); }

// Of what is known of the entry by now: another run may have kept the same, and so taken it over.
void Keeper::mark(const std::string& name, bool KeptEntry::*flag) const {
    std::optional<KeptEntry> entry = readEntry(options_.folder, name);
    if (!entry || entry->damaged) return;
    (*entry).*flag = true;
    try {
        writeEntryJson(options_.folder, *entry, keptJsonPath(options_.folder, name));
    } catch (const std::exception&) {
        // It will be asked about once more; nothing is lost.
    }
}

void Keeper::remove(const KeptEntry& entry) {
    const std::optional<KeptEntry> now = readEntry(options_.folder, entry.name);
    const bool isTakenOver = now && now->run != entry.run && now->run != run_;
    if (isTakenOver && isRunAlive(options_.folder, now->run)) return;
    removeEntry(options_.folder, entry.name);
    const std::scoped_lock lock(mutex_);
    ++removals_;
}

}  // namespace corvane
