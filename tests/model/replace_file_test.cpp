// Replacing files: what holds after success and after every kind of failure.
#include <array>
#include <filesystem>

#include "model/files.h"
#include "replace_file_fixture.h"

namespace corvane {
namespace {

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

TEST_F(ReplaceFileTest, RefusesAFolder) {
    makeFolder("models");
    const std::string path = folder.path("models");
    EXPECT_EQ(replacingResult(path, "text"), path + ": Is a directory");
    EXPECT_EQ(folder.names(), Names{"models"});
}

TEST_F(ReplaceFileTest, RefusesAMissingFolder) {
    const std::string path = folder.path("missing/hero.mdl");
    EXPECT_EQ(replacingResult(path, "text"), path + ": No such file or directory");
    EXPECT_EQ(folder.names(), Names{});
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

// Such names are left over from processes that were killed and whose number this one has now.
TEST_F(ReplaceFileTest, TriesThatManyNamesForItsFile) {
    constexpr int kNames = 1000;
    const std::string path = folder.write("hero.mdl", "old");
    const auto take = [&](int number) {
        folder.write(".corvane-" + std::to_string(files::processId()) + "-" +
                         std::to_string(number) + ".tmp",
                     "");
    };
    for (int number = 0; number < kNames - 1; ++number) take(number);
    EXPECT_EQ(replacingResult(path, "new"), "written");
    take(kNames - 1);
    EXPECT_NE(replacingResult(path, "newer"), "written");
    EXPECT_EQ(readFile(path), "new");
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

}  // namespace
}  // namespace corvane
