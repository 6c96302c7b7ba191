// What the windows hand to the keeper, and how it comes back.

#include <QPushButton>
#include <QTreeWidget>
#include <csignal>
#include <filesystem>

#include "app/orderly_end.h"
#include "uv_window_fixture.h"

namespace corvane {
namespace {

class KeepingTest : public UVWindowTest {
protected:
    std::unique_ptr<Keeper> keeper;

    void SetUp() override { startProgram(); }
    void TearDown() override {
        UVWindowTest::TearDown();
        keeper.reset();
    }

    std::string kept() const { return folder.path("kept"); }

    void startProgram() {
        keeper = std::make_unique<Keeper>(KeeperOptions{.folder = kept()});
        window = std::make_unique<frmCorvane>(dialogs, UserNumberFormat{}, keeper.get());
        window->show();
        window->start();
        QApplication::processEvents();
    }

    /// The program ends with no chance to do anything more.
    void endUnexpectedly() {
        window.reset();
        keeper.reset();
    }

    void closeWindow() {
        window->close();
        endUnexpectedly();
    }

    /// Lets the time pass after which edits are handed over.
    void letTimePass() {
        auto& timer = find<QTimer>("tmrKeep");
        EXPECT_LE(timer.interval(), 10'000);
        if (!timer.isActive()) return;
        timer.setInterval(0);
        bool passed = false;
        const auto connection =
            QObject::connect(&timer, &QTimer::timeout, [&passed] { passed = true; });
        while (!passed) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QObject::disconnect(connection);
        timer.setInterval(5000);
        keeper->finish();
    }

    /// Why each entry was kept, newest first.
    std::vector<std::string> reasons() const {
        keeper->finish();
        std::vector<std::string> texts;
        for (const KeptEntry& entry : readEntries(kept())) {
            texts.emplace_back(reasonText(entry.because));
        }
        return texts;
    }

    /// The model of the newest entry.
    std::string newest() const {
        return readFile(keptModelPath(kept(), readEntries(kept()).at(0).name));
    }

    frmRecover& recoverWindow() const { return *window->recoverWindow(); }
    QTreeWidget& list() const { return *recoverWindow().findChild<QTreeWidget*>("lstRecover"); }
    QPushButton& recoverButton(const QString& name) const {
        return *recoverWindow().findChild<QPushButton*>(name);
    }

    using Lines = std::vector<std::string>;
    const Lines nothing{};
};

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
    EXPECT_EQ(dialogs.last().defaultText, folder.path("hero-recovered2.mdl"));
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

TEST_F(KeepingTest, EditsThatWereOnlyHandedOverAreKeptWhenTheWindowCloses) {
    openModel("hero.mdl");
    edit();
    folder.write("kept", "a file");
    window->keepUnsaved();  // cannot be written
    std::filesystem::remove(kept());
    letTimePass();
    closeWindow();
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
    const QuitInDialog quitInDialog([&told] { ++told; });
    const auto quit = [] {
        QEvent event(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &event);
    };
    quit();
    EXPECT_EQ(told, 0) << "no dialog is there";
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    quit();
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(dialog.isVisible());
    dialog.close();
    quit();
    EXPECT_EQ(told, 1);
}

TEST_F(KeepingTest, TheEndOfTheSessionKeepsWhatIsUnsaved) {
    const std::string path = openModel("hero.mdl");
    edit();
    window->keepUnsaved();
    EXPECT_EQ(reasons(), Lines{"ended by the system"});
    EXPECT_TRUE(std::filesystem::exists(folder.path("hero_TMP.tdl"))) << "it may go on";
    closeWindow();
    startProgram();
    EXPECT_EQ(reasons(), Lines{"ended by the system"}) << "closing adds nothing to it";
}

}  // namespace
}  // namespace corvane
