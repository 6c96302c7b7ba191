// Folders that only the user may look into.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

#include "model/files.h"
#include "temp_folder.h"

namespace corvane {
namespace {

class PrivateFolderTest : public testing::Test {
protected:
    mode_t mode() const {
        struct stat status {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    TempFolder folder;
    const std::string path = folder.path("kept");
};

TEST_F(PrivateFolderTest, IsMadeForTheUserAlone) {
    EXPECT_EQ(files::makePrivateFolder(path), std::error_code());
    EXPECT_EQ(mode() & 0777U, 0700U);
}

TEST_F(PrivateFolderTest, IsClosedToOthersWhereItWasOpen) {
    for (const mode_t before : {0755U, 0710U, 0701U, 0777U}) {
        ::mkdir(path.c_str(), 0700);
        ASSERT_EQ(::chmod(path.c_str(), before), 0);
        EXPECT_EQ(files::makePrivateFolder(path), std::error_code());
        EXPECT_EQ(mode(), 0700U) << before;
    }
}

TEST_F(PrivateFolderTest, IsLeftAsItIsWhereItIsTheUsersAlone) {
    ASSERT_EQ(::mkdir(path.c_str(), 0700), 0);
    for (const mode_t before : {02700U, 0500U}) {
        ASSERT_EQ(::chmod(path.c_str(), before), 0);
        ASSERT_EQ(mode(), before);
        EXPECT_EQ(files::makePrivateFolder(path), std::error_code());
        EXPECT_EQ(mode(), before);
    }
}

TEST_F(PrivateFolderTest, IsNotMadeInAFilesPlace) {
    folder.write("kept", "a file");
    EXPECT_EQ(files::makePrivateFolder(path), std::errc::not_a_directory);
}

}  // namespace
}  // namespace corvane
