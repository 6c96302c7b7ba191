// The editor.

#include <QApplication>
#include <QCoreApplication>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

#include "app/app_icon.h"
#include "app/command_line.h"
#include "app/frm_corvane.h"
#include "app/orderly_end.h"
#include "app/process.h"
#include "app/user_locale.h"

namespace {

using corvane::CommandLine;

// An error that nothing caught must not end the program: what the user has not saved would be lost.
class Application : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::bad_alloc&) {
            corvane::QtDialogs().messageBox(
                corvane::kErrorCaption,
                "There is not enough memory for that.\n\nThe last command was perhaps not carried "
                "out, or not shown. Close other programs or windows, then save your work under "
                "another name.");
            return true;
        } catch (const std::exception& error) {
            corvane::QtDialogs().messageBox(
                corvane::kErrorCaption,
                std::string("Something went wrong: ") + error.what() +
                    ".\n\nThe last command may be incomplete. Save your work under another name.");
            return true;
        }
    }
};

// Needs no display.
int print(int argc, char** argv, corvane::Print what) {
    const QCoreApplication application(argc, argv);
    corvane::printText(corvane::textOf(what));
    return EXIT_SUCCESS;
}

int runEditor(const CommandLine& commandLine) {
    corvane::StartingDialogs dialogs(commandLine.model);
    corvane::Keeper keeper({.folder = corvane::standardKeptFolder()});
    corvane::frmCorvane window(dialogs, corvane::userNumberFormat(), &keeper);
    const corvane::AtExit atExit([&window] { window.endInOrder(); });
    const auto end = [&window] {
        window.endInOrder();
        // Not back into what the program was doing: a command that waits in a dialog would go on.
        std::_Exit(EXIT_SUCCESS);
    };
    const corvane::EndSignals endSignals(end);
    const corvane::QuitInDialog quitInDialog(end);
    window.show();
    window.start();
    if (!commandLine.model.empty()) window.openOnStart(commandLine.model, commandLine.geoset);
    dialogs.noteStarted();
    const int code = QApplication::exec();
    // While a signal still ends the program in order.
    keeper.finish();
    return code;
}

}  // namespace

int main(int argc, char** argv) {
    corvane::prepareProcess();
    argv = corvane::systemArguments(argc, argv);
    const auto asked = corvane::textAskedFor(corvane::argumentsOf(argc, argv));
    if (asked) return print(argc, argv, *asked);
    // Takes its own arguments away.
    const Application application(argc, argv);
    QApplication::setApplicationName("Corvane");
    QApplication::setDesktopFileName("corvane");
    QApplication::setWindowIcon(corvane::appIcon());

    const CommandLine commandLine = corvane::readCommandLine(corvane::argumentsOf(argc, argv));
    if (!commandLine.refusal.empty()) {
        corvane::QtDialogs dialogs;
        return corvane::refuse(commandLine, dialogs);
    }
    return runEditor(commandLine);
}
