// Reading files as Windows has them: names, long paths, devices, files that are not shared, locks.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "helper_process.h"
#include "model/files.h"
#include "model/model_files.h"
#include "reading_result.h"
#include "temp_folder.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace corvane {
namespace {

using Names = std::vector<std::string>;

TEST(ReadModelFile, TakesBothKindsOfSlashes) {
    const TempFolder folder;
    std::string path = folder.write("hero.mdl", "text");
    EXPECT_EQ(readingResult(path), "text");
    std::ranges::replace(path, '/', '\\');
    EXPECT_EQ(readingResult(path), "text");
}

TEST(ReadModelFile, RefusesADevice) { EXPECT_EQ(readingResult("NUL"), "NUL: not a regular file"); }

TEST(ReadModelFile, RefusesANameThatNoFileCanHave) {
    const TempFolder folder;
    const std::string path = folder.path("he?ro.mdl");
    EXPECT_EQ(readingResult(path),
              path + ": The name has characters that names of files cannot have");
    EXPECT_EQ(readingResult("\xFF.mdl"), "\xFF.mdl: No such file or directory");
}

TEST(ReadModelFile, SaysThatAnotherProgramHoldsTheFile) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "text");
    HelperProcess other("hold " + path);
    ASSERT_TRUE(other.waitForBytes(1));
    EXPECT_EQ(readingResult(path), path + ": Another program holds the file");
    other.finish();
    EXPECT_EQ(readingResult(path), "text");
}

// Longer than programs get without asking for it, in folders that have to be made.
TEST(LongPaths, AreReadWrittenListedAndDeleted) {
    const TempFolder folder;
    const std::string name(100, 'n');
    const std::string below = name + "/" + name + "/" + name;
    const std::string path = folder.path(below + "/hero \u5b66.mdl");
    ASSERT_GT(path.size(), 300U);
    makeFoldersAbove(path);
    makeFoldersAbove(path);  // where they are there
    replaceFile(path, std::array<std::string_view, 1>{"old"});
    replaceFile(path, std::array<std::string_view, 1>{"new"});
    EXPECT_EQ(readingResult(path), "new");
    EXPECT_TRUE(isSameFile(path, folder.path(below + "/./hero \u5b66.mdl")));
    EXPECT_EQ(files::namesIn(folderOf(path), "hero"), Names{"hero \u5b66.mdl"});
    EXPECT_EQ(freePath(folderOf(path), "hero \u5b66", ".mdl"),
              folder.path(below + "/hero \u5b66-2.mdl"));
    deleteFile(path);
    EXPECT_EQ(files::namesIn(folderOf(path), "hero"), Names{});
    // The standard library cannot delete such folders.
    for (const std::string& made : {below, name + "/" + name, name}) {
        const std::filesystem::path native = systemPathOf(folder.path(made)).make_preferred();
        EXPECT_NE(::RemoveDirectoryW((L"\\\\?\\" + native.wstring()).c_str()), 0) << made;
    }
}

TEST(LongPaths, ThatAreLongerThanTheSystemTakesAreRefused) {
    std::string path = "C:";
    while (path.size() < 40'000) path += "/folder";
    EXPECT_EQ(readingResult(path), path + ": File name too long");
}

TEST(DeleteFile, DeletesAReadOnlyFileAndNoFolder) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "text");
    const std::string sub = folder.path("sub");
    std::filesystem::create_directory(sub);
    ASSERT_NE(::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY), 0);
    deleteFile(path);
    deleteFile(sub);
    EXPECT_EQ(folder.names(), Names{"sub"});
}

TEST(StampOf, SeesATimeOfWritingThatDiffersInItsSmallestPart) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "text");
    constexpr std::uint64_t kBillionSeconds = 126'444'736'000'000'000;  // after 1970, in 100 ns
    for (const std::uint64_t part : {0U, 1U}) {
        const std::uint64_t time = kBillionSeconds + part;
        const FILETIME written = {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32U)};
        const HANDLE file = ::CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                          OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(::SetFileTime(file, nullptr, nullptr, &written), 0);
        ::CloseHandle(file);
        ASSERT_TRUE(stampOf(path));
        EXPECT_EQ(stampOf(path)->modified,
                  1'000'000'000'000'000'000 + static_cast<std::int64_t>(part) * 100);
    }
}

TEST(Locks, HoldUntilTheirProcessIsGone) {
    const TempFolder folder;
    const std::string path = folder.path("lock");
    HelperProcess other("lock " + path);
    ASSERT_TRUE(other.waitForBytes(1));
    std::error_code error;
    files::File file = files::File::toLock(path, error);
    ASSERT_TRUE(file.isOpen()) << error.message();
    EXPECT_TRUE(file.isLocked());
    other.kill();
    EXPECT_FALSE(file.isLocked());
    EXPECT_TRUE(file.lock());
}

TEST(Processes, ThatRunAreNotGone) {
    HelperProcess other("hold " CORVANE_FUZZ_CORPUS "/animations");
    ASSERT_TRUE(other.waitForBytes(1));
    EXPECT_FALSE(files::isProcessGone(other.id()));
    EXPECT_FALSE(files::isProcessGone(files::processId()));
    EXPECT_FALSE(files::isProcessGone(0));
    other.kill();
    EXPECT_TRUE(files::isProcessGone(other.id()));
}

TEST(HomeFolder, IsThatOfTheUsersProfile) {
    ::SetEnvironmentVariableW(L"USERPROFILE", nullptr);
    ::_wputenv(L"USERPROFILE=C:\\users\\B\u00fchne \u5b66");
    EXPECT_EQ(files::homeFolder(), "C:/users/B\u00fchne \u5b66");
}

}  // namespace
}  // namespace corvane
