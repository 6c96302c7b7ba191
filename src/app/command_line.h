// What the program was started with.
#pragma once

#include <QStringList>
#include <optional>
#include <string>
#include <utility>

#include "app/qt_dialogs.h"

namespace corvane {

/// The exit code where the command line makes no sense.
inline constexpr int kBadCommandLine = 2;

/// What a command line asks for.
struct CommandLine {
    std::string model;          ///< the path of the model to open, bytes; empty for none
    std::optional<int> geoset;  ///< 1-based; nothing where the user is to be asked
    std::string refusal;        ///< what is wrong, UTF-8; empty where nothing is
};

/// The arguments as the system passes them, the program's name first. Bytes that are no UTF-8 stay
/// (see textOfPath()).
QStringList argumentsOf(int argc, const char* const* argv);

CommandLine readCommandLine(const QStringList& arguments);

/// What can be printed without a display.
enum class Print { Help, Version };

/// Which text the arguments ask for, whatever else stands there, options of Qt too.
std::optional<Print> textAskedFor(const QStringList& arguments);

/// The text. That of the help needs the application.
std::string textOf(Print print);

/// Says on the standard error output what is wrong with the command line, and in a box. The exit
/// code.
int refuse(const CommandLine& commandLine, Dialogs& dialogs);

/// The real dialogs, which also write errors to the standard error output until the program has
/// started: whoever named a model in a terminal looks there.
class StartingDialogs : public QtDialogs {
public:
    /// `model` is the path that the program was started with.
    explicit StartingDialogs(std::string model) : model_(std::move(model)) {}

    void messageBox(const Caption& caption, const std::string& text) override;

    void noteStarted() { starting_ = false; }

private:
    std::string model_;
    bool starting_ = true;
};

}  // namespace corvane
