// Saves while another program holds the file, and saves whose process is killed: the old text or
// the new one, whole.
#include <array>
#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

#include "helper_process.h"
#include "helper_texts.h"
#include "leftovers_fixture.h"
#include "replace_file_fixture.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace corvane {
namespace {

class HeldFileTest : public ReplaceFileTest {
protected:
    std::string path = folder.write("hero.mdl", "the old text");

    void expectOld() const {
        EXPECT_EQ(readFile(path), "the old text");
        EXPECT_EQ(folder.names(), Names{"hero.mdl"});
    }
};

// As some editors open what they show: neither to be read nor to be written meanwhile.
TEST_F(HeldFileTest, AFileThatNobodyElseMayOpenIsLeftAndTold) {
    HelperProcess other("hold " + path);
    ASSERT_TRUE(other.waitForBytes(1));
    EXPECT_EQ(replacingResult(path, "new"), path + ": Another program holds the file");
    other.finish();
    expectOld();
    EXPECT_EQ(replacingResult(path, "new"), "written");
}

// As most programs open what they read: it may be written, but its name stays its.
TEST_F(HeldFileTest, AFileThatMayNotBeReplacedIsLeftAndTold) {
    HelperProcess other("watch " + path);
    ASSERT_TRUE(other.waitForBytes(1));
    EXPECT_EQ(replacingResult(path, "new"), path + ": Another program holds the file");
    expectOld();
    other.finish();
    EXPECT_EQ(replacingResult(path, "new"), "written");
}

TEST_F(HeldFileTest, TheProgramsOwnReadOnlyFileStaysThatWhereItCannotBeReplaced) {
    ASSERT_NE(::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY), 0);
    HelperProcess other("watch " + path);
    ASSERT_TRUE(other.waitForBytes(1));
    EXPECT_EQ(replacingResult(path, "new", {.permissionsOf = path}),
              path + ": Another program holds the file");
    other.finish();
    EXPECT_NE(::GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_EQ(replacingResult(path, "new", {.permissionsOf = path}), "written");
}

// As indexers, virus scanners and programs that synchronise folders open files.
TEST_F(HeldFileTest, AFileThatAnotherProgramLooksAtIsLeftAndTold) {
    HelperProcess other("look " + path);
    ASSERT_TRUE(other.waitForBytes(1));
    EXPECT_EQ(replacingResult(path, "new"), path + ": Another program holds the file");
    expectOld();
    other.finish();
    EXPECT_EQ(replacingResult(path, "new"), "written");
}

// An indexer looks at every file for a moment: it lets go when the new text is beside the old one.
TEST_F(HeldFileTest, AFileThatIsLetGoOfIsWritten) {
    for (const std::string how : {"watch ", "look "}) {
        HelperProcess other(how + path);
        ASSERT_TRUE(other.waitForBytes(1));
        std::thread letGo([&] {
            while (folder.names().size() < 2) {
            }
            other.finish();
        });
        EXPECT_EQ(replacingResult(path, "new with " + how), "written");
        letGo.join();
        EXPECT_EQ(readFile(path), "new with " + how);
        EXPECT_EQ(folder.names(), Names{"hero.mdl"});
    }
}

using KilledSaveTest = LeftoversTest;

TEST_F(KilledSaveTest, BeforeItsNewTextHasItsNameLeavesTheOldOne) {
    const std::string path = folder.write("hero.mdl", "old");
    HelperProcess other("prepare " + path);
    ASSERT_TRUE(other.waitForBytes(1));
    other.kill();
    EXPECT_EQ(readFile(path), "old");
    const std::string beside = ".corvane-" + std::to_string(other.id()) + "-0.tmp";
    EXPECT_EQ(folder.names(), (Names{beside, "hero.mdl"}));
    // What the dead process left is in nobody's way, and goes when it is old.
    EXPECT_EQ(replacingResult(path, "new"), "written");
    makeOlder(folder.path(beside), 3600);
    EXPECT_EQ(namesAfterOpening(), Names{});
}

TEST_F(KilledSaveTest, AtAnyMomentLeavesTheOldTextOrTheNewOne) {
    constexpr int kKills = 50;
    const std::string path = folder.write("hero.mdl", helperText(0));
    std::mt19937 random(13);
    std::uniform_int_distribution<std::size_t> saves(1, 4);
    std::uniform_int_distribution<int> microseconds(0, 4000);
    for (int kill = 0; kill < kKills; ++kill) {
        SCOPED_TRACE(kill);
        HelperProcess other("save " + path);
        ASSERT_TRUE(other.waitForBytes(saves(random)));
        using Clock = std::chrono::steady_clock;
        const auto moment = Clock::now() + std::chrono::microseconds(microseconds(random));
        while (Clock::now() < moment) {
        }
        other.kill();
        const std::string text = readFile(path);
        ASSERT_TRUE(text == helperText(0) || text == helperText(1)) << text.size();
    }
    EXPECT_EQ(replacingResult(path, "new"), "written");
    EXPECT_EQ(readFile(path), "new");
}

// A file with two names is written in place: where that is cut, what it held is whole beside it.
TEST_F(KilledSaveTest, OfAFileWithTwoNamesLosesNoText) {
    constexpr int kKills = 20;
    std::mt19937 random(14);
    std::uniform_int_distribution<int> microseconds(0, 8000);
    for (int kill = 0; kill < kKills; ++kill) {
        SCOPED_TRACE(kill);
        const TempFolder own;
        const std::string linked = own.write("hero.mdl", helperText(0));
        std::filesystem::create_hard_link(linked, own.path("other.mdl"));
        HelperProcess other("save " + linked);
        ASSERT_TRUE(other.waitForBytes(1));
        using Clock = std::chrono::steady_clock;
        const auto moment = Clock::now() + std::chrono::microseconds(microseconds(random));
        while (Clock::now() < moment) {
        }
        other.kill();
        bool isWhole = false;
        for (const std::string& name : own.names()) {
            const std::string text = readFile(own.path(name));
            isWhole = isWhole || text == helperText(0) || text == helperText(1);
        }
        EXPECT_TRUE(isWhole);
        EXPECT_EQ(readFile(linked), readFile(own.path("other.mdl")));
    }
}

}  // namespace
}  // namespace corvane
