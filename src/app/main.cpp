// The editor.

#include <QApplication>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

#include "app/frm_corvane.h"
#include "app/orderly_end.h"
#include "app/process.h"
#include "app/qt_dialogs.h"
#include "app/user_locale.h"

namespace {

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

}  // namespace

int main(int argc, char** argv) {
    corvane::prepareProcess();
    const Application application(argc, argv);
    QApplication::setApplicationName("Corvane");
    QApplication::setDesktopFileName("corvane");

    corvane::QtDialogs dialogs;
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
    const int code = QApplication::exec();
    // While a signal still ends the program in order.
    keeper.finish();
    return code;
}
