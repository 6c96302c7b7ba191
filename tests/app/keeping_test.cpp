// What the windows hand to the keeper, and when.

#include <QSessionManager>
#include <array>
#include <csignal>
#include <cstddef>
#include <filesystem>

#include "app/orderly_end.h"
#include "keeping_fixture.h"

namespace corvane {
namespace {

TEST_F(KeepingTest, EditsAreHandedOverAWhileLater) {
    openModel("hero.mdl");
    letTimePass();
    EXPECT_EQ(reasons(), nothing) << "nothing was edited";
    edit();
    letTimePass();
    EXPECT_EQ(reasons(), Lines{"ended unexpectedly"});
    EXPECT_NE(newest(), modelWithGeosets(1));
    EXPECT_NE(newest().find("Vertices 3"), std::string::npos);
}

TEST_F(KeepingTest, EditsThatWereUndoneAreForgotten) {
    openModel("hero.mdl");
    edit();
    letTimePass();
    choose("mnuUndo");
    while (window->isWindowModified()) choose("mnuUndo");
    letTimePass();
    EXPECT_EQ(reasons(), nothing);
}

TEST_F(KeepingTest, UnsavedTextureCoordinatesAreHandedOverToo) {
    openTextureEditor();
    ASSERT_TRUE(uv().dataReceived);
    window->textureEditor()->findChild<QAction*>("mnuSelectAll")->trigger();
    dragInView(Qt::RightButton, {100, 100}, {160, 100});
    ASSERT_TRUE(uv().unsaved);
    EXPECT_FALSE(window->isWindowModified());
    letTimePass();
    EXPECT_EQ(reasons(), Lines{"ended unexpectedly"});
    EXPECT_NE(newest(), modelWithGeosets(1));
    uvWindow().close();
    EXPECT_EQ(reasons(), (Lines{"texture coordinates were dropped", "ended unexpectedly"}));
    letTimePass();
    EXPECT_EQ(reasons().size(), 2U) << "the edits go on";
    closeWindow();
    startProgram();
    EXPECT_EQ(reasons(), Lines{"texture coordinates were dropped"});
}

TEST_F(KeepingTest, TextureCoordinatesOfAGeosetThatLeftMemoryAreKeptToo) {
    openTextureEditor();
    choose("mnuSwitchGeoset");
    ASSERT_FALSE(window->isWindowModified());
    window->textureEditor()->findChild<QAction*>("mnuSelectAll")->trigger();
    dragInView(Qt::RightButton, {100, 100}, {160, 100});
    letTimePass();
    ASSERT_EQ(reasons(), Lines{"ended unexpectedly, texture coordinates"});
    const std::string first = newest();
    EXPECT_NE(first, modelWithGeosets(1));
    dragInView(Qt::RightButton, {100, 100}, {160, 100});
    letTimePass();
    ASSERT_EQ(reasons(), Lines{"ended unexpectedly, texture coordinates"});
    EXPECT_NE(newest(), first);
    edit();
    letTimePass();
    EXPECT_EQ(reasons(), (Lines{"ended unexpectedly", "ended unexpectedly, texture coordinates"}));
    closeWindow();
    startProgram();
    EXPECT_EQ(reasons(), (Lines{"texture coordinates were dropped", "closed without saving"}));
}

TEST_F(KeepingTest, AnotherHandOverKeepsThoseOfAGeosetThatLeftMemory) {
    openTextureEditor();
    choose("mnuSwitchGeoset");
    window->textureEditor()->findChild<QAction*>("mnuSelectAll")->trigger();
    dragInView(Qt::RightButton, {100, 100}, {160, 100});
    choose("mnuUVMapping");
    EXPECT_EQ(reasons(), Lines{"texture coordinates were dropped"});
    EXPECT_NE(newest(), modelWithGeosets(1));
    EXPECT_FALSE(uv().leftMesh.has_value());
}

TEST_F(KeepingTest, ADeletedEntryIsNotTakenForOneThatIsThere) {
    openModel("hero.mdl");
    edit();
    window->keepUnsaved();
    ASSERT_EQ(reasons(), Lines{"ended by the system"});
    choose("mnuRecover");
    dialogs.yesNos = {true};
    recoverButton("cmdRecoverDelete").click();
    ASSERT_EQ(reasons(), nothing);
    recoverWindow().close();
    closeWindow();
    startProgram();
    EXPECT_EQ(reasons(), Lines{"closed without saving"});
}

TEST_F(KeepingTest, ClosingKeepsWhatItDropsAndAsksNothing) {
    const std::string path = openModel("hero.mdl");
    edit();
    closeWindow();
    EXPECT_TRUE(dialogs.asked.size() == 1U) << "the Open dialog";
    EXPECT_EQ(readFile(path), modelWithGeosets(1));
    startProgram();
    EXPECT_EQ(reasons(), Lines{"closed without saving"});
    EXPECT_EQ(dialogs.asked.size(), 1U) << "closing is no unexpected end";
}

TEST_F(KeepingTest, ClosingASavedModelKeepsNothing) {
    openModel("hero.mdl");
    edit();
    letTimePass();
    choose("mnuUndo");
    while (window->isWindowModified()) choose("mnuUndo");
    closeWindow();
    startProgram();
    EXPECT_EQ(reasons(), nothing);
}

TEST_F(KeepingTest, WhatCannotBeKeptIsSaidAndStopsNothing) {
    folder.write("kept", "a file");
    openModel("hero.mdl");
    edit();
    letTimePass();
    QApplication::processEvents();
    EXPECT_TRUE(item("mnuRecover").text().contains("Not a directory"))
        << item("mnuRecover").text().toStdString();
    EXPECT_TRUE(tip().contains("Not a directory")) << tip().toStdString();
    choose("mnuSave");
    EXPECT_FALSE(window->isWindowModified());
    edit();
    letTimePass();
    std::filesystem::remove(kept());
    letTimePass();  // tried again without a further edit
    QApplication::processEvents();
    EXPECT_EQ(item("mnuRecover").text(), "&Recover...");
    EXPECT_EQ(reasons(), (Lines{"replaced by a save", "ended unexpectedly"}));
}

TEST_F(KeepingTest, ClosingAsksWhereItsEditsCannotBeKept) {
    folder.write("kept", "a file");
    openModel("hero.mdl");
    edit();
    dialogs.yesNos = {false};
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(editor().store.modelLoaded);
    EXPECT_NE(dialogs.last().text.find("Not a directory"), std::string::npos)
        << dialogs.last().text;
    dialogs.yesNos = {true};
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(dialogs.yesNos.empty());
}

TEST_F(KeepingTest, ClosingAsksWhereWhatWasDroppedBeforeCouldNotBeKept) {
    openModel("hero.mdl");
    edit();
    folder.write("kept", "a file");
    openModel("orc.mdl");  // drops the edits
    dialogs.yesNos = {false};
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_NE(dialogs.last().text.find("Edits that were dropped"), std::string::npos)
        << dialogs.last().text;
    std::filesystem::remove(kept());
    closeWindow();
    EXPECT_TRUE(dialogs.yesNos.empty()) << "now they can be kept, so nothing is asked";
    startProgram();
    EXPECT_EQ(reasons(), Lines{"another model was opened"});
}

TEST_F(KeepingTest, ClosingKeepsAgainWhatIsNoLongerThere) {
    openModel("hero.mdl");
    edit();
    window->keepUnsaved();
    const std::string kept = newest();
    std::filesystem::remove_all(folder.path("kept"));
    closeWindow();
    startProgram();
    EXPECT_EQ(reasons(), Lines{"closed without saving"});
    EXPECT_EQ(newest(), kept);
}

TEST_F(KeepingTest, ANoticeStaysWhereSomethingCannotBeKept) {
    folder.write("kept", "a file");
    openModel("hero.mdl");
    editor().window.showNotice("Undo took them back.");
    edit();
    letTimePass();
    QApplication::processEvents();
    EXPECT_TRUE(tip().startsWith("Undo took them back.")) << tip().toStdString();
    EXPECT_TRUE(tip().contains("Not a directory")) << tip().toStdString();
}

TEST_F(KeepingTest, EditsThatWereOnlyHandedOverAreKeptWhenTheWindowCloses) {
    openModel("hero.mdl");
    edit();
    folder.write("kept", "a file");
    window->keepUnsaved();  // cannot be written
    std::filesystem::remove(kept());
    letTimePass();
    closeWindow();
    dialogs.yesNos = {false};
    startProgram();
    ASSERT_FALSE(reasons().empty());
    EXPECT_NE(newest(), modelWithGeosets(1));
}

TEST_F(KeepingTest, ASaveLeavesTheTextureCoordinatesThatItDoesNotWrite) {
    openTextureEditor();
    window->textureEditor()->findChild<QAction*>("mnuSelectAll")->trigger();
    dragInView(Qt::RightButton, {100, 100}, {160, 100});
    letTimePass();
    const std::string kept = newest();
    choose("mnuSave");
    EXPECT_EQ(reasons(), Lines{"ended unexpectedly"});
    EXPECT_EQ(newest(), kept);
}

TEST_F(KeepingTest, ASignalEndsTheProgramInOrder) {
    openModel("hero.mdl");
    edit();
    letTimePass();
    bool ended = false;
    const EndSignals signals([&] {
        window->endInOrder();
        ended = true;
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        ended = false;
        ::raise(signal);
        while (!ended) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(reasons(), Lines{"ended by the system"});
    EXPECT_FALSE(std::filesystem::exists(folder.path("hero_TMP.tdl")));
}

TEST(QuitInDialogTest, IsToldOfBeforeTheDialogIsClosed) {
    int told = 0;
    QuitInDialog quitInDialog([&told] { ++told; });
    QEvent quit(QEvent::Quit);
    // Where it goes on the application would end.
    EXPECT_FALSE(quitInDialog.eventFilter(qApp, &quit)) << "no dialog is there";
    EXPECT_EQ(told, 0);
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    EXPECT_TRUE(QCoreApplication::sendEvent(qApp, &quit));
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(dialog.isVisible());
    dialog.close();
    EXPECT_FALSE(quitInDialog.eventFilter(qApp, &quit));
    EXPECT_EQ(told, 1);
}

TEST_F(KeepingTest, TheEndOfTheSessionKeepsWhatIsUnsaved) {
    const std::string path = openModel("hero.mdl");
    edit();
    window->keepUnsaved();
    EXPECT_EQ(reasons(), Lines{"ended by the system"});
    EXPECT_TRUE(std::filesystem::exists(folder.path("hero_TMP.tdl"))) << "it may go on";
    closeWindow();
    dialogs.yesNos = {false};
    startProgram();
    EXPECT_EQ(reasons(), Lines{"ended by the system"}) << "closing adds nothing to it";
    EXPECT_NE(dialogs.last().text.find("was ended while geoset 1 of " + path), std::string::npos)
        << dialogs.last().text;
}

TEST_F(KeepingTest, TheSessionsEndIsHeardOf) {
    openModel("hero.mdl");
    edit();
    // Only the session can make a manager; nobody asks this one anything.
    alignas(QSessionManager) std::array<std::byte, sizeof(QSessionManager)> manager{};
    qApp->commitDataRequest(*reinterpret_cast<QSessionManager*>(manager.data()));
    EXPECT_EQ(reasons(), Lines{"ended by the system"});
}

}  // namespace
}  // namespace corvane
