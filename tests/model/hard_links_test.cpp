// Files with several names: a save reaches all of them. What fails half-way is in
// tests/faults/file_faults_posix_test.cpp.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <optional>

#include "model/model_files.h"
#include "temp_folder.h"

namespace corvane {
namespace {

using Names = std::vector<std::string>;

class HardLinksTest : public testing::Test {
protected:
    TempFolder folder;
    std::string path = folder.write("hero.mdl", "the old text");
    std::string other = folder.path("other.mdl");

    void SetUp() override { std::filesystem::create_hard_link(path, other); }

    FileStamp write(std::string_view text) { return replaceFile(path, std::array{text}); }
};

TEST_F(HardLinksTest, ASaveReachesEveryName) {
    for (const std::string text : {"new", "a text longer than any of those before it", ""}) {
        write(text);
        EXPECT_EQ(readFile(path), text);
        EXPECT_EQ(readFile(other), text);
        EXPECT_TRUE(isSameFile(path, other));
        EXPECT_EQ(folder.names(), (Names{"hero.mdl", "other.mdl"}));
    }
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

// The program's own file is not written into: somebody else's may have that name, too.
TEST_F(HardLinksTest, TheProgramsOwnFileTakesItsPlaceByItsName) {
    replaceFile(path, std::array<std::string_view, 1>{"new"}, {.permissionsOf = other});
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(readFile(other), "the old text");
}

}  // namespace
}  // namespace corvane
