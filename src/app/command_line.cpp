#include "app/command_line.h"

#include <QCommandLineParser>
#include <cstdio>

#include "app/system_path.h"
#include "base/version.h"

namespace corvane {

namespace {

constexpr const char* kProgram = "corvane";

// The parser with what it knows.
struct Options {
    QCommandLineOption help{{"h", "help"}, "Prints this text and exits."};
    QCommandLineOption version{{"v", "version"}, "Prints the version and exits."};
    QCommandLineOption geoset{"geoset", "Opens this geoset of the model without asking.", "number"};
    QCommandLineParser parser;

    Options() {
        parser.setApplicationDescription(
            "Edits the vertices of Warcraft III models in text format (MDL).");
        // As Qt takes its own options, such as -platform.
        parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
        parser.addOptions({help, version, geoset});
        parser.addPositionalArgument("model", "The model to open.", "[model]");
    }
};

CommandLine refused(const QString& why) {
    return {.model = {}, .geoset = {}, .refusal = why.toStdString()};
}

void printError(const std::string& text) {
    std::fprintf(stderr, "%s: %s\n", kProgram, text.c_str());
}

}  // namespace

QStringList argumentsOf(int argc, const char* const* argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << textOfPath(argv[i]);
    return arguments;
}

CommandLine readCommandLine(const QStringList& arguments) {
    Options options;
    QCommandLineParser& parser = options.parser;
    if (!parser.parse(arguments)) return refused(parser.errorText());
    const QStringList models = parser.positionalArguments();
    if (models.size() > 1) {
        return refused(QStringLiteral("Only one model is open at a time, but %1 files are named. "
                                      "Start the program once for each.")
                           .arg(models.size()));
    }
    CommandLine commandLine;
    if (!models.isEmpty() && models.first().isEmpty()) {
        return refused("The name of the model is empty.");
    }
    if (!models.isEmpty()) commandLine.model = absolutePath(models.first());
    if (!parser.isSet(options.geoset)) return commandLine;

    const QString number = parser.value(options.geoset);
    bool isNumber = false;
    const int geoset = number.toInt(&isNumber);
    if (!isNumber || geoset < 1) {
        return refused(
            QStringLiteral("--geoset takes the number of a geoset, 1 or more, not \"%1\".")
                .arg(number));
    }
    if (models.isEmpty()) return refused("--geoset needs a model.");
    commandLine.geoset = geoset;
    return commandLine;
}

std::optional<Print> textAskedFor(const QStringList& arguments) {
    for (const QString& argument : arguments) {
        if (argument == "--") break;
        if (argument == "-h" || argument == "--help") return Print::Help;
        if (argument == "-v" || argument == "--version") return Print::Version;
    }
    return std::nullopt;
}

std::string textOf(Print print) {
    if (print == Print::Help) return Options().parser.helpText().toStdString();
    return std::string("Corvane ") + kVersionText + '\n';
}

int refuse(const CommandLine& commandLine, Dialogs& dialogs) {
    const std::string advice = "\"corvane --help\" says what can be given.";
    printError(commandLine.refusal + ' ' + advice);
    dialogs.messageBox(kErrorCaption, commandLine.refusal + "\n\n" + advice);
    return kBadCommandLine;
}

void StartingDialogs::messageBox(const Caption& caption, const std::string& text) {
    if (starting_ && caption.severity == Severity::Error) {
        const bool isNamed = model_.empty() || text.find(model_) != std::string::npos;
        printError(isNamed ? text : model_ + ": " + text);
    }
    QtDialogs::messageBox(caption, text);
}

}  // namespace corvane
