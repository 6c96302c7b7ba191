// Names and reading. Writing is in replace_file_test.cpp.
#include "model/model_files.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <filesystem>

#include "reading_result.h"
#include "temp_folder.h"

namespace corvane {
namespace {

TEST(ReadModelFile, ReadsEveryByte) {
    const TempFolder folder;
    const std::string bytes("\xEF\xBB\xBFone\r\n\0\xFF\x1A\ntwo", 15);
    const std::string path = folder.write("hero.mdl", bytes);
    const ModelText text = readModelFile(path);
    EXPECT_EQ(text.view(), bytes);
    EXPECT_EQ(text.path(), path);
}

TEST(ReadModelFile, ReadsAnEmptyFile) {
    const TempFolder folder;
    EXPECT_EQ(readModelFile(folder.write("empty.mdl", "")).view(), "");
}

TEST(ReadModelFile, ReadsAFileOfSeveralMegabytes) {
    const TempFolder folder;
    std::string bytes;
    for (int i = 0; bytes.size() < 5000000; ++i) bytes += std::to_string(i) + ",\n";
    EXPECT_TRUE(readModelFile(folder.write("large.mdl", bytes)).view() == bytes);
}

TEST(ReadModelFile, ReadsNamesBeyondAscii) {
    const TempFolder folder;
    EXPECT_EQ(readModelFile(folder.write("Bühne 学.mdl", "text")).view(), "text");
}

TEST(ReadModelFile, RefusesAMissingFile) {
    const TempFolder folder;
    const std::string path = folder.path("missing.mdl");
    EXPECT_EQ(readingResult(path), path + ": No such file or directory");
    EXPECT_EQ(readingResult(""), ": No such file or directory");
}

TEST(ReadModelFile, RefusesAFolder) {
    const TempFolder folder;
    EXPECT_EQ(readingResult(folder.path("")), folder.path("") + ": Is a directory");
}

TEST(ReadModelFile, RefusesAFileThatIsTooLarge) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "");
    // A hole: it takes no room on the disk.
    std::filesystem::resize_file(path, (std::uintmax_t{1} << 30U) + 1);
    EXPECT_EQ(readingResult(path), path + ": larger than 1024 MiB");
}

TEST(ReadModelFile, GivesTheStampOfTheBytesThatItRead) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "one two");
    FileStamp stamp;
    EXPECT_EQ(readModelFile(path, &stamp).view(), "one two");
    EXPECT_EQ(stampOf(path), stamp);
    folder.write("hero.mdl", "one two three");
    EXPECT_NE(stampOf(path), stamp);
}

TEST(JoinedText, HoldsThePiecesInTheirOrder) {
    const std::array<std::string_view, 3> pieces = {"one ", "", "two"};
    const ModelText text = joinedText("hero.mdl", pieces);
    EXPECT_EQ(text.view(), "one two");
    EXPECT_EQ(text.path(), "hero.mdl");
    EXPECT_EQ(joinedText("hero.mdl", {}).view(), "");
}

TEST(FileErrorType, NamesTheFileAndTheReason) {
    EXPECT_STREQ(FileError("folder/hero.mdl", "not a regular file").what(),
                 "folder/hero.mdl: not a regular file");
    EXPECT_STREQ(FileError("hero.mdl", ENOSPC).what(), "hero.mdl: No space left on device");
}

TEST(DeleteFile, DeletesAFileAndIgnoresWhatIsMissing) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "text");
    folder.write("other.mdl", "text");
    deleteFile(path);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"other.mdl"});
    deleteFile(path);
    deleteFile("");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"other.mdl"});
}

TEST(DeleteFile, LeavesFoldersAlone) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.path("sub"));
    deleteFile(folder.path("sub"));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"sub"});
}

TEST(IsSameFile, ComparesFilesNotNames) {
    const TempFolder folder;
    const std::string a = folder.write("a.mdl", "text");
    const std::string b = folder.write("b.mdl", "text");
    std::filesystem::create_hard_link(a, folder.path("hard.mdl"));
    EXPECT_TRUE(isSameFile(a, a));
    EXPECT_TRUE(isSameFile(a, folder.path("./a.mdl")));
    EXPECT_TRUE(isSameFile(folder.path("hard.mdl"), a));
    EXPECT_FALSE(isSameFile(a, b));
}

TEST(IsSameFile, HoldsForNoFileThatIsMissing) {
    const TempFolder folder;
    const std::string a = folder.write("a.mdl", "text");
    EXPECT_FALSE(isSameFile(a, folder.path("missing.mdl")));
    EXPECT_FALSE(isSameFile(folder.path("missing.mdl"), a));
    EXPECT_FALSE(isSameFile(folder.path("missing.mdl"), folder.path("missing.mdl")));
    EXPECT_FALSE(isSameFile("", ""));
}

TEST(StampOf, TellsFilesApart) {
    const TempFolder folder;
    const std::string a = folder.write("a.mdl", "text");
    const std::string b = folder.write("b.mdl", "text");
    ASSERT_TRUE(stampOf(a));
    ASSERT_TRUE(stampOf(b));
    EXPECT_EQ(stampOf(a), stampOf(a));
    EXPECT_NE(stampOf(a), stampOf(b));
    EXPECT_FALSE(stampOf(a)->isSameFileAs(*stampOf(b)));
}

TEST(StampOf, ChangesWhenTheFileIsWrittenAgain) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "text");
    const auto before = stampOf(path);
    folder.write("hero.mdl", "longer text");
    const auto after = stampOf(path);
    ASSERT_TRUE(before && after);
    EXPECT_NE(before, after);
    EXPECT_TRUE(before->isSameFileAs(*after));
}

TEST(StampOf, IsNothingWithoutAFile) {
    const TempFolder folder;
    EXPECT_FALSE(stampOf(folder.path("missing.mdl")));
    EXPECT_FALSE(stampOf(""));
}

TEST(WorkPathFor, ReplacesTheLastFourCharacters) {
    EXPECT_EQ(workPathFor("hero.mdl"), "hero_TMP.tdl");
    EXPECT_EQ(workPathFor("/models/units/hero.mdl"), "/models/units/hero_TMP.tdl");
    EXPECT_EQ(workPathFor("/models/hero.MDL"), "/models/hero_TMP.tdl");
}

TEST(WorkPathFor, CutsFourCharactersWhateverTheExtension) {
    EXPECT_EQ(workPathFor("/models/hero.txt"), "/models/hero_TMP.tdl");
    EXPECT_EQ(workPathFor("/models/hero.model"), "/models/hero.m_TMP.tdl");
    EXPECT_EQ(workPathFor("/models/hero"), "/models/_TMP.tdl");
    EXPECT_EQ(workPathFor("/models/heroic"), "/models/he_TMP.tdl");
}

TEST(WorkPathFor, TakesNamesOfFewerThanFourCharacters) {
    EXPECT_EQ(workPathFor(".mdl"), "_TMP.tdl");
    EXPECT_EQ(workPathFor("abc"), "_TMP.tdl");
    EXPECT_EQ(workPathFor("a"), "_TMP.tdl");
    EXPECT_EQ(workPathFor(""), "_TMP.tdl");
}

TEST(WorkPathFor, CountsCharactersNotBytes) {
    EXPECT_EQ(workPathFor("/models/h\u00e9ro\u00ef.md\u00e9"), "/models/h\u00e9ro\u00ef_TMP.tdl");
    EXPECT_EQ(workPathFor("/models/\u5b66\u5b66\u5b66\u5b66\u5b66"), "/models/\u5b66_TMP.tdl");
    EXPECT_EQ(workPathFor("/models/x\U0001F426.md\u00e9"), "/models/x\U0001F426_TMP.tdl");
    EXPECT_EQ(workPathFor("\u00e9\u00e9"), "_TMP.tdl");
    EXPECT_EQ(workPathFor("\x80\x81"), "_TMP.tdl");  // no UTF-8 at all
}

TEST(MakeFoldersAbove, MakesAllThatAreMissing) {
    const TempFolder folder;
    const std::string path = folder.path("data/models/hero.mdl");
    makeFoldersAbove(path);
    makeFoldersAbove(path);  // where they are there
    replaceFile(path, std::array<std::string_view, 1>{"text"});
    EXPECT_EQ(readFile(path), "text");
}

TEST(MakeFoldersAbove, RefusesAFileInTheWay) {
    const TempFolder folder;
    folder.write("hero", "text");
    EXPECT_THROW(makeFoldersAbove(folder.path("hero/hero.mdl")), FileError);
    EXPECT_THROW(makeFoldersAbove(folder.path("hero/below/hero.mdl")), FileError);
}

}  // namespace
}  // namespace corvane
