// Plays scenarios in a process of their own and reads what the runner printed.
#pragma once

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "editor_fixture.h"

namespace corvane {

/// What a scenario came to.
struct Played {
    int exitCode = -1;
    std::vector<QJsonObject> events;

    /// The n-th dump, counted from 0; -1 is the last one.
    QJsonObject dump(int n = -1) const;
    /// The dialogs, one text each: "kind|caption or title|text or prompt|answer". A file dialog
    /// has its mode and filter in the middle.
    std::vector<std::string> dialogs() const;
    /// The text of the error event; empty where there is none.
    std::string error() const;
};

/// A scenario that gets its commands while it is played.
class RunningScenario {
public:
    RunningScenario(const std::string& folder, const std::vector<std::string>& environment);

    void send(const std::string& commands);
    /// Waits until one more "dump" has been printed.
    void waitForDump();
    /// Ends the script and waits for the runner to end.
    Played finish();
    /// Kills the runner as the system would.
    void kill();

private:
    void readOutput();

    std::string folder_;
    std::unique_ptr<QProcess> process_;
    QByteArray unread_;
    std::vector<QJsonObject> events_;
    std::size_t dumpsSeen_ = 0;
};

/// A folder with models, and scenarios played on them. "$DIR" in a script is the folder.
class ScenarioTest : public testing::Test {
protected:
    TempFolder folder;

    /// Starts a scenario without commands yet.
    RunningScenario start(const std::vector<std::string>& environment = {}) const;

    /// Plays a script. Environment entries ("LC_ALL=C") come on top of the test's own.
    Played play(const std::string& script, const std::vector<std::string>& environment = {}) const;

    /// The same, and the script must have been played to its end.
    Played playAll(const std::string& script,
                   const std::vector<std::string>& environment = {}) const;

    std::string dir() const { return folder.path(""); }
};

/// A member of a dump by its path, as in "menus.mnuSave.enabled".
QJsonValue at(const QJsonObject& dump, const std::string& path);

/// The numbers of the selected vertices, 1-based, as in "1 3".
std::string selected(const QJsonObject& dump);

/// The positions of a vertex, 1-based, slot order.
std::vector<double> position(const QJsonObject& dump, int vertex);
std::vector<double> normal(const QJsonObject& dump, int vertex);

/// The names of the undo steps, newest first, as in "Move, Selection".
std::string undoNames(const QJsonObject& dump);

/// Values that agree up to rounding in the last digits.
void expectNear(const std::vector<double>& actual, const std::vector<double>& expected);

}  // namespace corvane
