// Reading what only systems of the Unix kind have: symbolic links, pipes, permissions.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <new>

#include "forked_child.h"
#include "model/files.h"
#include "model/model_files.h"
#include "reading_result.h"
#include "temp_folder.h"

namespace corvane {
namespace {

TEST(ReadModelFile, FollowsSymbolicLinks) {
    const TempFolder folder;
    folder.write("hero.mdl", "text");
    ASSERT_EQ(::symlink("hero.mdl", folder.path("link.mdl").c_str()), 0);
    EXPECT_EQ(readModelFile(folder.path("link.mdl")).view(), "text");
}

TEST(ReadModelFile, RefusesADanglingLink) {
    const TempFolder folder;
    const std::string path = folder.path("link.mdl");
    ASSERT_EQ(::symlink("missing.mdl", path.c_str()), 0);
    EXPECT_EQ(readingResult(path), path + ": No such file or directory");
}

// It is a character of names here as any other one.
TEST(FolderOf, LeavesABackslashInItsName) {
    EXPECT_EQ(folderOf("/home/orc\\mods/he\\ro.mdl"), "/home/orc\\mods");
    EXPECT_EQ(nameOf("/home/orc\\mods/he\\ro.mdl"), "he\\ro.mdl");
    EXPECT_EQ(stemOf("he\\ro.mdl"), "he\\ro");
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

// How many descriptors a program would have that is started now, besides the standard ones.
int inheritedDescriptors() {
    int count = 0;
    for (int fd = 3; fd < 256; ++fd) {
        const int flags = ::fcntl(fd, F_GETFD);
        if (flags >= 0 && (flags & FD_CLOEXEC) == 0) ++count;
    }
    return count;
}

TEST(FileDescriptors, AreNotInherited) {
    const TempFolder folder;
    const std::string path = folder.write("hero.mdl", "text");
    const int before = inheritedDescriptors();
    std::error_code error;
    const std::array open = {
        files::File::toRead(path, error), files::File::toRewrite(path, error),
        files::File::toLock(folder.path("lock"), error),
        files::File::toCreate(folder.path("new"), files::Privacy::Usual, error)};
    for (const files::File& file : open) EXPECT_TRUE(file.isOpen());
    EXPECT_EQ(inheritedDescriptors(), before);
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

TEST(IsSameFile, FollowsSymbolicLinks) {
    const TempFolder folder;
    const std::string a = folder.write("a.mdl", "text");
    ASSERT_EQ(::symlink("a.mdl", folder.path("link.mdl").c_str()), 0);
    EXPECT_TRUE(isSameFile(a, folder.path("link.mdl")));
}

TEST(StampOf, FollowsSymbolicLinks) {
    const TempFolder folder;
    const std::string a = folder.write("a.mdl", "text");
    ASSERT_EQ(::symlink("a.mdl", folder.path("link.mdl").c_str()), 0);
    EXPECT_EQ(stampOf(folder.path("link.mdl")), stampOf(a));
}

// Whatever an earlier call has left behind.
TEST(FileLock, IsHeldOnlyWhereTheSystemSaysSo) {
    const TempFolder folder;
    std::error_code error;
    files::File file = files::File::toLock(folder.path("run.lock"), error);
    ASSERT_TRUE(file.isOpen());
    errno = EWOULDBLOCK;
    EXPECT_FALSE(file.isLocked());
}

}  // namespace
}  // namespace corvane
