// Files with several names on systems of the Unix kind: permissions, symbolic links and limits.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>

#include "forked_child.h"
#include "model/model_files.h"
#include "temp_folder.h"

namespace corvane {
namespace {

using Names = std::vector<std::string>;

class HardLinksPosixTest : public testing::Test {
protected:
    TempFolder folder;
    std::string path = folder.write("hero.mdl", "the old text");
    std::string other = folder.path("other.mdl");

    void SetUp() override { ASSERT_EQ(::link(path.c_str(), other.c_str()), 0); }
};

TEST_F(HardLinksPosixTest, ASaveKeepsThePermissions) {
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    for (const std::string_view text : {"new", "a text longer than any of those before it", ""}) {
        replaceFile(path, std::array{text});
        struct stat status {};
        ASSERT_EQ(::stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0640U);
    }
}

TEST_F(HardLinksPosixTest, AFileThroughASymbolicLinkKeepsThemToo) {
    ASSERT_EQ(::symlink("hero.mdl", folder.path("link.mdl").c_str()), 0);
    replaceFile(folder.path("link.mdl"), std::array<std::string_view, 1>{"new"});
    EXPECT_EQ(readFile(other), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.mdl")));
}

TEST_F(HardLinksPosixTest, ATextThatDoesNotFitLeavesTheOldOne) {
    const ChildResult child = inForkedChild([&]() -> std::string {
        std::signal(SIGXFSZ, SIG_IGN);  // as the program's main does
        const struct rlimit limit = {1000, 1000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return "no limit";
        const std::string text(100000, 'x');
        replaceFile(path, std::array<std::string_view, 1>{text});
        return "written";
    });
    EXPECT_EQ(child.said, "exception: " + path + ": File too large");
    EXPECT_EQ(readFile(path), "the old text");
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "other.mdl"}));
}

}  // namespace
}  // namespace corvane
