// Plays the commands of a script.
#pragma once

#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <optional>

#include "answering_dialogs.h"
#include "app/frm_corvane.h"
#include "app/orderly_end.h"
#include "marks.h"
#include "script.h"

namespace corvane::scenario {

/// Prints why a script cannot go on.
void printError(int line, const QString& text);

class Player {
public:
    explicit Player(UserNumberFormat userNumbers);

    /// Plays a script, taken line by line until there is none left; false after an error was
    /// printed.
    bool play(const std::function<std::optional<QString>()>& nextLine);

private:
    void perform(const Command& command);
    void openWindow();
    void chooseWindow(const QString& name);
    QWidget& currentWindow();
    PictureBox& pictureNamed(const QString& name);
    void mark(const QStringList& words, QPoint from, QPoint to);
    QPoint modelPoint(const QStringList& words, qsizetype at);
    void saveScreenshot(const QString& name, const QString& path);
    [[noreturn]] void stop(const QString& why);

    UserNumberFormat userNumbers_;
    AnsweringDialogs dialogs_;
    QTemporaryDir keptHere_;  // where CORVANE_KEPT names no folder
    Keeper keeper_;
    std::unique_ptr<frmCorvane> window_;
    std::unique_ptr<AtExit> atExit_;
    QString meant_ = "main";   // which window the commands mean
    std::vector<Mark> marks_;  // for the next screenshot
    int line_ = 0;
};

}  // namespace corvane::scenario
