// How what was kept is offered, listed and brought back.

#include <algorithm>
#include <filesystem>

#include "keeping_fixture.h"

namespace corvane {
namespace {

TEST_F(KeepingTest, AfterAnUnexpectedEndTheEditsAreOfferedOnce) {
    const std::string path = openModel("hero.mdl");
    edit();
    letTimePass();
    endUnexpectedly();
    dialogs.yesNos = {false};
    startProgram();
    EXPECT_NE(dialogs.last().text.find("geoset 1 of " + path), std::string::npos)
        << dialogs.last().text;
    EXPECT_FALSE(editor().store.modelLoaded);
    endUnexpectedly();
    startProgram();  // a second question would have no answer
    EXPECT_EQ(reasons(), Lines{"ended unexpectedly"});
}

TEST_F(KeepingTest, OfferedEditsAreOpenedUnsavedInTheirPlace) {
    const std::string path = openModel("hero.mdl");
    edit();
    letTimePass();
    const std::vector<VertexRecord> edited = editor().store.Vertices;
    endUnexpectedly();
    dialogs.yesNos = {true};
    startProgram();
    EXPECT_EQ(editor().store.modelPath, path);
    EXPECT_EQ(editor().store.Vertices[0].pos, edited[0].pos);
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(reasons(), (Lines{"ended unexpectedly", "ended unexpectedly"})) << "the edits go on";
    choose("mnuSave");
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_NE(readFile(path), modelWithGeosets(1));
}

TEST_F(KeepingTest, SavingWhatWasBroughtBackAsksWhereTheModelChangedSince) {
    const std::string path = openModel("hero.mdl");
    edit();
    letTimePass();
    endUnexpectedly();
    folder.write("hero.mdl", modelWithGeosets(2));
    dialogs.yesNos = {true, false};
    startProgram();
    choose("mnuSave");
    EXPECT_NE(dialogs.last().text.find("was changed by another program"), std::string::npos);
    EXPECT_EQ(readFile(path), modelWithGeosets(2));
}

TEST_F(KeepingTest, WhatWasBroughtBackStaysUnsavedWhenAnotherGeosetIsRead) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    choose("mnuRecover");
    recoverButton("cmdRecoverOpen").click();
    EXPECT_FALSE(recoverWindow().isVisible());
    choose("mnuSwitchGeoset");
    EXPECT_TRUE(window->isWindowModified()) << "its text is in no file";
}

TEST_F(KeepingTest, OpeningKeepsTheEditsThatItDrops) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    openModel("orc.mdl");
    edit();
    choose("mnuRecover");
    recoverButton("cmdRecoverOpen").click();
    EXPECT_EQ(std::filesystem::path(editor().store.modelPath).filename(), "hero.mdl");
    EXPECT_EQ(reasons(),
              (Lines{"ended unexpectedly", "another model was opened", "closed without saving"}));
}

// What is kept for it must not push out the one that is opened.
TEST_F(KeepingTest, OpeningTheOldestOfAsManyAsAreKeptLeavesItThere) {
    const std::string path = folder.write("hero.mdl", modelWithGeosets(1));
    for (std::size_t i = 0; i < KeptLimits{}.entriesOfModel; ++i) {
        const std::string text = "Geoset {\n" + std::string(i, '\n');  // cannot be opened
        keeper->keepReplaced(std::make_shared<const ModelBase>(ModelText(path, text)), path);
    }
    openModel("hero.mdl");
    edit();
    choose("mnuRecover");
    list().setCurrentItem(list().topLevelItem(list().topLevelItemCount() - 1));
    recoverButton("cmdRecoverOpen").click();
    EXPECT_EQ(dialogs.last().kind, "message");
    keeper->finish();
    const std::vector<KeptEntry> left = readEntries(kept());
    ASSERT_FALSE(left.empty());
    EXPECT_EQ(readFile(keptModelPath(kept(), left.back().name)), "Geoset {\n");
}

TEST_F(KeepingTest, OpeningKeepsTheTextWithoutARemovedGeosetToo) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    dialogs.inputs = {"1"};
    openModel("orc.mdl", modelWithGeosets(2));
    dialogs.yesNos = {true};
    choose("mnuDelCurrentGeoset");
    const std::string without(editor().store.base().text.view());
    choose("mnuRecover");
    recoverButton("cmdRecoverOpen").click();
    keeper->finish();
    std::vector<std::string> texts;
    for (const KeptEntry& entry : readEntries(kept())) {
        texts.push_back(readFile(keptModelPath(kept(), entry.name)));
    }
    EXPECT_EQ(std::ranges::count(texts, without), 1);
}

TEST_F(KeepingTest, OpeningKeepsTextureCoordinatesThatItDrops) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    openTextureEditor();
    window->textureEditor()->findChild<QAction*>("mnuSelectAll")->trigger();
    dragInView(Qt::RightButton, {100, 100}, {160, 100});
    letTimePass();
    const std::string coordinates = newest();
    choose("mnuRecover");
    list().setCurrentItem(list().topLevelItem(list().topLevelItemCount() - 1));
    recoverButton("cmdRecoverOpen").click();
    keeper->finish();
    const std::vector<KeptEntry> entries = readEntries(kept());
    const auto dropped =
        std::ranges::find(entries, KeptBecause::AnotherOpened, &KeptEntry::because);
    ASSERT_NE(dropped, entries.end());
    EXPECT_EQ(readFile(keptModelPath(kept(), dropped->name)), coordinates);
}

TEST_F(KeepingTest, ACopyOverAFileKeepsWhatItHeld) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    choose("mnuRecover");
    dialogs.files = {folder.write("copy.mdl", "somebody's notes")};
    recoverButton("cmdRecoverCopy").click();
    EXPECT_EQ(reasons(), (Lines{"replaced by a save", "closed without saving"}));
    EXPECT_EQ(newest(), "somebody's notes");
}

TEST_F(KeepingTest, WhatASaveReplacedIsOpenedWithTheGeosetThatTheUserChooses) {
    const std::string path = folder.path("hero.mdl");
    keeper->keepReplaced(std::make_shared<const ModelBase>(ModelText(path, modelWithGeosets(3))),
                         path);
    folder.write("hero.mdl", modelWithGeosets(1));
    choose("mnuRecover");
    EXPECT_EQ(list().topLevelItem(0)->text(3), "replaced by a save");
    dialogs.inputs = {"3"};
    recoverButton("cmdRecoverOpen").click();
    EXPECT_EQ(editor().store.geosetNumber, 3);
    dialogs.yesNos = {true};  // the file holds what replaced it
    choose("mnuSave");
    EXPECT_EQ(readFile(path), modelWithGeosets(3));
}

TEST_F(KeepingTest, AnEntryThatCannotBeOpenedChangesNothing) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    folder.write("kept/" + readEntries(kept()).at(0).name + ".mdl", "Geoset {\n");
    choose("mnuRecover");
    recoverButton("cmdRecoverOpen").click();
    EXPECT_EQ(dialogs.last().kind, "message");
    EXPECT_FALSE(editor().store.modelLoaded);
    EXPECT_TRUE(recoverWindow().isVisible());
    EXPECT_EQ(reasons(), Lines{"closed without saving"});
}

TEST_F(KeepingTest, TheListShowsWhatThereIsWithAPicture) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    choose("mnuRecover");
    ASSERT_EQ(list().topLevelItemCount(), 1);
    EXPECT_EQ(list().topLevelItem(0)->text(1), "hero.mdl");
    EXPECT_EQ(list().topLevelItem(0)->text(2), "1");
    EXPECT_EQ(list().topLevelItem(0)->text(3), "closed without saving");
    const auto* const picture = recoverWindow().findChild<PictureBox*>("pbxRecover");
    EXPECT_FALSE(picture->drawn().empty());
    EXPECT_TRUE(recoverWindow().isModal());
    dialogs.yesNos = {true};
    recoverButton("cmdRecoverDelete").click();
    EXPECT_EQ(list().topLevelItemCount(), 0);
    EXPECT_TRUE(picture->drawn().empty());
    EXPECT_FALSE(recoverButton("cmdRecoverOpen").isEnabled());
    EXPECT_EQ(reasons(), nothing);
}

TEST_F(KeepingTest, ACopyTakesNoNameThatExists) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    folder.write("hero-recovered.mdl", "a copy from before");
    choose("mnuRecover");
    dialogs.files = {folder.path("copy.mdl")};
    recoverButton("cmdRecoverCopy").click();
    EXPECT_EQ(dialogs.last().defaultText, folder.path("hero-recovered-2.mdl"));
    EXPECT_EQ(readFile(folder.path("copy.mdl")), newest());
    dialogs.files = {folder.path("missing/copy.mdl")};
    recoverButton("cmdRecoverCopy").click();
    EXPECT_EQ(dialogs.last().kind, "message");
}

TEST_F(KeepingTest, ACopyIsNotWrittenOverTheWorkingCopy) {
    openModel("hero.mdl");
    edit();
    closeWindow();
    startProgram();
    openModel("orc.mdl");
    choose("mnuRecover");
    dialogs.files = {folder.path("orc_TMP.tdl")};
    recoverButton("cmdRecoverCopy").click();
    EXPECT_NE(dialogs.last().text.find("is the working copy of the model that is open"),
              std::string::npos)
        << dialogs.last().text;
    EXPECT_EQ(readFile(folder.path("orc_TMP.tdl")), modelWithGeosets(1));
}

TEST_F(KeepingTest, AModelWithoutAGeosetThatIsBroughtBackIsSaidToHaveNone) {
    const std::string path = folder.write("hero.mdl", modelWithGeosets(1));
    keeper->keepReplaced(std::make_shared<const ModelBase>(ModelText(path, modelWithGeosets(0))),
                         path);
    choose("mnuRecover");
    recoverButton("cmdRecoverOpen").click();
    EXPECT_NE(dialogs.last().text.find("holds no geoset"), std::string::npos);
    EXPECT_TRUE(editor().store.modelLoaded);
}

TEST_F(KeepingTest, AnEntryWhoseJsonIsDamagedCanBeCopiedOnly) {
    openModel("hero.mdl");
    edit();
    window->close();
    const std::string model = newest();
    endUnexpectedly();
    folder.write("kept/" + readEntries(kept()).at(0).name + ".json", "{");
    startProgram();
    choose("mnuRecover");
    ASSERT_EQ(list().topLevelItemCount(), 1);
    EXPECT_EQ(list().topLevelItem(0)->text(3), "damaged: only the model is left");
    EXPECT_FALSE(recoverButton("cmdRecoverOpen").isEnabled());
    dialogs.files = {folder.path("copy.mdl")};
    recoverButton("cmdRecoverCopy").click();
    EXPECT_EQ(readFile(folder.path("copy.mdl")), model);
}

}  // namespace
}  // namespace corvane
