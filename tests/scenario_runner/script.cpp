#include "script.h"

namespace corvane::scenario {

namespace {

// Reads a quoted word whose opening quote stands at `at`; leaves `at` after the closing one.
QString quotedWord(const QString& line, qsizetype& at) {
    QString word;
    for (++at; at < line.size(); ++at) {
        const QChar c = line[at];
        if (c == '"') {
            ++at;
            return word;
        }
        if (c != '\\' || at + 1 == line.size()) {
            word += c;
            continue;
        }
        const QChar escaped = line[++at];
        word += escaped == 'n' ? QChar('\n') : escaped == 't' ? QChar('\t') : escaped;
    }
    throw ScenarioError("a word in double quotes does not end");
}

}  // namespace

Command splitWords(const QString& line) {
    Command command;
    const auto append = [&](const QString& word, bool quoted) {
        command.words << word;
        command.quoted.push_back(quoted);
    };
    qsizetype at = 0;
    while (at < line.size()) {
        if (line[at].isSpace()) {
            ++at;
        } else if (line[at] == '"') {
            append(quotedWord(line, at), true);
        } else {
            const qsizetype begin = at;
            while (at < line.size() && !line[at].isSpace()) ++at;
            append(line.mid(begin, at - begin), false);
        }
    }
    return command;
}

int toInt(const QString& word) {
    bool isNumber = false;
    const int value = word.toInt(&isNumber);
    if (!isNumber) throw ScenarioError("\"" + word.toStdString() + "\" is not a whole number");
    return value;
}

double toDouble(const QString& word) {
    bool isNumber = false;
    const double value = word.toDouble(&isNumber);
    if (!isNumber) throw ScenarioError("\"" + word.toStdString() + "\" is not a number");
    return value;
}

}  // namespace corvane::scenario
