// Files with several names: a save reaches all of them. What fails half-way is in
// tests/faults/file_faults_test.cpp.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>

#include "editor_fixture.h"
#include "forked_child.h"
#include "model/model_files.h"

namespace corvane {
namespace {

using Names = std::vector<std::string>;

class HardLinksTest : public testing::Test {
protected:
    TempFolder folder;
    std::string path = folder.write("hero.mdl", "the old text");
    std::string other = folder.path("other.mdl");

    void SetUp() override { ASSERT_EQ(::link(path.c_str(), other.c_str()), 0); }

    FileStamp write(std::string_view text) { return replaceFile(path, std::array{text}); }
};

TEST_F(HardLinksTest, ASaveReachesEveryName) {
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    for (const std::string text : {"new", "a text longer than any of those before it", ""}) {
        write(text);
        EXPECT_EQ(readFile(path), text);
        EXPECT_EQ(readFile(other), text);
        EXPECT_TRUE(isSameFile(path, other));
        EXPECT_EQ(folder.names(), (Names{"hero.mdl", "other.mdl"}));
    }
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(HardLinksTest, ASaveOfMegabytesReachesEveryName) {
    std::string text;
    for (int i = 0; text.size() < 3'000'000; ++i) text += std::to_string(i) + ",\n";
    write(text);
    EXPECT_TRUE(readFile(other) == text);
}

TEST_F(HardLinksTest, TheStampIsThatOfTheFileAsWritten) {
    const FileStamp stamp = write("new");
    EXPECT_EQ(stampOf(path), stamp);
    EXPECT_EQ(stampOf(other), stamp);
    EXPECT_EQ(stamp.size, 3);
}

TEST_F(HardLinksTest, NothingChangesBeforeTheCommit) {
    {
        const PendingFile pending(path, std::array<std::string_view, 1>{"new"});
        EXPECT_EQ(readFile(other), "the old text");
    }
    EXPECT_EQ(readFile(path), "the old text");
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "other.mdl"}));
}

// The names beside the file are free after the commit, and the next save takes them.
TEST_F(HardLinksTest, ASaveThatIsDoneLeavesTheNextOneAlone) {
    const std::string third = folder.path("third.mdl");
    std::optional<PendingFile> done;
    done.emplace(path, std::array<std::string_view, 1>{"new"});
    done->commit();
    PendingFile next(third, std::array<std::string_view, 1>{"next"});
    done.reset();
    next.commit();
    EXPECT_EQ(readFile(third), "next");
    EXPECT_EQ(readFile(other), "new");
}

TEST_F(HardLinksTest, AFileThroughASymbolicLinkKeepsThemToo) {
    ASSERT_EQ(::symlink("hero.mdl", folder.path("link.mdl").c_str()), 0);
    replaceFile(folder.path("link.mdl"), std::array<std::string_view, 1>{"new"});
    EXPECT_EQ(readFile(other), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.mdl")));
}

// The program's own file is not written into: somebody else's may have that name, too.
TEST_F(HardLinksTest, TheProgramsOwnFileTakesItsPlaceByItsName) {
    replaceFile(path, std::array<std::string_view, 1>{"new"}, {.permissionsOf = other});
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(readFile(other), "the old text");
}

TEST_F(HardLinksTest, ATextThatDoesNotFitLeavesTheOldOne) {
    const ChildResult child = inForkedChild([&]() -> std::string {
        std::signal(SIGXFSZ, SIG_IGN);  // as the program's main does
        const struct rlimit limit = {1000, 1000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return "no limit";
        write(std::string(100000, 'x'));
        return "written";
    });
    EXPECT_EQ(child.said, "exception: " + path + ": File too large");
    EXPECT_EQ(readFile(path), "the old text");
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "other.mdl"}));
}

}  // namespace
}  // namespace corvane
