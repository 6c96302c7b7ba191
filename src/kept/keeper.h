// Keeps what would be lost: snapshots are handed to a thread of its own, which writes them to the
// folder. Nothing that is edited ever waits for the disk.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "editor/way_back.h"
#include "kept/kept_folder.h"
#include "kept/run_lock.h"

namespace corvane {

struct KeeperOptions {
    std::string folder;
    KeptLimits limits{};
    /// Milliseconds since 1970, UTC; the system's clock where empty.
    std::function<std::int64_t()> now{};
    /// Called on the keeper's thread before it starts on what it was handed.
    std::function<void()> beforeWork{};
};

/// The calls belong to one thread, that of the windows. What cannot be kept stops nothing: it is
/// told through onState().
class Keeper : public WayBack {
public:
    explicit Keeper(KeeperOptions options);
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;
    /// Waits like finish().
    ~Keeper() override;

    void keep(Snapshot snapshot, KeptBecause because) override;
    void keepReplaced(SharedBase text, const std::string& path) override;
    void noteLost(const char* reason) override;
    /// The edits of entries that this run kept when it was told to end, and did not, went on too.
    void noteSaved() override;

    /// The edits that go on with that reason need not be kept any more: their entry goes.
    void noteSettled(KeptBecause goingOn);

    /// Sets what is called, on any thread, when something could not be kept, with the reason, and
    /// with an empty text when keeping works again. A reason is told once, not for each try.
    void onState(std::function<void(const std::string& failure)> call);

    /// Whether edits that go on, with that reason, are kept or handed over.
    bool holds(KeptBecause goingOn) const { return holds_.contains(goingOn); }

    /// Counts whatever may have left less in the folder than was handed over: entries that were
    /// deleted, by the user or for the limits, and failures.
    std::uint64_t losses() const;

    /// Whether what this run kept last with that reason, which is none of edits that go on, is
    /// still in the folder. Waits like finish().
    bool isStillThere(KeptBecause because);

    /// Whether all that was to be kept is kept.
    bool isWorking() const;
    /// Why the first thing that is not kept is not; empty where all is.
    std::string failure() const;

    /// Tries again what could not be kept, if there is any, apart from edits that go on: their
    /// owner has later ones.
    void retry();
    /// Whether there is any.
    bool hasToRetry() const;

    /// Waits until all that was handed over is on the disk, or could not be kept.
    void finish();

    const std::string& folder() const { return options_.folder; }

    /// What can be brought back, newest first: entries of this run and of those that have ended,
    /// but not the edits that are in memory. Waits like finish().
    std::vector<KeptEntry> offered();

    /// Those of them that hold edits of a program that was killed, or told to end, and that the
    /// user was not asked about.
    std::vector<KeptEntry> cutOff();

    /// Makes the entry with that name stay, whatever the limits say; the one named before need not
    /// any more. None where the name is empty.
    void spare(std::string name);

    /// The model of an entry. Throws FileError.
    ModelText read(const KeptEntry& entry) const;

    /// The user was asked about an entry, opened it, or deletes it. What cannot be written is left
    /// at that.
    void noteAsked(const KeptEntry& entry) const;
    void noteOpened(const KeptEntry& entry) const;
    void remove(const KeptEntry& entry);

private:
    // What the thread has to do: keep a snapshot, keep a text, forget edits that went on, try again
    // what failed, or only prune.
    struct Work {
        std::optional<Snapshot> snapshot{};
        KeptBecause because = KeptBecause::Editing;
        SharedBase text{};
        std::string path{};
        std::optional<KeptBecause> settled{};
        bool retries = false;
        bool saved = false;

        bool isToBeKept() const { return snapshot || text; }
        bool isEditing() const { return snapshot && goesOn(because); }
    };

    void mark(const std::string& name, bool KeptEntry::*flag) const;
    std::deque<Work>::iterator firstGoingOn();
    void hand(Work work);
    void run(const std::stop_token& stop);
    void perform(Work work);
    void carryOut(const Work& work);
    void noteFailed(Work work, const char* reason);
    bool keepWhatFailed();
    void write(KeptEntry entry, const PiecedText& text);
    bool isGoingOnThere(const KeptEntry& entry) const;
    const KeptEntry* sameIn(const std::vector<KeptEntry>& all, const KeptEntry& entry) const;
    void dropGoingOn(KeptBecause goingOn);
    void prune(const std::string& written, bool byAge);
    void tell(const std::string& failure);

    KeeperOptions options_;
    std::set<KeptBecause> holds_;

    // The thread's own.
    std::string run_;
    RunLock lock_;
    std::uint64_t written_ = 0;  // entries by this run
    std::int64_t order_ = 0;     // of the latest entry
    std::map<KeptBecause, KeptEntry> goingOn_;
    std::map<KeptBecause, std::string> latest_;  // names, of what is not going on
    std::vector<std::string> ended_;             // names of entries of this run's end
    std::deque<Work> failed_;             // what is still to be kept, without edits that go on
    std::set<KeptBecause> failingEdits_;  // of those, whose latest could not be kept

    mutable std::mutex mutex_;  // for what follows
    std::condition_variable_any changed_;
    std::deque<Work> queue_;
    bool busy_ = false;
    std::string failure_;
    std::uint64_t failures_ = 0;
    std::uint64_t removals_ = 0;
    std::string spared_;
    bool hasToRetry_ = false;
    std::function<void(const std::string&)> onState_;

    std::jthread thread_;  // last: it uses the others
};

}  // namespace corvane
