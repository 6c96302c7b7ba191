// Plays a script of a user's gestures on the real windows and prints what it saw.
//
//     corvane_scenario SCRIPT        or - for standard input
//
// Exit code 0: the script was played to its end; 1: it was not, and the last line printed says
// where and why.

#include <QApplication>
#include <QFile>
#include <cstdlib>
#include <functional>
#include <optional>

#include "app/process.h"
#include "app/system_path.h"
#include "app/user_locale.h"
#include "player.h"
#include "script.h"

namespace {

using namespace corvane;
using namespace corvane::scenario;

// Line by line, so that a script on standard input can be written while it is played.
std::function<std::optional<QString>()> lineSource(QFile& file, const QString& path) {
    const bool open =
        path == "-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!open) throw ScenarioError("cannot read the script " + path.toStdString());
    return [&file]() -> std::optional<QString> {
        const QByteArray line = file.readLine();
        if (line.isEmpty()) return std::nullopt;
        return textOfPath(line);  // paths in it may be of any bytes
    };
}

}  // namespace

int main(int argc, char** argv) {
    prepareProcess();
    QApplication application(argc, argv);
    QApplication::setApplicationName("Corvane");
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: corvane_scenario SCRIPT\n");
        return EXIT_FAILURE;
    }
    try {
        QFile script(arguments[1]);
        Player player(userNumberFormat());
        return player.play(lineSource(script, arguments[1])) ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const ScenarioError& error) {
        printError(0, error.what());
        return EXIT_FAILURE;
    }
}
