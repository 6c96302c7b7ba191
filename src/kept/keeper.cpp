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
        tell(error.what());
    }
}

void Keeper::noteSettled(KeptBecause goingOn) {
    holds_.erase(goingOn);
    Work work;
    work.settled = goingOn;
    hand(std::move(work));
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
        tell(error.what());
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
        if (work.settled) {
            dropGoingOn(*work.settled);
            return;
        }
        if (work.snapshot) {
            keepSnapshot(*work.snapshot, work.because);
        } else if (work.text) {
            keepText(work);
        } else {
            prune("");
            return;
        }
        keepWhatFailed();
        tell("");
    } catch (const std::exception& error) {
        // What could not be kept is in memory no longer: the entry of the edits before it, which
        // holds nearly the same, must not go with the next one's.
        if (work.snapshot && !goesOn(work.because)) goingOn_.erase(goingOnIn(work.because));
        if (work.text) failedText_ = std::move(work);
        tell(error.what());
    }
}

void Keeper::keepSnapshot(const Snapshot& snapshot, KeptBecause because) {
    write({.modelPath = snapshot.modelPath,
           .geosetNumber = snapshot.geosetNumber,
           .because = because,
           .stamp = snapshot.stamp},
          composeSnapshot(snapshot));
    if (!goesOn(because)) dropGoingOn(goingOnIn(because));
}

void Keeper::keepText(const Work& work) {
    PiecedText text;
    text.addView(work.text->text.view());
    write({.modelPath = work.path, .because = KeptBecause::Replaced}, text);
}

// Nothing else would try it again: what a save replaced is nobody's edit.
void Keeper::keepWhatFailed() {
    if (!failedText_) return;
    keepText(*failedText_);
    failedText_.reset();
}

void Keeper::write(KeptEntry entry, const PiecedText& text) {
    entry.run = run_;
    entry.digest = digestOf(text);
    makeKeptFolder(options_.folder);
    if (isThereAlready(entry)) return;
    lock_.hold();
    entry.name = run_ + '-' + std::to_string(++written_);
    entry.time = options_.now();
    entry.order = nextOrder();
    writeEntry(options_.folder, entry, text.pieces(), lock_.path());
    if (goesOn(entry.because)) {
        dropGoingOn(entry.because);
        goingOn_[entry.because] = entry;
    } else {
        prune(entry.name);
    }
}

// Whether the newest entry for the same model and reason holds the same. One of another program
// that runs does not count, for it is not offered here; nor do edits of another run, which end with
// a save there.
bool Keeper::isThereAlready(const KeptEntry& entry) const {
    const auto isSame = [&](const KeptEntry& other) {
        return other.digest == entry.digest && other.modelPath == entry.modelPath &&
               other.geosetNumber == entry.geosetNumber && other.stamp == entry.stamp;
    };
    if (goesOn(entry.because)) {
        const auto last = goingOn_.find(entry.because);
        return last != goingOn_.end() && isSame(last->second) &&
               stampOf(keptJsonPath(options_.folder, last->second.name)) &&
               stampOf(keptModelPath(options_.folder, last->second.name));
    }
    const std::vector<KeptEntry> all = readEntries(options_.folder);
    const auto newest = std::ranges::find_if(all, [&](const KeptEntry& other) {
        return other.because == entry.because && other.modelPath == entry.modelPath &&
               (other.run == run_ || !isRunAlive(options_.folder, other.run));
    });
    return newest != all.end() && isSame(*newest);
}

std::int64_t Keeper::nextOrder() {
    if (order_ == 0) {
        for (const KeptEntry& entry : readEntries(options_.folder)) {
            order_ = std::max(order_, entry.order);
        }
    }
    return ++order_;
}

void Keeper::dropGoingOn(KeptBecause goingOn) {
    const auto last = goingOn_.find(goingOn);
    if (last == goingOn_.end()) return;
    removeEntry(options_.folder, last->second.name);
    goingOn_.erase(last);
}

void Keeper::prune(const std::string& spare) {
    pruneFolder(options_.folder, options_.limits,
                {.run = run_, .spare = spare, .now = options_.now()});
}

void Keeper::tell(const std::string& failure) {
    const std::scoped_lock lock(mutex_);
    // The first reason stands until something could be kept again.
    if (failure.empty() == failure_.empty()) return;
    failure_ = failure;
    if (onState_) onState_(failure_);
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

std::vector<KeptEntry> Keeper::killed() {
    std::vector<KeptEntry> all = offered();
    std::erase_if(all, [](const KeptEntry& entry) {
        return !goesOn(entry.because) || entry.asked || entry.opened;
    });
    return all;
}

ModelText Keeper::read(const KeptEntry& entry) const {
    return readModelFile(keptModelPath(options_.folder, entry.name));
}

void Keeper::noteAsked(KeptEntry entry) const {
    entry.asked = true;
    rewrite(entry);
}

void Keeper::noteOpened(KeptEntry entry) const {
    entry.opened = true;
    rewrite(entry);
}

void Keeper::rewrite(const KeptEntry& entry) const {
    const std::string json = keptJsonPath(options_.folder, entry.name);
    if (!stampOf(json)) return;
    try {
        writeEntryJson(options_.folder, entry, json);
    } catch (const std::exception&) {
        // It will be asked about once more; nothing is lost.
    }
}

void Keeper::remove(const KeptEntry& entry) {
    removeEntry(options_.folder, entry.name);
    ++removals_;
}

}  // namespace corvane
