#include "kept/keeper.h"

#include <condition_variable>

#include "forked_child.h"
#include "keeper_fixture.h"
#include "model/model_writer.h"
#include "model/row_sections.h"

namespace corvane {
namespace {

using Lines = std::vector<std::string>;

// Holds the keeper's thread before it starts on what it was handed.
class Gate {
public:
    void pass() {
        std::unique_lock lock(mutex_);
        ++waiting_;
        changed_.notify_all();
        changed_.wait(lock, [this] { return open_; });
        --waiting_;
    }
    void open() {
        const std::scoped_lock lock(mutex_);
        open_ = true;
        changed_.notify_all();
    }
    void untilSomebodyWaits() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return waiting_ > 0; });
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool open_ = false;
    int waiting_ = 0;
};

TEST_F(KeeperTest, KeepsACompleteModelThatOnlyItsOwnerCanRead) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(7), KeptBecause::Closed);
    keeper->finish();
    EXPECT_EQ(models(), Lines{triangleAt(7)});
    const std::vector<KeptEntry> entries = keeper->offered();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].modelPath, "/models/hero.mdl");
    EXPECT_EQ(entries[0].geosetNumber, 1);
    EXPECT_EQ(entries[0].time, now);
    EXPECT_EQ(entries[0].because, KeptBecause::Closed);
    EXPECT_EQ(entries[0].size, static_cast<std::int64_t>(triangleAt(7).size()));
    EXPECT_EQ(keeper->read(entries[0]).view(), triangleAt(7));
    EXPECT_EQ(told, Lines{});

    namespace fs = std::filesystem;
    EXPECT_EQ(fs::status(kept()).permissions(), fs::perms::owner_all);
    for (const auto& file : fs::directory_iterator(kept())) {
        EXPECT_EQ(file.status().permissions(), fs::perms::owner_read | fs::perms::owner_write)
            << file.path();
    }
}

TEST_F(KeeperTest, NothingIsMadeUntilSomethingIsKept) {
    const auto keeper = makeKeeper();
    keeper->noteSaved();
    EXPECT_TRUE(keeper->offered().empty());
    EXPECT_EQ(folder.names(), Lines{});
}

TEST_F(KeeperTest, EditsTakeThePlaceOfEarlierOnes) {
    const auto keeper = makeKeeper();
    for (const int x : {1, 2, 3}) {
        keeper->keep(editedTo(x), KeptBecause::Editing);
        keeper->finish();
    }
    EXPECT_EQ(models(), Lines{triangleAt(3)});
    EXPECT_TRUE(keeper->holds(KeptBecause::Editing));
    EXPECT_TRUE(keeper->offered().empty()) << "they are in memory";
}

TEST_F(KeeperTest, AnEntryOfItsOwnTakesTheEditsAlong) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::Editing);
    keeper->keep(editedTo(2), KeptBecause::Closed);
    keeper->finish();
    EXPECT_EQ(all(), Lines{"hero: closed without saving"});
    EXPECT_EQ(models(), Lines{triangleAt(2)});
    EXPECT_FALSE(keeper->holds(KeptBecause::Editing));
}

TEST_F(KeeperTest, SavedEditsAreForgotten) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::Editing);
    keeper->finish();
    keeper->noteSaved();
    keeper->finish();
    EXPECT_EQ(all(), Lines{});
    EXPECT_FALSE(keeper->holds(KeptBecause::Editing));
}

TEST_F(KeeperTest, EditsThatWereSavedBeforeTheirTurnAreNotWritten) {
    Gate gate;
    const auto keeper = makeKeeper({}, [&] { gate.pass(); });
    gate.untilSomebodyWaits();
    keeper->keep(editedTo(1), KeptBecause::Editing);
    keeper->noteSaved();
    gate.open();
    keeper->finish();
    EXPECT_EQ(folder.names(), Lines{});
}

TEST_F(KeeperTest, LaterEditsTakeThePlaceOfThoseThatWait) {
    Gate gate;
    std::atomic<int> turns = 0;
    const auto keeper = makeKeeper({}, [&] {
        gate.pass();
        ++turns;
    });
    gate.untilSomebodyWaits();
    for (const int x : {1, 2, 3}) keeper->keep(editedTo(x), KeptBecause::Editing);
    keeper->keep(editedTo(4, "/models/orc.mdl"), KeptBecause::AnotherOpened);
    keeper->keep(editedTo(5), KeptBecause::Editing);
    gate.open();
    keeper->finish();
    EXPECT_EQ(turns, 4) << "pruning, the third, the other model, the fifth";
    EXPECT_EQ(models(), (Lines{triangleAt(5), triangleAt(4)}));
}

TEST_F(KeeperTest, WhatASaveReplacesIsKeptAsItIs) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::Editing);
    keeper->keepReplaced(textOf("no model at all"), "/models/hero.mdl");
    keeper->finish();
    EXPECT_EQ(all(), (Lines{"hero: replaced by a save", "hero: ended unexpectedly"}));
    EXPECT_EQ(models().front(), "no model at all");
}

TEST_F(KeeperTest, TheSameIsNotKeptTwice) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::Switched);
    keeper->keep(editedTo(1), KeptBecause::Switched);
    keeper->keepReplaced(textOf(triangleAt(0)), "/models/hero.mdl");
    keeper->keepReplaced(textOf(triangleAt(0)), "/models/hero.mdl");
    keeper->finish();
    EXPECT_EQ(all(), (Lines{"hero: replaced by a save", "hero: another geoset was read"}));
    keeper->keep(editedTo(1), KeptBecause::Closed);
    keeper->keep(editedTo(1, "/models/orc.mdl"), KeptBecause::Switched);
    keeper->keep(editedTo(2), KeptBecause::Switched);
    keeper->keep(editedTo(1), KeptBecause::Switched);
    keeper->finish();
    EXPECT_EQ(all().size(), 6U) << "another reason, another model, or no longer the newest";
}

TEST_F(KeeperTest, KnowsTheModelFileAgain) {
    const FileStamp stamp{1, ~std::uint64_t{0}, 3, 1'700'000'000'123'456'789};
    Snapshot snapshot = editedTo(1);
    snapshot.stamp = stamp;
    const auto keeper = makeKeeper();
    keeper->keep(snapshot, KeptBecause::Closed);
    EXPECT_EQ(keeper->offered().at(0).stamp, stamp);
}

TEST_F(KeeperTest, EditsOfAKilledProgramAreOfferedAndAskedAboutOnce) {
    const ChildResult child = inForkedChild([&]() -> std::string {
        Keeper keeper({.folder = kept()});
        keeper.keep(editedTo(5), KeptBecause::Editing);
        keeper.finish();
        ::raise(SIGKILL);
        return "lives";
    });
    EXPECT_EQ(child.signal, SIGKILL);
    const auto keeper = makeKeeper();
    const std::vector<KeptEntry> killed = keeper->cutOff();
    ASSERT_EQ(killed.size(), 1U);
    EXPECT_EQ(keeper->read(killed[0]).view(), triangleAt(5));
    keeper->noteAsked(killed[0]);
    EXPECT_TRUE(makeKeeper()->cutOff().empty());
    EXPECT_EQ(keeper->offered().size(), 1U) << "it can still be brought back";
}

TEST_F(KeeperTest, EditsOfAProgramThatWasToldToEndAreAskedAboutToo) {
    makeKeeper()->keep(editedTo(5), KeptBecause::Ended);
    const auto keeper = makeKeeper();
    ASSERT_EQ(keeper->cutOff().size(), 1U);
    EXPECT_EQ(keeper->read(keeper->cutOff()[0]).view(), triangleAt(5));
    keeper->noteAsked(keeper->cutOff()[0]);
    EXPECT_TRUE(keeper->cutOff().empty());
}

TEST_F(KeeperTest, EditsThatWentOnAndWereSavedAreNotAskedAbout) {
    {
        const auto keeper = makeKeeper();
        keeper->keep(editedTo(5), KeptBecause::Ended);
        EXPECT_TRUE(keeper->cutOff().empty()) << "this run has not ended";
        keeper->noteSaved();
    }
    const auto keeper = makeKeeper();
    EXPECT_TRUE(keeper->cutOff().empty());
    EXPECT_EQ(keeper->offered().size(), 1U);
}

TEST_F(KeeperTest, AnEntryThatARunTookOverIsItsOwn) {
    const auto first = makeKeeper();
    makeKeeper()->keep(editedTo(1), KeptBecause::Closed);
    const std::vector<KeptEntry> offered = first->offered();
    ASSERT_EQ(offered.size(), 1U);
    const auto second = makeKeeper();
    second->keep(editedTo(1), KeptBecause::Closed);  // the same: the entry is its own from now on
    second->finish();
    first->remove(offered[0]);
    EXPECT_EQ(models(), Lines{triangleAt(1)});
    first->noteOpened(offered[0]);
    EXPECT_EQ(second->offered().at(0).run, readEntries(kept()).at(0).run);
    EXPECT_TRUE(first->offered().empty()) << "the other run lives";
}

TEST_F(KeeperTest, KnowsWhetherWhatItKeptLastIsStillThere) {
    const auto keeper = makeKeeper();
    EXPECT_FALSE(keeper->isStillThere(KeptBecause::Ended));
    keeper->keep(editedTo(1), KeptBecause::Ended);
    keeper->keepReplaced(textOf(triangleAt(0)), "/models/hero.mdl");
    EXPECT_TRUE(keeper->isStillThere(KeptBecause::Ended));
    EXPECT_FALSE(keeper->isStillThere(KeptBecause::Closed));
    keeper->keep(editedTo(1), KeptBecause::Ended);  // once more
    EXPECT_TRUE(keeper->isStillThere(KeptBecause::Ended));
    std::filesystem::remove_all(kept());
    EXPECT_FALSE(keeper->isStillThere(KeptBecause::Ended));
}

TEST_F(KeeperTest, WhatWasClosedIsNotAskedAbout) {
    makeKeeper()->keep(editedTo(1), KeptBecause::Closed);
    const auto keeper = makeKeeper();
    EXPECT_TRUE(keeper->cutOff().empty());
    EXPECT_EQ(keeper->offered().size(), 1U);
}

TEST_F(KeeperTest, EntriesOfAProgramThatRunsAreItsOwn) {
    const auto other = makeKeeper();
    other->keep(editedTo(1), KeptBecause::Editing);
    other->keep(editedTo(1, "/models/orc.mdl"), KeptBecause::Switched);
    other->keep(editedTo(2), KeptBecause::Editing);
    other->finish();
    const auto keeper = makeKeeper({.entriesOfModel = 0, .age = -1, .bytes = 0});
    keeper->keep(editedTo(2), KeptBecause::Switched);
    EXPECT_EQ(keeper->offered().size(), 1U);
    EXPECT_TRUE(keeper->cutOff().empty());
    EXPECT_EQ(all().size(), 3U) << "neither removed nor taken for its own";
}

TEST_F(KeeperTest, DeletedEntriesAreGone) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::Closed);
    const KeptEntry entry = keeper->offered().at(0);
    keeper->remove(entry);
    keeper->noteAsked(entry);
    EXPECT_TRUE(keeper->offered().empty());
    EXPECT_THROW(keeper->read(entry), FileError);
}

TEST_F(KeeperTest, RowsThatCannotFollowDoNotKeepEditsFromBeingKept) {
    std::string text = triangleAt(0);
    text.insert(text.find("\tVertexGroup"), "\tTangents 3 {\n\t\tx,\n\t}\n");
    const SharedBase base = textOf(text);
    Snapshot snapshot{.base = base,
                      .geosetNumber = 1,
                      .modelPath = "/models/hero.mdl",
                      .geoset = parseGeoset(base->text, base->geosets, 1)};
    snapshot.geoset.Vertices.push_back(snapshot.geoset.Vertices.front());
    EXPECT_THROW(composeModel(base->text, base->geosets, 1, snapshot.geoset), RowsCannotFollow);
    EXPECT_NE(composeSnapshot(snapshot).joined().find("Vertices 4"), std::string::npos);
}

TEST_F(KeeperTest, TheTwoKindsOfEditsThatGoOnAreKeptSideBySide) {
    const auto keeper = makeKeeper();
    for (const int x : {1, 2}) {
        keeper->keep(editedTo(x), KeptBecause::Editing);
        keeper->keep(editedTo(x + 10), KeptBecause::TextureEditing);
        keeper->finish();
    }
    EXPECT_EQ(models(), (Lines{triangleAt(12), triangleAt(2)}));
    EXPECT_TRUE(keeper->offered().empty()) << "they are in memory";
    keeper->keep(editedTo(13), KeptBecause::TextureDropped);
    EXPECT_FALSE(keeper->holds(KeptBecause::TextureEditing));
    EXPECT_TRUE(keeper->holds(KeptBecause::Editing));
    keeper->finish();
    EXPECT_EQ(all(), (Lines{"hero: texture coordinates were dropped", "hero: ended unexpectedly"}));
    keeper->noteSaved();
    keeper->finish();
    EXPECT_EQ(all(), Lines{"hero: texture coordinates were dropped"});
}

TEST_F(KeeperTest, OfEditsInTheQueueOnlyTheLatestOfEachKindIsWritten) {
    Gate gate;
    const auto keeper = makeKeeper({}, [&gate] { gate.pass(); });
    gate.untilSomebodyWaits();
    for (const int x : {1, 2, 3}) {
        keeper->keep(editedTo(x), KeptBecause::Editing);
        keeper->keep(editedTo(x + 10), KeptBecause::TextureEditing);
    }
    gate.open();
    keeper->finish();
    const std::vector<KeptEntry> entries = readEntries(kept());
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_TRUE(entries[0].name.ends_with("-2") && entries[1].name.ends_with("-1"))
        << entries[0].name << ' ' << entries[1].name;
    EXPECT_EQ(models(), (Lines{triangleAt(13), triangleAt(3)}));
}

TEST_F(KeeperTest, BothKindsOfAKilledProgramAreOffered) {
    auto killed = makeKeeper();
    killed->keep(editedTo(1), KeptBecause::Editing);
    killed->keep(editedTo(2), KeptBecause::TextureEditing);
    killed.reset();
    EXPECT_EQ(makeKeeper({.entriesOfModel = 0, .age = -1, .bytes = 0})->cutOff().size(), 2U);
}

TEST_F(KeeperTest, AReplacedTextThatCouldNotBeKeptIsKeptLater) {
    folder.write("kept", "a file");
    const auto keeper = makeKeeper();
    keeper->keepReplaced(textOf(triangleAt(5)), "/models/hero.mdl");
    keeper->finish();
    ASSERT_EQ(told.size(), 1U);
    std::filesystem::remove(kept());
    keeper->keep(editedTo(1), KeptBecause::Closed);
    keeper->finish();
    EXPECT_EQ(all(), (Lines{"hero: replaced by a save", "hero: closed without saving"}));
    EXPECT_EQ(models().front(), triangleAt(5));
}

TEST_F(KeeperTest, WhatCouldNotBeKeptIsTriedAgain) {
    folder.write("kept", "a file");
    const auto keeper = makeKeeper();
    keeper->keepReplaced(textOf(triangleAt(5)), "/models/hero.mdl");
    keeper->keepReplaced(textOf(triangleAt(6)), "/models/hero.mdl");
    keeper->keep(editedTo(1), KeptBecause::Closed);
    keeper->finish();
    EXPECT_TRUE(keeper->hasToRetry());
    EXPECT_EQ(keeper->losses(), 3U);
    keeper->retry();
    keeper->finish();
    EXPECT_EQ(told, Lines{keeper->failure()}) << "told once";
    std::filesystem::remove(kept());
    keeper->retry();
    keeper->finish();
    EXPECT_EQ(models(), (Lines{triangleAt(1), triangleAt(6), triangleAt(5)}));
    EXPECT_FALSE(keeper->hasToRetry());
    EXPECT_EQ(told.back(), "");
}

// The latest edits are what the entry is for, not those of the model before.
TEST_F(KeeperTest, WhatIsTriedAgainTakesNoLaterEditsAlong) {
    folder.write("kept", "a file");
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::AnotherOpened);
    keeper->finish();
    std::filesystem::remove(kept());
    keeper->keep(editedTo(2, "/models/orc.mdl"), KeptBecause::Editing);
    keeper->finish();
    EXPECT_EQ(all(), (Lines{"hero: another model was opened", "orc: ended unexpectedly"}));
}

TEST_F(KeeperTest, EditsThatCouldNotBeKeptAreNotForgottenForOthersThatWere) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::TextureEditing);
    keeper->finish();
    std::filesystem::remove_all(kept());
    folder.write("kept", "a file");
    keeper->keep(editedTo(1), KeptBecause::Editing);
    keeper->finish();
    std::filesystem::remove(kept());
    keeper->keep(editedTo(2), KeptBecause::TextureEditing);
    keeper->finish();
    EXPECT_FALSE(keeper->isWorking()) << "the others are still missing";
    keeper->keep(editedTo(1), KeptBecause::Editing);
    keeper->finish();
    EXPECT_TRUE(keeper->isWorking());
}

TEST_F(KeeperTest, TheSameKeptAgainIsTheNewest) {
    makeKeeper()->keep(editedTo(1), KeptBecause::Closed);
    makeKeeper()->keep(editedTo(2, "/models/orc.mdl"), KeptBecause::Closed);
    const auto keeper = makeKeeper();
    keeper->noteOpened(keeper->offered().at(1));
    now += 5000;
    keeper->keep(editedTo(1), KeptBecause::Closed);
    const std::vector<KeptEntry> entries = keeper->offered();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].modelPath, "/models/hero.mdl");
    EXPECT_EQ(entries[0].time, now);
    EXPECT_FALSE(entries[0].opened);
    EXPECT_EQ(keeper->read(entries[0]).view(), triangleAt(1));
}

TEST_F(KeeperTest, TheLatestIsTheNewestWhicheverProgramKeptIt) {
    const auto first = makeKeeper();
    first->keep(editedTo(1), KeptBecause::Switched);
    first->finish();
    const auto second = makeKeeper();
    for (const int x : {2, 3, 4}) second->keep(editedTo(x), KeptBecause::Switched);
    second->finish();
    first->keep(editedTo(5), KeptBecause::Switched);
    first->finish();
    EXPECT_EQ(models().front(), triangleAt(5));
}

TEST_F(KeeperTest, APathThatIsNotUTF8ComesBackByteForByte) {
    const std::string path = "/models/h\xE9ros.mdl";
    makeKeeper()->keep(editedTo(1, path), KeptBecause::Closed);
    ASSERT_EQ(makeKeeper()->offered().size(), 1U);
    EXPECT_EQ(makeKeeper()->offered().at(0).modelPath, path);
}

}  // namespace
}  // namespace corvane
