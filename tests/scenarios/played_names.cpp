#include "played_names.h"

#include <QRegularExpression>
#include <filesystem>
#include <map>
#include <vector>

#include "temp_folder.h"

namespace corvane {

namespace {

enum class Window { Main, Uv, None };  // none: what is played may be refused

struct Literal {
    QString text;
    Window window;
};

QString unescaped(QString text) { return text.replace("\\n", "\n").replace("\\\"", "\""); }

// The window that is current after a script, where it says so.
Window windowAfter(const QString& script, Window before) {
    const qsizetype uv = script.lastIndexOf("window uv");
    const qsizetype main = script.lastIndexOf("window main");
    if (uv == main || before == Window::None) return before;
    return uv > main ? Window::Uv : Window::Main;
}

class Reader {
public:
    explicit Reader(const QString& source) : source_(source) {}

    PlayedNames read();

private:
    void readConstants();
    void readToken(const QRegularExpressionMatch& token);
    void readLiteral(const QString& text);
    void endTest();
    void add(const QString& name, Window window);

    QString source_;
    std::map<QString, QString> constants_;  // scripts that have a name in the whole file
    std::vector<Literal> outside_;          // of all tests
    std::vector<Literal> inTest_;
    bool isInTest_ = false;
    Window window_ = Window::Main;
    PlayedNames names_;
};

void Reader::add(const QString& name, Window window) {
    if (window == Window::Main) names_.main.insert(name.toStdString());
    if (window == Window::Uv) names_.uv.insert(name.toStdString());
}

void Reader::readConstants() {
    static const QRegularExpression constant("const std::string (k\\w+) =([^;]*);");
    auto matches = constant.globalMatch(source_);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        constants_[match.captured(1)] = unescaped(match.captured(2));
    }
}

// Each command's line may change the window for the next ones.
void Reader::readLiteral(const QString& text) {
    (isInTest_ ? inTest_ : outside_).push_back({text, window_});
    static const QRegularExpression command("^(?:menu|press) (\\w+)$");
    for (const QString& line : text.split('\n')) {
        const QRegularExpressionMatch match = command.match(line);
        if (match.hasMatch()) add(match.captured(1), window_);
        window_ = windowAfter(line, window_);
    }
}

// What the test puts together: each beginning of a command with each string that goes on.
void Reader::endTest() {
    static const QRegularExpression beginning(R"re((?:^|\n)(?:menu|press) (\w*)\z)re");
    static const QRegularExpression rest(R"re(^(\w+)(?:\n|\z))re");
    for (const Literal& first : inTest_) {
        const QRegularExpressionMatch begun = beginning.match(first.text);
        if (!begun.hasMatch() || first.window == Window::None) continue;
        for (const std::vector<Literal>* const literals : {&inTest_, &outside_}) {
            for (const Literal& second : *literals) {
                const QRegularExpressionMatch match = rest.match(second.text);
                if (match.hasMatch()) add(begun.captured(1) + match.captured(1), second.window);
            }
        }
    }
    inTest_.clear();
}

void Reader::readToken(const QRegularExpressionMatch& token) {
    const QString text = token.captured(0);
    if (text.startsWith("TEST_F")) {
        endTest();
        isInTest_ = true;
        window_ = Window::Main;
    } else if (text == "}\n\n") {
        endTest();
        isInTest_ = false;
        window_ = Window::Main;
    } else if (text.startsWith("const ") || text.startsWith("playAll(")) {
        window_ = Window::Main;
    } else if (text.startsWith("play(")) {
        window_ = Window::None;
    } else if (text.startsWith("R\"")) {
        readLiteral(token.captured(1));
    } else if (text.startsWith('"')) {
        readLiteral(unescaped(token.captured(2)));
    } else if (const auto found = constants_.find(text); found != constants_.end()) {
        window_ = windowAfter(found->second, window_);
    }
}

PlayedNames Reader::read() {
    readConstants();
    static const QRegularExpression token(
        R"re(//[^\n]*|'(?:[^'\\]|\\.)'|R"\(([\s\S]*?)\)"|"((?:[^"\\]|\\.)*)"|)re"
        R"re(\bTEST_F\(|^\}\n\n|^const [^=\n]*|\bplay(?:All)?\(|\bk[A-Z]\w*)re",
        QRegularExpression::MultilineOption);
    auto tokens = token.globalMatch(source_);
    while (tokens.hasNext()) readToken(tokens.next());
    endTest();
    return names_;
}

}  // namespace

PlayedNames playedNamesIn(const std::string& source) {
    return Reader(QString::fromStdString(source)).read();
}

PlayedNames playedNames() {
    PlayedNames all;
    for (const auto& entry : std::filesystem::directory_iterator(CORVANE_SCENARIO_SOURCES)) {
        const std::string name = entry.path().filename().string();
        if (!name.ends_with("_test.cpp") || name == "runner_scenario_test.cpp") continue;
        PlayedNames names = playedNamesIn(readFile(entry.path().string()));
        all.main.merge(names.main);
        all.uv.merge(names.uv);
    }
    return all;
}

}  // namespace corvane
