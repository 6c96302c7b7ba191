// Names and reading. Writing is in replace_file_test.cpp.
#include "model/model_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <new>

#include "editor_fixture.h"
#include "forked_child.h"

namespace corvane {
namespace {

// The message with which reading a file fails; its text when it does not.
std::string readingResult(const std::string& path) {
    try {
        return std::string(readModelFile(path).view());
    } catch (const FileError& error) {
        return error.what();
    }
}

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

TEST(ReadModelFile, FollowsSymbolicLinks) {
    const TempFolder folder;
    folder.write("hero.mdl", "text");
    ASSERT_EQ(::symlink("hero.mdl", folder.path("link.mdl").c_str()), 0);
    EXPECT_EQ(readModelFile(folder.path("link.mdl")).view(), "text");
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

TEST(ReadModelFile, RefusesADanglingLink) {
    const TempFolder folder;
    const std::string path = folder.path("link.mdl");
    ASSERT_EQ(::symlink("missing.mdl", path.c_str()), 0);
    EXPECT_EQ(readingResult(path), path + ": No such file or directory");
}

TEST(ReadModelFile, RefusesAFolder) {
    const TempFolder folder;
    EXPECT_EQ(readingResult(folder.path("")), folder.path("") + ": Is a directory");
}

// Opening a pipe that nobody writes to would wait for ever.
TEST(ReadModelFile, RefusesANamedPipe) {
    const TempFolder folder;
    const std::string path = folder.path("pipe.mdl");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(readingResult(path), path + ": not a regular file");
}

TEST(ReadModelFile, RefusesADevice) {
    EXPECT_EQ(readingResult("/dev/null"), "/dev/null: not a regular file");
}

TEST(ReadModelFile, RefusesAFileThatIsTooLarge) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "");
    // A hole: it takes no room on the disk.
    ASSERT_EQ(::truncate(path.c_str(), (1 << 30) + 1), 0);
    EXPECT_EQ(readingResult(path), path + ": larger than 1024 MiB");
}

// Not because of its size, at least.
TEST(ReadModelFile, TakesAFileThatIsJustNotTooLarge) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer ends a program that has no memory left";
#endif
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "");
    ASSERT_EQ(::truncate(path.c_str(), 1 << 30), 0);
    const ChildResult child = inForkedChild([&]() -> std::string {
        // For a gigabyte there is no room, and reading it would take long.
        const rlimit limit = {.rlim_cur = rlim_t{1} << 30U, .rlim_max = rlim_t{1} << 30U};
        if (::setrlimit(RLIMIT_AS, &limit) != 0) return "no limit";
        try {
            return readingResult(path);
        } catch (const std::bad_alloc&) {
            return "no memory";
        }
    });
    EXPECT_EQ(child.said, "no memory");
}

// A file that yields more than its size says has grown. These always do.
TEST(ReadModelFile, RefusesAFileThatGrows) {
    EXPECT_EQ(readingResult("/proc/self/status"), "/proc/self/status: changed while it was read");
}

TEST(ReadModelFile, RefusesAFileThatTheUserMayNotRead) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "text");
    giveToUnprivilegedUser(folder.path(""));
    giveToUnprivilegedUser(path);
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    EXPECT_EQ(asUnprivilegedUser([&] { return readingResult(path); }).said,
              path + ": Permission denied");
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
    ASSERT_EQ(::mkdir(folder.path("sub").c_str(), 0755), 0);
    deleteFile(folder.path("sub"));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"sub"});
}

TEST(IsSameFile, ComparesFilesNotNames) {
    const TempFolder folder;
    const std::string a = folder.write("a.mdl", "text");
    const std::string b = folder.write("b.mdl", "text");
    ASSERT_EQ(::symlink("a.mdl", folder.path("link.mdl").c_str()), 0);
    ASSERT_EQ(::link(a.c_str(), folder.path("hard.mdl").c_str()), 0);
    EXPECT_TRUE(isSameFile(a, a));
    EXPECT_TRUE(isSameFile(a, folder.path("./a.mdl")));
    EXPECT_TRUE(isSameFile(a, folder.path("link.mdl")));
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
    ASSERT_EQ(::symlink("a.mdl", folder.path("link.mdl").c_str()), 0);
    ASSERT_TRUE(stampOf(a));
    ASSERT_TRUE(stampOf(b));
    EXPECT_EQ(stampOf(a), stampOf(a));
    EXPECT_EQ(stampOf(folder.path("link.mdl")), stampOf(a));
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

TEST(StampOf, SeesATimeOfWritingThatDiffersInItsNanoseconds) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "text");
    const struct timespec earlier[2] = {{1000000000, 1}, {1000000000, 1}};
    const struct timespec later[2] = {{1000000000, 2}, {1000000000, 2}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), earlier, 0), 0);
    const auto before = stampOf(path);
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), later, 0), 0);
    const auto after = stampOf(path);
    ASSERT_TRUE(before && after);
    EXPECT_EQ(before->modified, 1000000000000000001);
    EXPECT_EQ(after->modified, 1000000000000000002);
    EXPECT_NE(before, after);
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

}  // namespace
}  // namespace corvane
