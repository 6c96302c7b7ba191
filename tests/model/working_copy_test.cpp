#include "model/working_copy.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>

#include "editor_fixture.h"
#include "forked_child.h"

namespace corvane {
namespace {

using Names = std::vector<std::string>;

const std::string kModel = "Geoset {\n\tVertices 1 {\n\t\t{ 1, 2, 3 },\n\t}\n}\n";

class WorkingCopyTest : public testing::Test {
protected:
    void makeFolder(const std::string& name) {
        ASSERT_EQ(::mkdir(folder.path(name).c_str(), 0755), 0);
    }

    // Makes the model at `modelPath` current, as opening it does.
    void open(const std::string& modelPath, const std::string& text) {
        const std::array<std::string_view, 1> pieces = {text};
        PendingFile prepared = prepareWorkingCopy(modelPath, pieces);
        commitWorkingCopy(store, copy, prepared, modelPath);
        store.modelPath = modelPath;
        store.geosetNumber = 1;
        store.modelLoaded = true;
    }

    void rewrite(const std::string& newText) {
        const std::array<std::string_view, 1> pieces = {newText};
        rewriteWorkingCopy(store, copy, pieces);
    }

    std::string text() const { return std::string(readWorkingCopy(store, copy).view()); }

    TempFolder folder;
    GeosetStore store;
    WorkingCopy copy;
};

TEST_F(WorkingCopyTest, StandsBesideTheModel) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path, kModel);
    EXPECT_EQ(store.workPath, folder.path("hero_TMP.tdl"));
    EXPECT_EQ(readFile(store.workPath), kModel);
    EXPECT_EQ(readFile(path), kModel);
    EXPECT_EQ(text(), kModel);
    EXPECT_FALSE(isModelChangedOutside(store, copy));
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(WorkingCopyTest, IsNotInPlaceBeforeItIsCommitted) {
    const std::string path = folder.write("hero.mdl", kModel);
    {
        const std::array<std::string_view, 1> pieces = {kModel};
        const PendingFile prepared = prepareWorkingCopy(path, pieces);
        EXPECT_FALSE(std::filesystem::exists(folder.path("hero_TMP.tdl")));
    }
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(WorkingCopyTest, TakesThePermissionsOfTheModel) {
    const std::string path = folder.write("hero.mdl", kModel);
    ASSERT_EQ(::chmod(path.c_str(), 0440), 0);
    open(path, kModel);
    struct stat status {};
    ASSERT_EQ(::stat(store.workPath.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(WorkingCopyTest, CommitDeletesTheOneBefore) {
    open(folder.write("hero.mdl", kModel), kModel);
    open(folder.write("tree.mdl", kModel), "tree");
    EXPECT_EQ(store.workPath, folder.path("tree_TMP.tdl"));
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "tree.mdl", "tree_TMP.tdl"}));
    EXPECT_EQ(text(), "tree");
}

TEST_F(WorkingCopyTest, CommitReplacesTheOneOfTheSameModel) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path, kModel);
    open(path, "again");
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
    EXPECT_EQ(text(), "again");
}

TEST_F(WorkingCopyTest, CommitKeepsTheFileThatTwoPathsLeadTo) {
    makeFolder("models");
    ASSERT_EQ(::symlink("models", folder.path("link").c_str()), 0);
    open(folder.write("models/hero.mdl", kModel), kModel);
    open(folder.path("link/hero.mdl"), "again");
    EXPECT_EQ(store.workPath, folder.path("link/hero_TMP.tdl"));
    EXPECT_EQ(readFile(folder.path("models/hero_TMP.tdl")), "again");
    EXPECT_EQ(text(), "again");
}

TEST_F(WorkingCopyTest, IsUnchangedWhenTheNextOneCannotBePrepared) {
    open(folder.write("hero.mdl", kModel), kModel);
    const std::array<std::string_view, 1> pieces = {"tree"};
    EXPECT_THROW(prepareWorkingCopy(folder.path("missing/tree.mdl"), pieces), FileError);
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
    EXPECT_EQ(text(), kModel);
}

TEST_F(WorkingCopyTest, IsUnchangedWhenTheNextOneCannotBeCommitted) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path, kModel);
    makeFolder("trees");
    const std::array<std::string_view, 1> pieces = {"tree"};
    PendingFile prepared = prepareWorkingCopy(folder.path("trees/tree.mdl"), pieces);
    std::filesystem::remove_all(folder.path("trees"));
    EXPECT_THROW(commitWorkingCopy(store, copy, prepared, folder.path("trees/tree.mdl")),
                 FileError);
    EXPECT_EQ(store.workPath, folder.path("hero_TMP.tdl"));
    EXPECT_EQ(copy.modelPath, path);
    EXPECT_EQ(text(), kModel);
}

TEST_F(WorkingCopyTest, ReplacesALeftoverThatMayNotBeWritten) {
    const std::string path = folder.write("hero.mdl", kModel);
    const std::string leftover = folder.write("hero_TMP.tdl", "left by a crash");
    giveToUnprivilegedUser(folder.path(""));
    giveToUnprivilegedUser(path);
    giveToUnprivilegedUser(leftover);
    ASSERT_EQ(::chmod(leftover.c_str(), 0444), 0);
    const ChildResult child = asUnprivilegedUser([&] {
        open(path, kModel);
        return text();
    });
    EXPECT_EQ(child.said, kModel);
    EXPECT_EQ(readFile(leftover), kModel);
}

TEST_F(WorkingCopyTest, IsRewrittenWhereItIs) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path, kModel);
    rewrite("less");
    EXPECT_EQ(readFile(store.workPath), "less");
    EXPECT_EQ(text(), "less");
    EXPECT_EQ(readFile(path), kModel);
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(WorkingCopyTest, IsUnchangedWhenItCannotBeRewritten) {
    makeFolder("models");
    open(folder.write("models/hero.mdl", kModel), kModel);
    std::filesystem::remove_all(folder.path("models"));
    EXPECT_THROW(rewrite("less"), FileError);
    EXPECT_EQ(text(), kModel);
}

TEST_F(WorkingCopyTest, ItsTextOutlivesItsFile) {
    open(folder.write("hero.mdl", kModel), kModel);
    EXPECT_TRUE(isWorkingCopyThere(store));
    deleteFile(store.workPath);
    EXPECT_FALSE(isWorkingCopyThere(store));
    EXPECT_EQ(text(), kModel);
    for (int i = 0; i < 3; ++i) {
        deleteFile(store.workPath);
        EXPECT_TRUE(restoreWorkingCopy(store, copy));
        EXPECT_EQ(readFile(store.workPath), kModel);
    }
}

TEST_F(WorkingCopyTest, ItsTextOutlivesItsFolder) {
    makeFolder("models");
    open(folder.write("models/hero.mdl", kModel), kModel);
    std::filesystem::remove_all(folder.path("models"));
    EXPECT_FALSE(restoreWorkingCopy(store, copy));
    EXPECT_EQ(text(), kModel);
    open(folder.write("tree.mdl", "tree"), "tree");
    EXPECT_EQ(text(), "tree");
}

TEST_F(WorkingCopyTest, AnotherWindowsFileInItsPlaceIsNeitherReadNorDeleted) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path, kModel);
    {
        GeosetStore otherStore;
        WorkingCopy otherCopy;
        const std::array<std::string_view, 1> pieces = {"of another window"};
        PendingFile prepared = prepareWorkingCopy(path, pieces);
        commitWorkingCopy(otherStore, otherCopy, prepared, path);
    }
    EXPECT_EQ(readFile(store.workPath), "of another window");
    EXPECT_EQ(text(), kModel);
    deleteWorkingCopy(store, copy);
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(WorkingCopyTest, CommitLeavesAnotherWindowsFileWhereTheOldOneWas) {
    open(folder.write("hero.mdl", kModel), kModel);
    deleteFile(store.workPath);
    folder.write("hero_TMP.tdl", "of another window");
    open(folder.write("tree.mdl", kModel), "tree");
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), "of another window");
    EXPECT_EQ(text(), "tree");
}

TEST_F(WorkingCopyTest, IsRestoredWithTheTextThatItHadLast) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path, kModel);
    rewrite("a geoset less");
    deleteFile(store.workPath);
    EXPECT_TRUE(restoreWorkingCopy(store, copy));
    EXPECT_EQ(readFile(store.workPath), "a geoset less");
    EXPECT_EQ(text(), "a geoset less");
    EXPECT_EQ(readFile(path), kModel);
}

TEST_F(WorkingCopyTest, NoticesThatTheModelWasWrittenOutside) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path, kModel);
    folder.write("hero.mdl", kModel + "// edited elsewhere\n");
    EXPECT_TRUE(isModelChangedOutside(store, copy));
    noteModelWritten(store, copy);
    EXPECT_FALSE(isModelChangedOutside(store, copy));
    deleteFile(path);
    EXPECT_FALSE(isModelChangedOutside(store, copy)) << "nothing is there to be lost";
    store.modelPath = folder.write("other.mdl", kModel);
    EXPECT_FALSE(isModelChangedOutside(store, copy)) << "nothing is known of another file";
}

TEST_F(WorkingCopyTest, CannotBeRestoredBeforeAModelIsOpen) {
    store.workPath = folder.path("hero_TMP.tdl");
    store.modelPath = folder.path("hero.mdl");
    EXPECT_FALSE(restoreWorkingCopy(store, copy));
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(WorkingCopyTest, IsDeletedInTheEnd) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path, kModel);
    deleteWorkingCopy(store, copy);
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
    EXPECT_EQ(store.workPath, "");
    EXPECT_EQ(copy.handle, -1);
    EXPECT_EQ(readFile(path), kModel);
    deleteWorkingCopy(store, copy);  // there is none any more
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

}  // namespace
}  // namespace corvane
