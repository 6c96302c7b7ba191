#include "model/model_document.h"

#include <filesystem>

#include "model_document_fixture.h"

namespace corvane {
namespace {

TEST_F(ModelDocumentTest, TheWorkingCopyStandsBesideTheModel) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    EXPECT_EQ(document.workPath, folder.path("hero_TMP.tdl"));
    EXPECT_EQ(readFile(document.workPath), kModel);
    EXPECT_EQ(readFile(path), kModel);
    EXPECT_EQ(text(), kModel);
    EXPECT_FALSE(document.isChangedOutside());
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(ModelDocumentTest, TheBlocksAreThoseOfTheText) {
    open(folder.write("hero.mdl", kTwo), kTwo);
    EXPECT_EQ(document.base().geosets.size(), 2U);
    EXPECT_FALSE(document.base().hasGeoset(0));
    EXPECT_TRUE(document.base().hasGeoset(2));
    EXPECT_FALSE(document.base().hasGeoset(3));
}

TEST_F(ModelDocumentTest, TheTextThatASaveReplacesIsOnlyReadWhereItIsNotInMemory) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    document.savePath = path;
    EXPECT_EQ(document.textThatASaveReplaces().text.get(), &document.base());
    document.savePath = folder.write("tree.mdl", kTwo);
    const FormerText other = document.textThatASaveReplaces();
    ASSERT_NE(other.text, nullptr);
    EXPECT_EQ(other.text->text.view(), kTwo);
}

TEST_F(ModelDocumentTest, TheWorkingCopyIsNotInPlaceBeforeTheModelIsOpen) {
    const std::string path = folder.write("hero.mdl", kModel);
    {
        const PendingFile prepared = prepareWorkingCopy(path, kModel);
        EXPECT_FALSE(std::filesystem::exists(folder.path("hero_TMP.tdl")));
    }
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ModelDocumentTest, OpeningDeletesTheWorkingCopyBefore) {
    open(folder.write("hero.mdl", kModel));
    open(folder.write("tree.mdl", kTwo), kTwo);
    EXPECT_EQ(document.workPath, folder.path("tree_TMP.tdl"));
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "tree.mdl", "tree_TMP.tdl"}));
    EXPECT_EQ(text(), kTwo);
}

TEST_F(ModelDocumentTest, OpeningAgainReplacesTheWorkingCopyOfTheSameModel) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    open(path, kTwo);
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
    EXPECT_EQ(readFile(document.workPath), kTwo);
}

TEST_F(ModelDocumentTest, NothingChangesWhereTheNextWorkingCopyCannotBePrepared) {
    open(folder.write("hero.mdl", kModel));
    EXPECT_THROW(prepareWorkingCopy(folder.path("missing/tree.mdl"), kTwo), FileError);
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
    EXPECT_EQ(text(), kModel);
}

TEST_F(ModelDocumentTest, NothingChangesWhereTheNextWorkingCopyCannotTakeItsPlace) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    makeFolder("trees");
    const std::string tree = folder.path("trees/tree.mdl");
    PendingFile prepared = prepareWorkingCopy(tree, kTwo);
    std::filesystem::remove_all(folder.path("trees"));
    EXPECT_THROW(
        document.open(tree, std::make_shared<const ModelBase>(ModelText(tree, kTwo)), {}, prepared),
        FileError);
    EXPECT_EQ(document.workPath, folder.path("hero_TMP.tdl"));
    EXPECT_EQ(document.modelPath, path);
    EXPECT_EQ(text(), kModel);
}

TEST_F(ModelDocumentTest, AWrittenTextIsInTheFileAndInMemoryAndThenInTheWorkingCopy) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    write(path, kTwo);
    EXPECT_EQ(readFile(path), kTwo);
    EXPECT_EQ(text(), kTwo);
    EXPECT_EQ(document.base().geosets.size(), 2U);
    EXPECT_FALSE(document.isChangedOutside());
    document.renewWorkingCopy();
    EXPECT_EQ(readFile(document.workPath), kTwo);
}

TEST_F(ModelDocumentTest, AWrittenTextToAnotherFileTakesTheWorkingCopyAlong) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    write(folder.path("other.mdl"), kTwo);
    document.renewWorkingCopy();
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "other.mdl", "other_TMP.tdl"}));
    EXPECT_EQ(readFile(path), kModel);
}

TEST_F(ModelDocumentTest, AFailedWriteChangesNothing) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    EXPECT_THROW(write(folder.path("missing/hero.mdl"), kTwo), FileError);
    document.modelPath = path;
    EXPECT_EQ(text(), kModel);
    EXPECT_EQ(document.base().geosets.size(), 1U);
    EXPECT_EQ(readFile(path), kModel);
    EXPECT_FALSE(document.isChangedOutside());
}

TEST_F(ModelDocumentTest, TheTextCanBeWrittenAsItIs) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    document.savePath = document.modelPath = folder.path("other.mdl");
    document.writeAsItIs();
    EXPECT_EQ(readFile(folder.path("other.mdl")), kModel);
    EXPECT_FALSE(document.isChangedOutside());
}

TEST_F(ModelDocumentTest, ARemovedGeosetIsGoneFromTheTextAndTheWorkingCopyAndNotFromTheFile) {
    const std::string path = folder.write("hero.mdl", kTwo);
    open(path, kTwo);
    EXPECT_FALSE(document.isGeosetRemoved());
    document.removeGeoset(pieced(kModel));
    EXPECT_TRUE(document.isGeosetRemoved());
    EXPECT_EQ(text(), kModel);
    EXPECT_EQ(readFile(document.workPath), kModel);
    EXPECT_EQ(readFile(path), kTwo);
    document.noteGeosetRead();
    EXPECT_FALSE(document.isGeosetRemoved());
}

TEST_F(ModelDocumentTest, ARemovalThatCannotBeWrittenChangesNothing) {
    makeFolder("models");
    open(folder.write("models/hero.mdl", kTwo), kTwo);
    std::filesystem::remove_all(folder.path("models"));
    EXPECT_THROW(document.removeGeoset(pieced(kModel)), FileError);
    EXPECT_FALSE(document.isGeosetRemoved());
    EXPECT_EQ(text(), kTwo);
}

TEST_F(ModelDocumentTest, TheTextOutlivesTheWorkingCopyWhichIsPutBack) {
    open(folder.write("hero.mdl", kModel));
    for (int i = 0; i < 3; ++i) {
        deleteFile(document.workPath);
        EXPECT_EQ(text(), kModel);
        document.renewWorkingCopy();
        EXPECT_EQ(readFile(document.workPath), kModel);
    }
    document.close();
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ModelDocumentTest, AnotherWindowsWorkingCopyIsNotDeleted) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    ModelDocument other;
    open(other, path, kTwo);
    EXPECT_EQ(readFile(document.workPath), kTwo);
    document.close();
    EXPECT_EQ(readFile(other.workPath), kTwo);
    other.close();
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ModelDocumentTest, AForeignFileInTheWorkingCopysPlaceIsLeftByOpeningAndClosing) {
    open(folder.write("hero.mdl", kModel));
    deleteFile(document.workPath);
    folder.write("hero_TMP.tdl", "of another window");
    open(folder.write("tree.mdl", kTwo), kTwo);
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), "of another window");
    folder.write("tree_TMP.tdl", "of another window, too");
    document.close();
    EXPECT_EQ(readFile(folder.path("tree_TMP.tdl")), "of another window, too");
}

TEST_F(ModelDocumentTest, NoticesThatTheModelWasWrittenOutside) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    folder.write("hero.mdl", kModel + "// edited elsewhere\n");
    EXPECT_TRUE(document.isChangedOutside());
    write(path, kModel);
    EXPECT_FALSE(document.isChangedOutside());
    deleteFile(path);
    EXPECT_FALSE(document.isChangedOutside()) << "nothing is there to be lost";
    document.modelPath = folder.write("other.mdl", kModel);
    EXPECT_FALSE(document.isChangedOutside()) << "nothing is known of another file";
}

TEST_F(ModelDocumentTest, IsClosedWithoutATrace) {
    const std::string path = folder.write("hero.mdl", kModel);
    open(path);
    document.close();
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
    EXPECT_EQ(document.workPath, "");
    EXPECT_EQ(readFile(path), kModel);
    document.close();  // there is none any more
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

}  // namespace
}  // namespace corvane
