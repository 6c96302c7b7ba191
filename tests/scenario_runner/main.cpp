// Plays a script of a user's gestures on the real windows and prints what it saw.
//
//     corvane_scenario SCRIPT        or - for standard input
//
// Exit code 0: the script was played to its end; 1: it was not, and the last line printed says
// where and why.

#include <QApplication>
#include <QFile>
#include <QTimer>
#include <cstdlib>

#include "app/user_locale.h"
#include "player.h"
#include "script.h"

namespace {

using namespace corvane;
using namespace corvane::scenario;

std::vector<QString> readLines(const QString& path) {
    QFile file(path);
    const bool open =
        path == "-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!open) throw ScenarioError("cannot read the script " + path.toStdString());
    std::vector<QString> lines;
    const QStringList all = QString::fromUtf8(file.readAll()).split('\n');
    lines.assign(all.begin(), all.end());
    return lines;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Corvane");
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: corvane_scenario SCRIPT\n");
        return EXIT_FAILURE;
    }
    try {
        Player player(userNumberFormat());
        return player.play(readLines(arguments[1])) ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const ScenarioError& error) {
        printError(0, error.what());
        return EXIT_FAILURE;
    }
}
