// Ends that come from outside: signals, and the loss of the display.
#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace corvane {

/// While it lives, what the system ends a process with calls a function from the event loop, also
/// inside a dialog, instead of ending it: SIGTERM, SIGINT and SIGHUP; on Windows the end of the
/// user's session, and Ctrl+C, Ctrl+Break and the end of the console, if there is one. At most one
/// object at a time. A signal that the process ignores, as under nohup, stays ignored.
class EndSignals {
public:
    /// The application must be there.
    explicit EndSignals(std::function<void()> end);
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    ~EndSignals();

private:
    class Watch;  // what the system needs for that

    std::unique_ptr<Watch> watch_;  // none where the system refuses it
};

/// While it lives, a function is called where the program is told to quit while a dialog waits for
/// an answer, as the desktop's session may. Qt only closes the dialog then, and whoever asked would
/// go on with that for an answer. The function is not to return into that.
class QuitInDialog : public QObject {
    Q_OBJECT

public:
    /// The application must be there.
    explicit QuitInDialog(std::function<void()> end);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> end_;
};

/// While it lives, exit() calls a function first. That is how Qt ends the process when the display
/// is lost: its windows are not closed then, and no object in main() is destroyed. At most one
/// object at a time.
class AtExit {
public:
    explicit AtExit(std::function<void()> call);
    AtExit(const AtExit&) = delete;
    AtExit& operator=(const AtExit&) = delete;
    ~AtExit();
};

}  // namespace corvane
