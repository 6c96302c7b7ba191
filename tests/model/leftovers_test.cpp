// What killed processes have left beside a model.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <ctime>

#include "forked_child.h"
#include "model_flow.h"

namespace corvane {
namespace {

using Names = std::vector<std::string>;

class LeftoversTest : public ModelFlowTest {
protected:
    /// The number of a process that is gone.
    static std::string goneProcess() {
        return inForkedChild([] { return std::to_string(::getpid()); }).said;
    }

    static void makeOlder(const std::string& path, std::time_t seconds) {
        const std::time_t then = std::time(nullptr) - seconds;
        const struct timespec times[2] = {{then, 0}, {then, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    }

    /// Writes an old file.
    void leave(const std::string& name) {
        folder.write(name, "leftover");
        makeOlder(folder.path(name), 3600);
    }

    /// What is beside a model after it was opened and closed.
    Names namesAfterOpening() {
        openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
        EXPECT_TRUE(store().modelLoaded);
        closeModel(editor);
        Names names = folder.names();
        std::erase(names, "hero.mdl");
        return names;
    }

    std::string gone = goneProcess();
};

TEST_F(LeftoversTest, OfProcessesThatAreGoneAreDeleted) {
    leave(".corvane-" + gone + "-0.tmp");
    leave(".corvane-" + gone + "-12.tmp");
    EXPECT_EQ(namesAfterOpening(), Names{});
}

TEST_F(LeftoversTest, OfASaveThatWasKilledAreDeleted) {
    folder.write("hero.mdl", "old");
    const ChildResult child = inForkedChild([&]() -> std::string {
        const PendingFile pending(folder.path("hero.mdl"), std::array<std::string_view, 1>{"new"});
        ::kill(::getpid(), SIGKILL);
        return "lived on";
    });
    ASSERT_EQ(child.signal, SIGKILL);
    ASSERT_EQ(folder.names().size(), 2U);
    makeOlder(folder.path(folder.names().front()), 3600);
    EXPECT_EQ(namesAfterOpening(), Names{});
}

TEST_F(LeftoversTest, OfAProcessThatRunsStay) {
    const std::string own = ".corvane-" + std::to_string(::getpid()) + "-77.tmp";
    leave(own);
    leave(".corvane-1-0.tmp");  // somebody else's, which cannot be signalled, but runs
    EXPECT_EQ(namesAfterOpening(), (Names{".corvane-1-0.tmp", own}));
}

TEST_F(LeftoversTest, ThatAreYoungStay) {
    const std::string name = ".corvane-" + gone + "-0.tmp";
    folder.write(name, "leftover");
    makeOlder(folder.path(name), 30);
    EXPECT_EQ(namesAfterOpening(), Names{name});
}

TEST_F(LeftoversTest, WithAFormerTextStay) {
    const std::string name = ".corvane-" + gone + "-0.former";
    leave(name);
    EXPECT_EQ(namesAfterOpening(), Names{name});
}

TEST_F(LeftoversTest, WithOtherNamesStay) {
    Names others = {"corvane-" + gone + "-0.tmp",
                    ".corvane-" + gone + ".tmp",
                    ".corvane-" + gone + "-.tmp",
                    ".corvane-" + gone + "-0.tmp2",
                    ".corvane-" + gone + "-x.tmp",
                    ".corvane-" + gone + "-0x.tmp",
                    ".corvane--" + gone + "-0.tmp",
                    ".corvane-0-0.tmp",
                    ".corvane-x-0.tmp",
                    ".corvane-99999999999999999999-0.tmp"};
    for (const std::string& name : others) leave(name);
    std::ranges::sort(others);
    EXPECT_EQ(namesAfterOpening(), others);
}

TEST_F(LeftoversTest, ThatAreLinksOrFoldersStay) {
    folder.write("precious.txt", "precious");
    makeOlder(folder.path("precious.txt"), 3600);
    const std::string link = ".corvane-" + gone + "-0.tmp";
    ASSERT_EQ(::symlink("precious.txt", folder.path(link).c_str()), 0);
    makeOlder(folder.path(link), 3600);
    const std::string sub = ".corvane-" + gone + "-1.tmp";
    ASSERT_EQ(::mkdir(folder.path(sub).c_str(), 0755), 0);
    makeOlder(folder.path(sub), 3600);
    EXPECT_EQ(namesAfterOpening(), (Names{link, sub, "precious.txt"}));
    EXPECT_EQ(readFile(folder.path("precious.txt")), "precious");
}

TEST_F(LeftoversTest, OfOtherUsersStay) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may change a file's owner";
    const std::string name = ".corvane-" + gone + "-0.tmp";
    leave(name);
    giveToUnprivilegedUser(folder.path(name));
    makeOlder(folder.path(name), 3600);
    EXPECT_EQ(namesAfterOpening(), Names{name});
}

TEST_F(LeftoversTest, BesideTheFileThatALinkLeadsToAreDeleted) {
    std::filesystem::create_directory(folder.path("models"));
    folder.write("models/hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    std::filesystem::create_symlink("models/hero.mdl", folder.path("link.mdl"));
    leave("models/.corvane-" + gone + "-0.tmp");
    leave(".corvane-" + gone + "-0.tmp");
    open(folder.path("link.mdl"));
    closeModel(editor);
    EXPECT_EQ(folder.names(), (Names{"link.mdl", "models"}));
    EXPECT_FALSE(std::filesystem::exists(folder.path("models/.corvane-" + gone + "-0.tmp")));
}

TEST_F(LeftoversTest, WhatAnInterruptedSaveHeldBeforeIsToldOfAndStays) {
    const std::string name = ".corvane-" + gone + "-0.former";
    folder.write(name, "what it held before");
    folder.write(".corvane-" + std::to_string(::getpid()) + "-0.former", "of one that runs");
    folder.write("hero.mdl", "Geoset {\n\tVert");
    open(folder.path("hero.mdl"));
    ASSERT_EQ(dialogs.asked.size(), 3U);  // the file dialog, this, and that it cannot be read
    EXPECT_EQ(dialogs.asked[1].kind, "message");
    EXPECT_NE(dialogs.asked[1].text.find("is whole in\n" + folder.path(name) + "\n"),
              std::string::npos)
        << dialogs.asked[1].text;
    EXPECT_EQ(readFile(folder.path(name)), "what it held before");
}

// The number of its process may be another one's by now.
TEST_F(LeftoversTest, WhatAnOldInterruptedSaveHeldBeforeIsToldOf) {
    leave(".corvane-" + std::to_string(::getpid()) + "-0.former");
    folder.write("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    open(folder.path("hero.mdl"));
    ASSERT_EQ(dialogs.asked.size(), 2U);
    EXPECT_NE(dialogs.asked[1].text.find("-0.former"), std::string::npos) << dialogs.asked[1].text;
}

// Where a container runs nothing else, the program is its first process.
TEST_F(LeftoversTest, WhatAnOldInterruptedSaveOfTheFirstProcessHeldBeforeIsToldOf) {
    leave(".corvane-1-0.former");
    folder.write("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    open(folder.path("hero.mdl"));
    ASSERT_EQ(dialogs.asked.size(), 2U);
    EXPECT_NE(dialogs.asked[1].text.find(".corvane-1-0.former"), std::string::npos)
        << dialogs.asked[1].text;
}

}  // namespace
}  // namespace corvane
