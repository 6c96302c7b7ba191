// The editor.

#include <QApplication>

#include "app/frm_corvane.h"
#include "app/qt_dialogs.h"
#include "app/user_locale.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Corvane");
    QApplication::setDesktopFileName("corvane");

    corvane::QtDialogs dialogs;
    corvane::frmCorvane window(dialogs, corvane::userNumberFormat());
    window.show();
    window.start();
    return QApplication::exec();
}
