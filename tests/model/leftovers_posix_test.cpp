// What killed processes have left beside a model, on systems of the Unix kind: links, owners,
// signals.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <ctime>
#include <filesystem>

#include "forked_child.h"
#include "leftovers_fixture.h"

namespace corvane {
namespace {

void makeLinkOlder(const std::string& path, std::time_t seconds) {
    const std::time_t then = std::time(nullptr) - seconds;
    const struct timespec times[2] = {{then, 0}, {then, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
}

class LeftoversPosixTest : public LeftoversTest {};

TEST_F(LeftoversPosixTest, OfASaveThatWasKilledAreDeleted) {
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

TEST_F(LeftoversPosixTest, OfAProcessThatRunsStay) {
    const std::string own = ".corvane-" + std::to_string(files::processId()) + "-77.tmp";
    leave(own);
    leave(".corvane-1-0.tmp");  // somebody else's, which cannot be signalled, but runs
    EXPECT_EQ(namesAfterOpening(), (Names{".corvane-1-0.tmp", own}));
}

TEST_F(LeftoversPosixTest, ThatAreLinksOrFoldersStay) {
    folder.write("precious.txt", "precious");
    makeOlder(folder.path("precious.txt"), 3600);
    const std::string link = ".corvane-" + gone + "-0.tmp";
    ASSERT_EQ(::symlink("precious.txt", folder.path(link).c_str()), 0);
    makeLinkOlder(folder.path(link), 3600);
    const std::string sub = ".corvane-" + gone + "-1.tmp";
    ASSERT_EQ(::mkdir(folder.path(sub).c_str(), 0755), 0);
    makeOlder(folder.path(sub), 3600);
    EXPECT_EQ(namesAfterOpening(), (Names{link, sub, "precious.txt"}));
    EXPECT_EQ(readFile(folder.path("precious.txt")), "precious");
}

TEST_F(LeftoversPosixTest, OfOtherUsersStay) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may change a file's owner";
    const std::string name = ".corvane-" + gone + "-0.tmp";
    leave(name);
    giveToUnprivilegedUser(folder.path(name));
    makeOlder(folder.path(name), 3600);
    EXPECT_EQ(namesAfterOpening(), Names{name});
}

TEST_F(LeftoversPosixTest, BesideTheFileThatALinkLeadsToAreDeleted) {
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

}  // namespace
}  // namespace corvane
