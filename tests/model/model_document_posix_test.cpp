// The open model's working copy, with the permissions and links of systems of the Unix kind.
#include <sys/stat.h>
#include <unistd.h>

#include "forked_child.h"
#include "model_document_fixture.h"

namespace corvane {
namespace {

class ModelDocumentPosixTest : public ModelDocumentTest {};

TEST_F(ModelDocumentPosixTest, TheWorkingCopyTakesThePermissionsOfTheModel) {
    const std::string path = folder.write("hero.mdl", kModel);
    ASSERT_EQ(::chmod(path.c_str(), 0440), 0);
    open(path);
    struct stat status {};
    ASSERT_EQ(::stat(document.workPath.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(ModelDocumentPosixTest, OpeningKeepsTheWorkingCopyThatTwoPathsLeadTo) {
    makeFolder("models");
    ASSERT_EQ(::symlink("models", folder.path("link").c_str()), 0);
    open(folder.write("models/hero.mdl", kModel));
    open(folder.path("link/hero.mdl"), kTwo);
    EXPECT_EQ(document.workPath, folder.path("link/hero_TMP.tdl"));
    EXPECT_EQ(readFile(folder.path("models/hero_TMP.tdl")), kTwo);
}

TEST_F(ModelDocumentPosixTest, ALeftoverThatMayNotBeWrittenIsReplaced) {
    const std::string path = folder.write("hero.mdl", kModel);
    const std::string leftover = folder.write("hero_TMP.tdl", "left by a crash");
    giveToUnprivilegedUser(folder.path(""));
    giveToUnprivilegedUser(path);
    giveToUnprivilegedUser(leftover);
    ASSERT_EQ(::chmod(leftover.c_str(), 0444), 0);
    const ChildResult child = asUnprivilegedUser([&] {
        open(path);
        return readFile(document.workPath);
    });
    EXPECT_EQ(child.said, kModel);
    EXPECT_EQ(readFile(leftover), kModel);
}

}  // namespace
}  // namespace corvane
