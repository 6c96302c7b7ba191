// Calls of the system that fail while a file is replaced.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "failing_calls.h"
#include "model_flow.h"

namespace corvane {
namespace {

using faults::Asked;
using faults::Call;
using faults::FailingCall;
using Names = std::vector<std::string>;

std::string replacingResult(const std::string& path, std::string_view text,
                            const ReplaceOptions& options = {}) {
    try {
        replaceFile(path, std::array{text}, options);
    } catch (const FileDamagedError& error) {
        return std::string("damaged: ") + error.what();
    } catch (const FileError& error) {
        return error.what();
    }
    return "written";
}

mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

class FileFaultsTest : public testing::Test {
protected:
    TempFolder folder;
    std::string path = folder.write("hero.mdl", "the old text");

    void SetUp() override { ASSERT_EQ(::chmod(path.c_str(), 0600), 0); }

    void expectOld() const {
        EXPECT_EQ(readFile(path), "the old text");
        EXPECT_EQ(modeOf(path), 0600U);
        EXPECT_EQ(folder.names(), Names{"hero.mdl"});
    }
};

TEST_F(FileFaultsTest, PermissionsThatCannotBeKeptAreAnError) {
    for (const int error : {EIO, EPERM, EROFS}) {
        ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
        std::string result;
        {
            // 0600 can be set: the file system does have permissions.
            const FailingCall failing(Call::Fchmod, error, 1, FailingCall::kForEver,
                                      [](const Asked& asked) { return asked.mode != 0600; });
            result = replacingResult(path, "new");
        }
        EXPECT_EQ(result, FileError(path, error).what());
        EXPECT_EQ(readFile(path), "the old text");
        EXPECT_EQ(modeOf(path), 0640U);
        EXPECT_EQ(folder.names(), Names{"hero.mdl"});
    }
}

TEST_F(FileFaultsTest, AFileSystemWithoutPermissionsIsWrittenAllTheSame) {
    ASSERT_EQ(::chmod(path.c_str(), 0755), 0);
    for (const int error : {EPERM, ENOTSUP, ENOSYS}) {
        const FailingCall failing(Call::Fchmod, error);
        EXPECT_EQ(replacingResult(path, "with " + std::to_string(error)), "written");
        EXPECT_EQ(readFile(path), "with " + std::to_string(error));
    }
}

TEST_F(FileFaultsTest, PermissionsThatAreAsWantedAnywayAreNoError) {
    const FailingCall failing(Call::Fchmod, EIO);  // the file is made with 0600
    EXPECT_EQ(replacingResult(path, "new"), "written");
}

// It is there, and replacing it would drop its permissions.
TEST_F(FileFaultsTest, AFileThatCannotBeLookedAtIsNotReplaced) {
    std::string result;
    {
        const FailingCall failing(Call::Stat, EIO, 1, FailingCall::kForEver,
                                  [&](const Asked& asked) { return asked.path == path; });
        result = replacingResult(path, "new");
    }
    EXPECT_EQ(result, path + ": Input/output error");
    expectOld();
}

TEST_F(FileFaultsTest, TheProgramsOwnFileIsNotMadeWithPermissionsThatAreNotKnown) {
    const std::string own = folder.path("hero_TMP.tdl");
    std::string result;
    {
        const FailingCall failing(Call::Stat, EIO, 1, FailingCall::kForEver,
                                  [&](const Asked& asked) { return asked.path == path; });
        result = replacingResult(own, "new", {.permissionsOf = path});
    }
    EXPECT_EQ(result, own + ": Input/output error");
    expectOld();
}

TEST_F(FileFaultsTest, AReadThatASignalInterruptsGoesOnAndOneThatFailsSaysSo) {
    {
        const FailingCall failing(Call::Read, EINTR, 1, 2);
        EXPECT_EQ(readModelFile(path).view(), "the old text");
    }
    std::string result = "was read";
    try {
        const FailingCall failing(Call::Read, EIO, 1, 1);
        readModelFile(path);
    } catch (const FileError& error) {
        result = error.what();
    }
    EXPECT_EQ(result, path + ": Input/output error");
}

TEST_F(FileFaultsTest, ATextThatTheDiskTakesNothingOfLeavesTheOldOne) {
    std::string result;
    {
        const FailingCall failing(Call::Writev, 0);
        result = replacingResult(path, "new");
    }
    EXPECT_EQ(result, path + ": Input/output error");
    expectOld();
}

TEST_F(FileFaultsTest, ATextThatDoesNotReachTheDiskLeavesTheOldOne) {
    for (const Call call : {Call::Writev, Call::Fsync}) {
        std::string result;
        {
            const FailingCall failing(call, ENOSPC);
            result = replacingResult(path, "new");
        }
        EXPECT_EQ(result, path + ": No space left on device");
        expectOld();
    }
}

// Counts calls of one kind without letting any fail.
template <class Run>
int callsOf(Call call, Run run) {
    const FailingCall counting(call, EIO, FailingCall::kForEver);
    run();
    return FailingCall::count();
}

TEST_F(FileFaultsTest, TheTextAndThenItsNameReachTheDisk) {
    EXPECT_EQ(callsOf(Call::Fsync, [&] { replacingResult(path, "new"); }), 2);
    EXPECT_EQ(
        callsOf(Call::Fsync,
                [&] { replacingResult(path, "new", {.flushToDisk = false, .permissionsOf = {}}); }),
        0);
}

// Opening and switching would wait for the disk.
TEST_F(FileFaultsTest, AWorkingCopyIsMadeWithoutWaitingForTheDisk) {
    const int flushes =
        callsOf(Call::Fsync, [&] { prepareWorkingCopy(path, "the old text").commit(); });
    EXPECT_EQ(flushes, 0);
    EXPECT_EQ(readFile(workPathFor(path)), "the old text");
}

TEST_F(FileFaultsTest, AStampThatCannotBeTakenAfterClosingIsTheOneFromBefore) {
    FileStamp stamp;
    {
        const FailingCall failing(Call::Stat, EIO, 1, FailingCall::kForEver,
                                  [](const Asked& asked) { return asked.path.ends_with(".tmp"); });
        stamp = replaceFile(path, std::array<std::string_view, 1>{"new"});
        EXPECT_EQ(FailingCall::count(), 1);
    }
    EXPECT_EQ(stamp, stampOf(path));
}

// As on a file system that numbers a file anew under its new name: once the new text is in its
// place, and before it is looked at there, its file is another one. What its time of writing is
// then later by is in nanoseconds.
FileStamp stampOfAFileNumberedAnew(const TempFolder& folder, const std::string& path, long later) {
    const auto numberAnew = [&] {
        struct stat status {};
        ASSERT_EQ(::lstat(path.c_str(), &status), 0);
        const std::string anew = folder.write("anew", readFile(path));
        status.st_mtim.tv_nsec = (status.st_mtim.tv_nsec + later) % 1'000'000'000;
        const std::array times = {status.st_atim, status.st_mtim};
        ASSERT_EQ(::utimensat(AT_FDCWD, anew.c_str(), times.data(), 0), 0);
        ASSERT_EQ(::rename(anew.c_str(), path.c_str()), 0);
    };
    const FailingCall watching(Call::Stat, EIO, FailingCall::kForEver, FailingCall::kForEver,
                               [&](const Asked& asked) {
                                   if (asked.path == path && readFile(path) == "new") numberAnew();
                                   return false;
                               });
    return replaceFile(path, std::array<std::string_view, 1>{"new"});
}

TEST_F(FileFaultsTest, AFileThatIsNumberedAnewUnderItsNewNameIsStillTheOneThatWasWritten) {
    const FileStamp stamp = stampOfAFileNumberedAnew(folder, path, 0);
    EXPECT_EQ(stamp, stampOf(path));
}

TEST_F(FileFaultsTest, WhatAnotherProgramHasWrittenInItsPlaceIsNotTheOneThatWasWritten) {
    const FileStamp stamp = stampOfAFileNumberedAnew(folder, path, 1);
    ASSERT_TRUE(stampOf(path));
    EXPECT_NE(stamp.modified, stampOf(path)->modified);
    EXPECT_FALSE(stamp.isSameFileAs(*stampOf(path)));
}

TEST_F(FileFaultsTest, ATextWhoseFileCannotBeClosedLeavesTheOldOne) {
    std::string result;
    {
        const FailingCall failing(Call::Close, EIO, 1, 1);
        result = replacingResult(path, "new");
    }
    EXPECT_EQ(result, path + ": Input/output error");
    expectOld();
}

// A file with two names, which is written in place.
class HardLinkFaultsTest : public FileFaultsTest {
protected:
    std::string other = folder.path("other.mdl");

    void SetUp() override {
        FileFaultsTest::SetUp();
        ASSERT_EQ(::link(path.c_str(), other.c_str()), 0);
    }
};

TEST_F(HardLinkFaultsTest, WhateverFailsOnceTheOldTextIsThereUnderBothNames) {
    const std::string text(200'000, 'x');  // several writes
    for (const Call call : {Call::Read, Call::Writev, Call::Fsync, Call::Ftruncate}) {
        std::string result;
        int failures = 0;
        for (int number = 1; result != "written"; ++number) {
            ASSERT_LT(number, 100);
            {
                const FailingCall failing(call, EIO, number, number);
                result = replacingResult(path, text);
                // The folders are flushed by the way, without a consequence.
                if (FailingCall::count() >= number && result != "written") ++failures;
            }
            const bool written = result == "written";
            EXPECT_EQ(result, written ? "written" : path + ": Input/output error") << number;
            EXPECT_TRUE(readFile(path) == (written ? text : "the old text")) << number;
            EXPECT_TRUE(readFile(other) == (written ? text : "the old text")) << number;
            EXPECT_EQ(folder.names(), (Names{"hero.mdl", "other.mdl"})) << number;
        }
        EXPECT_GE(failures, 2) << "of the file in place and of what is beside it";
        replaceFile(path, std::array<std::string_view, 1>{"the old text"});
    }
}

TEST_F(HardLinkFaultsTest, EveryTextReachesTheDiskBeforeTheNextOneIsWritten) {
    // The new text beside; the former one beside, and its folder; the new one in its place; and the
    // folder, from which both are gone.
    EXPECT_EQ(callsOf(Call::Fsync, [&] { replacingResult(path, "new"); }), 5);
}

TEST_F(HardLinkFaultsTest, WhereAnyTextsFileCannotBeClosedTheOldOneIsThere) {
    int failures = 0;
    std::string result;
    for (int number = 1; number < 30; ++number) {
        {
            const FailingCall failing(Call::Close, EIO, number, number);
            result = replacingResult(path, "new");
        }
        const bool written = result == "written";
        EXPECT_EQ(result, written ? "written" : path + ": Input/output error") << number;
        EXPECT_EQ(readFile(path), written ? "new" : "the old text") << number;
        EXPECT_EQ(folder.names(), (Names{"hero.mdl", "other.mdl"})) << number;
        if (!written) ++failures;
        replaceFile(path, std::array<std::string_view, 1>{"the old text"});
    }
    EXPECT_EQ(failures, 4) << "of the new and the former text beside, and of both in their places";
}

TEST_F(HardLinkFaultsTest, ATextThatCannotBePutBackIsNamed) {
    std::string result;
    {
        // The new text beside, the former one beside, and no more.
        const FailingCall failing(Call::Writev, EIO, 3);
        result = replacingResult(path, "new");
    }
    const Names names = folder.names();
    ASSERT_EQ(names.size(), 3U);
    const std::string former = folder.path(names.front());
    EXPECT_TRUE(former.ends_with(".former"));
    EXPECT_EQ(result, "damaged: " + path +
                          ": Input/output error. The file is only partly written now. What it held "
                          "before is whole in " +
                          former);
    EXPECT_EQ(readFile(former), "the old text");
    EXPECT_EQ(modeOf(former), 0600U);
}

class SaveFaultsTest : public ModelFlowTest {};

TEST_F(SaveFaultsTest, AFileThatIsDamagedIsNotSaidToBeAsItWas) {
    const std::string old = modelOf(threeGeosets());
    const std::string path = openNew("three.mdl", old, "2");
    ASSERT_EQ(::link(path.c_str(), folder.path("other.mdl").c_str()), 0);
    select({1});
    vertex(1).pos[0] = 99;
    dialogs.yesNos.push_back(true);  // its time of change is another one now, or not
    {
        const FailingCall failing(Call::Writev, EIO, 3);
        save();
    }
    dialogs.yesNos.clear();
    const std::string former = folder.path(folder.names().front());
    expectLast("message", "Error",
               "The model was not saved.\n" + path +
                   ": Input/output error. The file is only partly written now. What it held before "
                   "is whole in " +
                   former +
                   "\n\nBut your edits are still here: mend the cause and save again, or save to "
                   "another place with Save As.");
    EXPECT_EQ(readFile(former), old);
    EXPECT_EQ(vertex(1).pos[0], 99);
}

}  // namespace
}  // namespace corvane
