// Replacing files as systems of the Unix kind have them: symbolic links, permissions, owners,
// limits and signals.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "forked_child.h"
#include "replace_file_fixture.h"

namespace corvane {
namespace {

mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

class ReplaceFilePosixTest : public ReplaceFileTest {
protected:
    void makeLink(const std::string& target, const std::string& name) {
        ASSERT_EQ(::symlink(target.c_str(), folder.path(name).c_str()), 0);
    }
};

TEST_F(ReplaceFilePosixTest, KeepsThePermissionsOfTheOldFile) {
    const std::string path = folder.write("hero.mdl", "old");
    for (const mode_t mode : {0640U, 0600U, 0664U, 0755U}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        EXPECT_EQ(replacingResult(path, "new"), "written");
        EXPECT_EQ(modeOf(path), mode);
    }
    EXPECT_EQ(readFile(path), "new");
}

TEST_F(ReplaceFilePosixTest, KeepsTheOwnerWhereThatIsAllowed) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may change a file's owner";
    const std::string path = folder.write("hero.mdl", "old");
    giveToUnprivilegedUser(path);
    EXPECT_EQ(replacingResult(path, "new"), "written");
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, kUnprivilegedId);
    EXPECT_EQ(status.st_gid, kUnprivilegedId);
}

TEST_F(ReplaceFilePosixTest, GivesANewFileTheUsualPermissions) {
    const ChildResult child = inForkedChild([&] {
        ::umask(027);
        return replacingResult(folder.path("hero.mdl"), "text");
    });
    EXPECT_EQ(child.said, "written");
    EXPECT_EQ(modeOf(folder.path("hero.mdl")), 0640U);
}

TEST_F(ReplaceFilePosixTest, FollowsAbsoluteAndRelativeLinks) {
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

TEST_F(ReplaceFilePosixTest, FollowsAsManyLinksAsTheSystemDoesAndNoMore) {
    folder.write("0", "old");
    for (int links = 1; links <= 41; ++links) {
        makeLink(std::to_string(links - 1), std::to_string(links));
    }
    EXPECT_EQ(replacingResult(folder.path("40"), "new"), "written");
    EXPECT_EQ(readFile(folder.path("0")), "new");
    EXPECT_EQ(replacingResult(folder.path("41"), "newer"),
              folder.path("41") + ": Too many levels of symbolic links");
    EXPECT_EQ(readFile(folder.path("0")), "new");
}

TEST_F(ReplaceFilePosixTest, MakesTheFileThatADanglingLinkLeadsTo) {
    makeFolder("models");
    makeLink("models/new.mdl", "link.mdl");
    EXPECT_EQ(replacingResult(folder.path("link.mdl"), "text"), "written");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.mdl")));
    EXPECT_EQ(readFile(folder.path("models/new.mdl")), "text");
}

TEST_F(ReplaceFilePosixTest, RefusesALinkThatLeadsNowhere) {
    makeLink("missing/new.mdl", "link.mdl");
    const std::string path = folder.path("link.mdl");
    EXPECT_EQ(replacingResult(path, "text"), path + ": No such file or directory");
    EXPECT_EQ(folder.names(), Names{"link.mdl"});
}

TEST_F(ReplaceFilePosixTest, RefusesLinksThatLeadToEachOther) {
    makeLink("b.mdl", "a.mdl");
    makeLink("a.mdl", "b.mdl");
    const std::string path = folder.path("a.mdl");
    EXPECT_EQ(replacingResult(path, "text"), path + ": Too many levels of symbolic links");
    EXPECT_EQ(folder.names(), (Names{"a.mdl", "b.mdl"}));
}

TEST_F(ReplaceFilePosixTest, RefusesANamedPipe) {
    const std::string path = folder.path("pipe.mdl");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(replacingResult(path, "text"), path + ": not a regular file");
    EXPECT_EQ(folder.names(), Names{"pipe.mdl"});
    EXPECT_TRUE(std::filesystem::is_fifo(path));
}

TEST_F(ReplaceFilePosixTest, RefusesAnEmptyPath) {
    const ChildResult child = inForkedChild([&]() -> std::string {
        if (::chdir(folder.path("").c_str()) != 0) return "no such folder";
        return replacingResult("", "text");
    });
    EXPECT_EQ(child.said, ": No such file or directory");
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(ReplaceFilePosixTest, TakesAPathWithoutAFolder) {
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
TEST_F(ReplaceFilePosixTest, LeavesTheOldFileWhenTheTextDoesNotFit) {
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

TEST_F(ReplaceFilePosixTest, MakesNoFileWhenTheTextDoesNotFit) {
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

TEST_F(ReplaceFilePosixTest, WritesWhatJustFits) {
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

TEST_F(ReplaceFilePosixTest, LeavesTheOldFileInAReadOnlyFolder) {
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

TEST_F(ReplaceFilePosixTest, LeavesAReadOnlyFile) {
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

TEST_F(ReplaceFilePosixTest, WritesAFileOfAnotherUserThatMayBeWritten) {
    const std::string path = folder.write("hero.mdl", "old");
    giveToUnprivilegedUser(folder.path(""));
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    EXPECT_EQ(asUnprivilegedUser([&] { return replacingResult(path, "new"); }).said, "written");
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(modeOf(path), 0666U);
}

TEST_F(ReplaceFilePosixTest, ReplacesTheProgramsOwnFileWhateverItsPermissions) {
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
TEST_F(ReplaceFilePosixTest, PutsTheProgramsOwnFileInTheLinksPlace) {
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

TEST_F(ReplaceFilePosixTest, LeavesTheOldFileWholeWhenTheProcessIsKilled) {
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

TEST_F(ReplaceFilePosixTest, LeavesTheNewFileWholeWhenTheProcessIsKilledAfterwards) {
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

TEST_F(ReplaceFilePosixTest, RefusesAFolderThatALinkLeadsTo) {
    makeFolder("models");
    makeLink("models", "link");
    EXPECT_EQ(replacingResult(folder.path("link"), "text"),
              folder.path("link") + ": Is a directory");
    EXPECT_EQ(folder.names(), (Names{"link", "models"}));
}

}  // namespace
}  // namespace corvane
