// How long things are kept, and folders that are not as they should be.

#include <sys/resource.h>

#include <chrono>

#include "forked_child.h"
#include "keeper_fixture.h"

namespace corvane {
namespace {

using Lines = std::vector<std::string>;
namespace fs = std::filesystem;

constexpr std::int64_t kDay = std::int64_t{24} * 60 * 60 * 1000;

using KeptLimitsTest = KeeperTest;
using KeptFolderTest = KeeperTest;

TEST_F(KeptLimitsTest, TheOldestOfAModelGoFirst) {
    const auto keeper = makeKeeper({.entriesOfModel = 3});
    for (int x = 1; x <= 5; ++x) keeper->keep(editedTo(x), KeptBecause::Switched);
    keeper->keep(editedTo(1, "/models/orc.mdl"), KeptBecause::Switched);
    keeper->finish();
    EXPECT_EQ(models(), (Lines{triangleAt(1), triangleAt(5), triangleAt(4), triangleAt(3)}));
}

TEST_F(KeptLimitsTest, WhatIsTooOldGoes) {
    makeKeeper()->keep(editedTo(1), KeptBecause::Closed);
    now += 29 * kDay;
    makeKeeper()->keep(editedTo(2), KeptBecause::Closed);
    EXPECT_EQ(all().size(), 2U);
    now += 2 * kDay;
    makeKeeper()->finish();
    EXPECT_EQ(models(), Lines{triangleAt(2)});
}

TEST_F(KeptLimitsTest, AClockSetForwardTakesNothingByItself) {
    for (const int x : {1, 2}) makeKeeper()->keep(editedTo(x), KeptBecause::Closed);
    now += 400 * kDay;
    makeKeeper()->finish();
    EXPECT_EQ(all().size(), 2U);
}

TEST_F(KeptLimitsTest, TheOldestOfAllGoWhereTheyAreTooLarge) {
    const auto size = static_cast<std::int64_t>(triangleAt(1).size());
    const auto keeper = makeKeeper({.bytes = 2 * size});
    for (int x = 1; x <= 3; ++x) {
        keeper->keep(editedTo(x, "/models/" + std::to_string(x) + ".mdl"), KeptBecause::Closed);
    }
    keeper->finish();
    EXPECT_EQ(models(), (Lines{triangleAt(3), triangleAt(2)}));
}

TEST_F(KeptLimitsTest, TheNewestEntryStaysHoweverLarge) {
    const auto keeper = makeKeeper({.entriesOfModel = 0, .age = -1, .bytes = 0});
    keeper->keep(editedTo(1), KeptBecause::Closed);
    keeper->finish();
    EXPECT_EQ(models(), Lines{triangleAt(1)});
}

TEST_F(KeptLimitsTest, ASaveUnderAClockThatIsAheadTakesNothing) {
    for (const int x : {1, 2}) makeKeeper()->keep(editedTo(x), KeptBecause::Closed);
    now += 400 * kDay;
    const auto keeper = makeKeeper();
    keeper->keepReplaced(textOf(triangleAt(3)), "/models/hero.mdl");
    keeper->finish();
    EXPECT_EQ(all().size(), 3U);
}

TEST_F(KeptLimitsTest, WhatWasKeptUnderAClockThatWasBehindIsNoOlderForIt) {
    makeKeeper()->keep(editedTo(1), KeptBecause::Closed);
    now -= 400 * kDay;
    makeKeeper()->keep(editedTo(2), KeptBecause::Closed);
    now += 401 * kDay;
    makeKeeper()->keep(editedTo(3), KeptBecause::Closed);
    makeKeeper()->finish();
    EXPECT_EQ(all().size(), 3U);
}

TEST_F(KeptLimitsTest, WhatIsSparedStays) {
    const auto keeper = makeKeeper({.entriesOfModel = 2});
    for (const int x : {1, 2}) keeper->keep(editedTo(x), KeptBecause::Closed);
    const std::vector<KeptEntry> before = keeper->offered();
    keeper->spare(before.at(1).name);
    keeper->keep(editedTo(3), KeptBecause::Closed);
    keeper->finish();
    EXPECT_EQ(models(), (Lines{triangleAt(3), triangleAt(1)}));
    keeper->spare("");
    keeper->keep(editedTo(4), KeptBecause::Closed);
    keeper->finish();
    EXPECT_EQ(models(), (Lines{triangleAt(4), triangleAt(3)}));
}

TEST_F(KeptLimitsTest, TheOnlyEditsOfAKilledProgramStayUntilTheyAreOpened) {
    makeKeeper()->keep(editedTo(1), KeptBecause::Editing);
    makeKeeper()->keep(editedTo(2), KeptBecause::Editing);
    makeKeeper()->keep(editedTo(3, "/models/orc.mdl"), KeptBecause::Editing);
    const auto keeper = makeKeeper({.entriesOfModel = 0, .age = -1, .bytes = 0});
    keeper->finish();
    EXPECT_EQ(models(), (Lines{triangleAt(3), triangleAt(2), triangleAt(1)}));
    for (const KeptEntry& entry : keeper->offered()) keeper->noteAsked(entry);
    makeKeeper({.entriesOfModel = 0, .age = -1, .bytes = 0})->finish();
    EXPECT_EQ(models(), (Lines{triangleAt(3), triangleAt(2)})) << "the last ones of their geosets";
    keeper->noteOpened(keeper->offered().at(0));
    makeKeeper({.entriesOfModel = 0, .age = -1, .bytes = 0})->finish();
    EXPECT_EQ(models(), Lines{triangleAt(2)});
}

TEST_F(KeptLimitsTest, AClockSetBackLosesNothing) {
    const auto keeper = makeKeeper({.entriesOfModel = 2});
    keeper->keep(editedTo(1), KeptBecause::Closed);
    keeper->keep(editedTo(2), KeptBecause::Closed);
    keeper->finish();
    now -= 1000 * kDay;
    keeper->keep(editedTo(3), KeptBecause::Closed);
    keeper->finish();
    EXPECT_EQ(models(), (Lines{triangleAt(3), triangleAt(2)}));
}

TEST_F(KeptLimitsTest, TenThousandEntriesAreNoTrouble) {
    makeKeptFolder(kept());
    const std::string run(16, 'a');
    for (int i = 0; i < 10'000; ++i) {
        const std::string name = run + '-' + std::to_string(i);
        const KeptEntry entry{.name = name,
                              .modelPath = "/models/" + std::to_string(i % 1000) + ".mdl",
                              .geosetNumber = 1,
                              .time = now,
                              .order = i,
                              .because = KeptBecause::Closed,
                              .run = run};
        folder.write("kept/" + name + ".json", entryJson(entry));
        folder.write("kept/" + name + ".mdl", "model");
    }
    const auto keeper = makeKeeper({.entriesOfModel = 2});
    keeper->keep(editedTo(1), KeptBecause::Closed);
    EXPECT_EQ(keeper->offered().size(), 2001U);
    EXPECT_EQ(keeper->offered().at(0).modelPath, "/models/hero.mdl");
}

TEST_F(KeptFolderTest, WhatKilledProgramsLeftBehindGoesOnceItIsOld) {
    makeKeeper()->keep(editedTo(1), KeptBecause::Closed);
    const std::string run(16, 'b');
    const Lines leftovers = {run + "-1.mdl", run + "-2.json", run + ".lock", ".corvane-1-0.tmp"};
    for (const std::string& name : leftovers) folder.write("kept/" + name, "{");
    folder.write("kept/notes.mdl", "the user's");
    makeKeeper()->finish();
    for (const std::string& name : leftovers) {
        EXPECT_TRUE(fs::exists(folder.path("kept/" + name))) << name;
    }
    for (const auto& file : fs::directory_iterator(kept())) {
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(25));
    }
    makeKeeper()->finish();
    for (const std::string& name : leftovers) {
        EXPECT_FALSE(fs::exists(folder.path("kept/" + name))) << name;
    }
    EXPECT_TRUE(fs::exists(folder.path("kept/notes.mdl")));
    EXPECT_EQ(models(), Lines{triangleAt(1)});
}

TEST_F(KeptFolderTest, OfDamagedEntriesTheModelIsStillOffered) {
    makeKeeper()->keep(editedTo(1), KeptBecause::Closed);
    makeKeeper()->keep(editedTo(2, "/models/orc.mdl"), KeptBecause::Closed);
    const std::string damaged = readEntries(kept()).at(0).name;
    for (const char* const json : {"", "{", "[]", R"({"model":"/x"})", "\xff\xfe\x00\x01"}) {
        folder.write("kept/" + damaged + ".json", json);
        const auto keeper = makeKeeper();
        keeper->keep(editedTo(1), KeptBecause::Closed);
        const std::vector<KeptEntry> entries = keeper->offered();
        ASSERT_EQ(entries.size(), 2U) << json;
        EXPECT_FALSE(entries[0].damaged);
        EXPECT_TRUE(entries[1].damaged);
        EXPECT_EQ(entries[1].modelPath, keptModelPath(kept(), damaged));
        EXPECT_EQ(keeper->read(entries[1]).view(), triangleAt(2));
        EXPECT_TRUE(keeper->cutOff().empty());
    }
    EXPECT_EQ(told, Lines{});
}

TEST_F(KeptFolderTest, AFileInItsPlaceIsToldOnce) {
    folder.write("kept", "somebody's file");
    const auto keeper = makeKeeper();
    for (const int x : {1, 2}) keeper->keep(editedTo(x), KeptBecause::Closed);
    EXPECT_TRUE(keeper->offered().empty());
    EXPECT_EQ(told, Lines{kept() + ": Not a directory"});
    EXPECT_EQ(readFile(kept()), "somebody's file");
    fs::remove(kept());
    keeper->keep(editedTo(3), KeptBecause::Closed);
    EXPECT_EQ(keeper->offered().size(), 3U) << "with those that could not be kept before";
    EXPECT_EQ(told.size(), 2U);
    EXPECT_EQ(told.back(), "");
}

TEST_F(KeptFolderTest, AFolderThatVanishesIsMadeAnew) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::Editing);
    keeper->finish();
    fs::remove_all(kept());
    keeper->keep(editedTo(1), KeptBecause::Editing);
    keeper->finish();
    EXPECT_EQ(models(), Lines{triangleAt(1)});
    EXPECT_TRUE(makeKeeper()->offered().empty()) << "the lock is held again";
    EXPECT_EQ(told, Lines{});
}

TEST_F(KeptFolderTest, AFolderThatCannotBeWrittenIsTold) {
    fs::create_directory(kept());
    fs::permissions(kept(), fs::perms::owner_read | fs::perms::owner_exec);
    giveToUnprivilegedUser(kept());
    fs::permissions(folder.path(""), fs::perms::all);
    const ChildResult child = asUnprivilegedUser([&] {
        std::string said;
        Keeper keeper({.folder = kept()});
        keeper.onState([&](const std::string& failure) { said += failure + ';'; });
        keeper.keep(editedTo(1), KeptBecause::Closed);
        keeper.keep(editedTo(2), KeptBecause::Closed);
        keeper.finish();
        return said;
    });
    EXPECT_TRUE(child.said.ends_with(".lock: Permission denied;")) << child.said;
    EXPECT_EQ(std::ranges::count(child.said, ';'), 1);
}

TEST_F(KeptFolderTest, AFullDiskLosesNothingThatWasKept) {
    const auto keeper = makeKeeper();
    keeper->keep(editedTo(1), KeptBecause::Closed);
    keeper->finish();
    const ChildResult child = inForkedChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const struct rlimit limit { 100, 100 };
        ::setrlimit(RLIMIT_FSIZE, &limit);
        std::string said;
        Keeper full({.folder = kept()});
        full.onState([&](const std::string& failure) { said += failure + ';'; });
        full.keep(editedTo(2), KeptBecause::Closed);
        full.finish();
        return said;
    });
    EXPECT_NE(child.said.find("File too large;"), std::string::npos) << child.said;
    EXPECT_EQ(models(), Lines{triangleAt(1)});
}

TEST_F(KeptFolderTest, IsWhereProgramsKeepTheirData) {
    EXPECT_TRUE(standardKeptFolder().ends_with("/corvane/kept")) << standardKeptFolder();
}

}  // namespace
}  // namespace corvane
