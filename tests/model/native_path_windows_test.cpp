// What the system's numbers are in words.
#include "model/native_path_windows.h"

#include <gtest/gtest.h>

#include "model/files.h"

namespace corvane {
namespace {

std::string wordsOf(DWORD code) { return files::wordsFor(files::errorFrom(code)); }

TEST(SystemErrors, OfMissingFilesAndOfRightsSayWhatTheyAre) {
    for (const DWORD code :
         {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_DRIVE, ERROR_BAD_NET_NAME}) {
        EXPECT_EQ(wordsOf(code), "No such file or directory") << code;
    }
    for (const DWORD code : {ERROR_ACCESS_DENIED, 395L}) {  // the cloud denies it
        EXPECT_EQ(wordsOf(code), "Permission denied") << code;
    }
    for (const DWORD code : {ERROR_WRITE_PROTECT, 381L}) {  // a cloud that is only read
        EXPECT_EQ(wordsOf(code), "The disk is write-protected") << code;
    }
    for (const DWORD code : {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, 391L}) {
        EXPECT_EQ(wordsOf(code), "Another program holds the file") << code;
    }
}

TEST(SystemErrors, OfAFullDiskAndOfAQuotaAreOfSpace) {
    for (const DWORD code : {ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL, 1295L}) {
        EXPECT_EQ(wordsOf(code), "No space left on device") << code;
    }
}

// A drive without a disk, a server that is off, a cable that is out.
TEST(SystemErrors, OfDrivesAndNetworksThatDoNotAnswerSaySo) {
    for (const DWORD code :
         {ERROR_NOT_READY, ERROR_BAD_NETPATH, ERROR_REM_NOT_LIST, ERROR_DEV_NOT_EXIST,
          ERROR_BAD_NET_RESP, ERROR_UNEXP_NET_ERR, ERROR_NETNAME_DELETED, ERROR_SEM_TIMEOUT,
          ERROR_NO_NETWORK, ERROR_NETWORK_UNREACHABLE, ERROR_HOST_UNREACHABLE}) {
        EXPECT_EQ(wordsOf(code), "The drive or the network does not answer") << code;
    }
}

TEST(SystemErrors, OfVirusScannersSaySo) {
    for (const DWORD code : {225U, 226U}) {
        EXPECT_EQ(wordsOf(code), "A virus scanner refuses the file") << code;
    }
}

// Its program does not run, nobody is signed in, it takes too long and so on.
TEST(SystemErrors, OfACloudThatDoesNotHandAFileOutSaySo) {
    for (const DWORD code : {362U, 386U, 387U, 388U, 389U, 393U, 398U, 404U, 426U}) {
        EXPECT_EQ(wordsOf(code), "The file is only in the cloud, which does not answer now")
            << code;
    }
}

TEST(SystemErrors, ThatAreNotKnownAreOfInputAndOutput) {
    EXPECT_EQ(wordsOf(ERROR_CRC), "Input/output error");
    EXPECT_EQ(wordsOf(0xFFFFFFFF), "Input/output error");
}

}  // namespace
}  // namespace corvane
