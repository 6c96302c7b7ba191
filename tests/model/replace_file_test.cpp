// Replacing files: what holds after success, after every kind of failure, and after a kill.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "editor_fixture.h"
#include "forked_child.h"
#include "model/model_files.h"

namespace corvane {
namespace {

using Names = std::vector<std::string>;

// Replaces a file with `text`; the message where that fails, "written" where it does not.
std::string replacingResult(const std::string& path, std::string_view text,
                            const ReplaceOptions& options = {}) {
    const std::array<std::string_view, 1> pieces = {text};
    try {
        replaceFile(path, pieces, options);
    } catch (const FileError& error) {
        return error.what();
    }
    return "written";
}

mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

class ReplaceFileTest : public testing::Test {
protected:
    void makeFolder(const std::string& name) {
        ASSERT_EQ(::mkdir(folder.path(name).c_str(), 0755), 0);
    }
    void makeLink(const std::string& target, const std::string& name) {
        ASSERT_EQ(::symlink(target.c_str(), folder.path(name).c_str()), 0);
    }

    TempFolder folder;
};

TEST_F(ReplaceFileTest, WritesThePiecesInOrder) {
    const std::string path = folder.write("hero.mdl", "a longer text than the new one");
    const std::string nul("\0\xFF", 2);
    const std::array<std::string_view, 5> pieces = {"one\r\n", "", "two", nul, "\n"};
    replaceFile(path, pieces);
    EXPECT_EQ(readFile(path), "one\r\ntwo" + nul + "\n");
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ReplaceFileTest, MakesANewFile) {
    EXPECT_EQ(replacingResult(folder.path("new.mdl"), "text"), "written");
    EXPECT_EQ(readFile(folder.path("new.mdl")), "text");
    EXPECT_EQ(folder.names(), Names{"new.mdl"});
}

TEST_F(ReplaceFileTest, WritesAnEmptyFile) {
    const std::string path = folder.write("hero.mdl", "old");
    replaceFile(path, {});
    EXPECT_EQ(readFile(path), "");
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ReplaceFileTest, WritesMorePiecesThanOneCallOfTheSystemTakes) {
    std::string expected;
    std::vector<std::string> texts;
    texts.reserve(3000);
    for (int i = 0; i < 3000; ++i) texts.push_back(std::to_string(i) + ",");
    for (const std::string& text : texts) expected += text;
    const std::vector<std::string_view> pieces(texts.begin(), texts.end());
    replaceFile(folder.path("hero.mdl"), pieces);
    EXPECT_EQ(readFile(folder.path("hero.mdl")), expected);
}

TEST_F(ReplaceFileTest, WritesNamesBeyondAscii) {
    EXPECT_EQ(replacingResult(folder.path("B\u00fchne.mdl"), "text"), "written");
    EXPECT_EQ(folder.names(), Names{"B\u00fchne.mdl"});
}

TEST_F(ReplaceFileTest, KeepsThePermissionsOfTheOldFile) {
    const std::string path = folder.write("hero.mdl", "old");
    for (const mode_t mode : {0640U, 0600U, 0664U, 0755U}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        EXPECT_EQ(replacingResult(path, "new"), "written");
        EXPECT_EQ(modeOf(path), mode);
    }
    EXPECT_EQ(readFile(path), "new");
}

TEST_F(ReplaceFileTest, KeepsTheOwnerWhereThatIsAllowed) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may change a file's owner";
    const std::string path = folder.write("hero.mdl", "old");
    giveToUnprivilegedUser(path);
    EXPECT_EQ(replacingResult(path, "new"), "written");
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, kUnprivilegedId);
    EXPECT_EQ(status.st_gid, kUnprivilegedId);
}

TEST_F(ReplaceFileTest, GivesANewFileTheUsualPermissions) {
    const ChildResult child = inForkedChild([&] {
        ::umask(027);
        return replacingResult(folder.path("hero.mdl"), "text");
    });
    EXPECT_EQ(child.said, "written");
    EXPECT_EQ(modeOf(folder.path("hero.mdl")), 0640U);
}

TEST_F(ReplaceFileTest, FollowsAbsoluteAndRelativeLinks) {
    makeFolder("models");
    folder.write("models/hero.mdl", "old");
    makeLink(folder.path("models/hero.mdl"), "absolute.mdl");
    makeLink("models/hero.mdl", "relative.mdl");
    makeLink("../relative.mdl", "models/twice.mdl");
    for (const std::string name : {"absolute.mdl", "relative.mdl", "models/twice.mdl"}) {
        EXPECT_EQ(replacingResult(folder.path(name), "by " + name), "written");
        EXPECT_EQ(readFile(folder.path("models/hero.mdl")), "by " + name);
        EXPECT_TRUE(std::filesystem::is_symlink(folder.path(name)));
    }
    EXPECT_EQ(folder.names(), (Names{"absolute.mdl", "models", "relative.mdl"}));
    EXPECT_FALSE(std::filesystem::is_symlink(folder.path("models/hero.mdl")));
}

TEST_F(ReplaceFileTest, MakesTheFileThatADanglingLinkLeadsTo) {
    makeFolder("models");
    makeLink("models/new.mdl", "link.mdl");
    EXPECT_EQ(replacingResult(folder.path("link.mdl"), "text"), "written");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.mdl")));
    EXPECT_EQ(readFile(folder.path("models/new.mdl")), "text");
}

TEST_F(ReplaceFileTest, RefusesALinkThatLeadsNowhere) {
    makeLink("missing/new.mdl", "link.mdl");
    const std::string path = folder.path("link.mdl");
    EXPECT_EQ(replacingResult(path, "text"), path + ": No such file or directory");
    EXPECT_EQ(folder.names(), Names{"link.mdl"});
}

TEST_F(ReplaceFileTest, RefusesLinksThatLeadToEachOther) {
    makeLink("b.mdl", "a.mdl");
    makeLink("a.mdl", "b.mdl");
    const std::string path = folder.path("a.mdl");
    EXPECT_EQ(replacingResult(path, "text"), path + ": Too many levels of symbolic links");
    EXPECT_EQ(folder.names(), (Names{"a.mdl", "b.mdl"}));
}

TEST_F(ReplaceFileTest, RefusesAFolder) {
    makeFolder("models");
    const std::string path = folder.path("models");
    EXPECT_EQ(replacingResult(path, "text"), path + ": Is a directory");
    makeLink("models", "link");
    EXPECT_EQ(replacingResult(folder.path("link"), "text"),
              folder.path("link") + ": Is a directory");
    EXPECT_EQ(folder.names(), (Names{"link", "models"}));
}

TEST_F(ReplaceFileTest, RefusesANamedPipe) {
    const std::string path = folder.path("pipe.mdl");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(replacingResult(path, "text"), path + ": not a regular file");
    EXPECT_EQ(folder.names(), Names{"pipe.mdl"});
    EXPECT_TRUE(std::filesystem::is_fifo(path));
}

TEST_F(ReplaceFileTest, RefusesAMissingFolder) {
    const std::string path = folder.path("missing/hero.mdl");
    EXPECT_EQ(replacingResult(path, "text"), path + ": No such file or directory");
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(ReplaceFileTest, RefusesAnEmptyPath) {
    const ChildResult child = inForkedChild([&]() -> std::string {
        if (::chdir(folder.path("").c_str()) != 0) return "no such folder";
        return replacingResult("", "text");
    });
    EXPECT_EQ(child.said, ": No such file or directory");
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(ReplaceFileTest, TakesAPathWithoutAFolder) {
    folder.write("hero.mdl", "old");
    const ChildResult child = inForkedChild([&]() -> std::string {
        if (::chdir(folder.path("").c_str()) != 0) return "no such folder";
        return replacingResult("hero.mdl", "new");
    });
    EXPECT_EQ(child.said, "written");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), "new");
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

// As on a full disk: a part of the text can be written, the rest cannot.
TEST_F(ReplaceFileTest, LeavesTheOldFileWhenTheTextDoesNotFit) {
    const std::string path = folder.write("hero.mdl", "old");
    const ChildResult child = inForkedChild([&]() -> std::string {
        std::signal(SIGXFSZ, SIG_IGN);  // as the program's main does
        const struct rlimit limit = {1000, 1000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return "no limit";
        return replacingResult(path, std::string(100000, 'x'));
    });
    EXPECT_EQ(child.signal, 0);
    EXPECT_EQ(child.said, path + ": File too large");
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ReplaceFileTest, MakesNoFileWhenTheTextDoesNotFit) {
    const std::string path = folder.path("hero.mdl");
    const ChildResult child = inForkedChild([&]() -> std::string {
        std::signal(SIGXFSZ, SIG_IGN);  // as the program's main does
        const struct rlimit limit = {1000, 1000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return "no limit";
        return replacingResult(path, std::string(1001, 'x'));
    });
    EXPECT_EQ(child.said, path + ": File too large");
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(ReplaceFileTest, WritesWhatJustFits) {
    const std::string path = folder.write("hero.mdl", "old");
    const ChildResult child = inForkedChild([&]() -> std::string {
        std::signal(SIGXFSZ, SIG_IGN);  // as the program's main does
        const struct rlimit limit = {1000, 1000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return "no limit";
        return replacingResult(path, std::string(1000, 'x'));
    });
    EXPECT_EQ(child.said, "written");
    EXPECT_EQ(readFile(path), std::string(1000, 'x'));
}

TEST_F(ReplaceFileTest, LeavesTheOldFileInAReadOnlyFolder) {
    makeFolder("locked");
    const std::string path = folder.write("locked/hero.mdl", "old");
    giveToUnprivilegedUser(folder.path(""));
    giveToUnprivilegedUser(folder.path("locked"));
    giveToUnprivilegedUser(path);
    ASSERT_EQ(::chmod(folder.path("locked").c_str(), 0555), 0);
    const ChildResult child = asUnprivilegedUser([&] { return replacingResult(path, "new"); });
    ASSERT_EQ(::chmod(folder.path("locked").c_str(), 0755), 0);
    EXPECT_EQ(child.said, path + ": Permission denied");
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path("locked")), {}), 1);
}

TEST_F(ReplaceFileTest, LeavesAReadOnlyFile) {
    const std::string path = folder.write("hero.mdl", "old");
    giveToUnprivilegedUser(folder.path(""));
    giveToUnprivilegedUser(path);
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(asUnprivilegedUser([&] { return replacingResult(path, "new"); }).said,
              path + ": Permission denied");
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(modeOf(path), 0444U);
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ReplaceFileTest, WritesAFileOfAnotherUserThatMayBeWritten) {
    const std::string path = folder.write("hero.mdl", "old");
    giveToUnprivilegedUser(folder.path(""));
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    EXPECT_EQ(asUnprivilegedUser([&] { return replacingResult(path, "new"); }).said, "written");
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(modeOf(path), 0666U);
}

TEST_F(ReplaceFileTest, ReplacesTheProgramsOwnFileWhateverItsPermissions) {
    const std::string model = folder.write("hero.mdl", "model");
    const std::string own = folder.write("hero_TMP.tdl", "old");
    giveToUnprivilegedUser(folder.path(""));
    giveToUnprivilegedUser(own);
    giveToUnprivilegedUser(model);
    ASSERT_EQ(::chmod(own.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(model.c_str(), 0440), 0);
    const ChildResult child = asUnprivilegedUser([&] {
        return replacingResult(own, "new", {.flushToDisk = false, .permissionsOf = model});
    });
    EXPECT_EQ(child.said, "written");
    EXPECT_EQ(readFile(own), "new");
    EXPECT_EQ(modeOf(own), 0640U);  // the model's, and writable by the owner
    EXPECT_EQ(modeOf(model), 0440U);
}

// The program's own file is no place for a link: the file that it leads to is not the program's.
TEST_F(ReplaceFileTest, PutsTheProgramsOwnFileInTheLinksPlace) {
    const std::string model = folder.write("hero.mdl", "model");
    folder.write("precious.txt", "precious");
    makeLink("precious.txt", "hero_TMP.tdl");
    EXPECT_EQ(replacingResult(folder.path("hero_TMP.tdl"), "new",
                              {.flushToDisk = false, .permissionsOf = model}),
              "written");
    EXPECT_FALSE(std::filesystem::is_symlink(folder.path("hero_TMP.tdl")));
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), "new");
    EXPECT_EQ(readFile(folder.path("precious.txt")), "precious");
}

TEST_F(ReplaceFileTest, WritesTheProgramsOwnFileWithoutItsModel) {
    EXPECT_EQ(replacingResult(folder.path("hero_TMP.tdl"), "new",
                              {.flushToDisk = false, .permissionsOf = folder.path("hero.mdl")}),
              "written");
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), "new");
}

TEST_F(ReplaceFileTest, ChangesNothingBeforeItIsCommitted) {
    const std::string path = folder.write("hero.mdl", "old");
    const std::array<std::string_view, 1> pieces = {"new"};
    {
        PendingFile pending(path, pieces);
        EXPECT_EQ(readFile(path), "old");
        pending.commit();
        EXPECT_EQ(readFile(path), "new");
    }
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ReplaceFileTest, LeavesNothingBehindWithoutACommit) {
    const std::string path = folder.write("hero.mdl", "old");
    const std::array<std::string_view, 1> pieces = {"new"};
    {
        const PendingFile pending(path, pieces);
        EXPECT_EQ(folder.names().size(), 2U);
    }
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ReplaceFileTest, KnowsItsStampBeforeItHasItsName) {
    const std::string path = folder.write("hero.mdl", "old");
    const std::array<std::string_view, 1> pieces = {"new"};
    PendingFile pending(path, pieces);
    EXPECT_NE(stampOf(path), pending.stamp());
    pending.commit();
    EXPECT_EQ(stampOf(path), pending.stamp());
    const FileStamp written = replaceFile(path, pieces);
    EXPECT_EQ(stampOf(path), written);
}

TEST_F(ReplaceFileTest, KeepsSeveralPendingFilesApart) {
    const std::array<std::string_view, 1> first = {"first"};
    const std::array<std::string_view, 1> second = {"second"};
    PendingFile a(folder.path("a.mdl"), first);
    PendingFile b(folder.path("b.mdl"), second);
    b.commit();
    a.commit();
    EXPECT_EQ(readFile(folder.path("a.mdl")), "first");
    EXPECT_EQ(readFile(folder.path("b.mdl")), "second");
    EXPECT_EQ(folder.names(), (Names{"a.mdl", "b.mdl"}));
}

TEST_F(ReplaceFileTest, MakesAFileAgainThatVanishesBeforeTheCommit) {
    const std::string path = folder.write("hero.mdl", "old");
    const std::array<std::string_view, 1> pieces = {"new"};
    PendingFile pending(path, pieces);
    deleteFile(path);
    pending.commit();
    EXPECT_EQ(readFile(path), "new");
}

TEST_F(ReplaceFileTest, FailsWhenTheFolderVanishesBeforeTheCommit) {
    makeFolder("models");
    const std::string path = folder.path("models/hero.mdl");
    const std::array<std::string_view, 1> pieces = {"new"};
    PendingFile pending(path, pieces);
    std::filesystem::remove_all(folder.path("models"));
    try {
        pending.commit();
        ADD_FAILURE() << "was committed";
    } catch (const FileError& error) {
        EXPECT_EQ(std::string(error.what()), path + ": No such file or directory");
    }
}

TEST_F(ReplaceFileTest, LeavesNothingBehindWhenTheCommitFails) {
    const std::string path = folder.path("hero.mdl");
    const std::array<std::string_view, 1> pieces = {"new"};
    {
        PendingFile pending(path, pieces);
        makeFolder("hero.mdl");
        try {
            pending.commit();
            ADD_FAILURE() << "was committed";
        } catch (const FileError& error) {
            EXPECT_EQ(std::string(error.what()), path + ": Is a directory");
        }
    }
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST_F(ReplaceFileTest, LeavesTheOldFileWholeWhenTheProcessIsKilled) {
    const std::string path = folder.write("hero.mdl", "old");
    const ChildResult child = inForkedChild([&]() -> std::string {
        const std::string text(100000, 'x');
        const std::array<std::string_view, 1> pieces = {text};
        PendingFile pending(path, pieces);
        ::kill(::getpid(), SIGKILL);
        pending.commit();
        return "lived on";
    });
    EXPECT_EQ(child.signal, SIGKILL);
    EXPECT_EQ(child.said, "");
    EXPECT_EQ(readFile(path), "old");
    // What the dead process left beside it is in nobody's way.
    EXPECT_EQ(replacingResult(path, "new"), "written");
    EXPECT_EQ(readFile(path), "new");
}

TEST_F(ReplaceFileTest, LeavesTheNewFileWholeWhenTheProcessIsKilledAfterwards) {
    const std::string path = folder.write("hero.mdl", "old");
    const ChildResult child = inForkedChild([&]() -> std::string {
        replacingResult(path, std::string(100000, 'x'));
        ::kill(::getpid(), SIGKILL);
        return "lived on";
    });
    EXPECT_EQ(child.signal, SIGKILL);
    EXPECT_EQ(readFile(path), std::string(100000, 'x'));
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

}  // namespace
}  // namespace corvane
