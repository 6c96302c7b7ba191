// The main window with a keeper whose folder the test looks into.
#pragma once

#include <QPushButton>
#include <QTreeWidget>
#include <filesystem>

#include "uv_window_fixture.h"

namespace corvane {

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

}  // namespace corvane
