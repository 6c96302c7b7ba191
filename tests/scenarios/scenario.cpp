#include "scenario.h"

#include <QJsonDocument>
#include <algorithm>

namespace corvane {

namespace {

constexpr int kLongest = 60000;  // milliseconds until a scenario counts as hung

std::string text(const QJsonObject& event, const char* key) {
    return event[key].toString().toStdString();
}

}  // namespace

QJsonObject Played::dump(int n) const {
    std::vector<QJsonObject> dumps;
    for (const QJsonObject& event : events) {
        if (event["event"] == "dump") dumps.push_back(event);
    }
    const int index = n < 0 ? static_cast<int>(dumps.size()) + n : n;
    return dumps.at(static_cast<std::size_t>(index));
}

std::vector<std::string> Played::dialogs() const {
    std::vector<std::string> all;
    for (const QJsonObject& event : events) {
        if (event["event"] != "dialog") continue;
        const std::string kind = text(event, "kind");
        std::string line = kind;
        if (kind == "file") line += '|' + text(event, "mode") + '|' + text(event, "filter");
        if (kind == "input") line += '|' + text(event, "title") + '|' + text(event, "prompt");
        if (kind == "message") line += '|' + text(event, "caption") + '|' + text(event, "text");
        all.push_back(line + '|' + text(event, "answer"));
    }
    return all;
}

std::string Played::error() const {
    if (events.empty() || events.back()["event"] != "error") return "";
    return text(events.back(), "text");
}

RunningScenario::RunningScenario(const std::string& folder,
                                 const std::vector<std::string>& environment)
    : folder_(folder), process_(std::make_unique<QProcess>()) {
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert("QT_QPA_PLATFORM", variables.value("CORVANE_SCENARIO_PLATFORM", "offscreen"));
    variables.insert("LC_ALL", "C.UTF-8");
    for (const std::string& entry : environment) {
        const QStringList parts = QString::fromStdString(entry).split('=');
        variables.insert(parts.value(0), parts.value(1));
    }
    process_->setProcessEnvironment(variables);
    process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_->start(variables.value("CORVANE_SCENARIO_RUNNER", CORVANE_SCENARIO_RUNNER), {"-"});
}

void RunningScenario::send(const std::string& commands) {
    // Bytes: paths may be of any.
    QByteArray lines = QByteArray::fromStdString(commands);
    lines.replace("$DIR/", QByteArray::fromStdString(folder_));
    process_->write(lines);
    process_->waitForBytesWritten(kLongest);
}

void RunningScenario::readOutput() {
    unread_ += process_->readAllStandardOutput();
    while (unread_.contains('\n')) {
        const qsizetype end = unread_.indexOf('\n');
        events_.push_back(QJsonDocument::fromJson(unread_.left(end)).object());
        unread_.remove(0, end + 1);
    }
}

void RunningScenario::waitForDump() {
    ++dumpsSeen_;
    while (true) {
        readOutput();
        const auto dumps = std::ranges::count_if(
            events_, [](const QJsonObject& event) { return event["event"] == "dump"; });
        if (static_cast<std::size_t>(dumps) >= dumpsSeen_) return;
        ASSERT_TRUE(process_->waitForReadyRead(kLongest)) << "the scenario hangs or has ended";
    }
}

Played RunningScenario::finish() {
    process_->closeWriteChannel();
    if (!process_->waitForFinished(kLongest)) {
        ADD_FAILURE() << "the scenario hangs";
        kill();
    }
    readOutput();
    Played played;
    played.exitCode = process_->exitStatus() == QProcess::NormalExit ? process_->exitCode() : -1;
    played.events = events_;
    return played;
}

void RunningScenario::kill() {
    process_->kill();
    process_->waitForFinished(kLongest);
}

RunningScenario ScenarioTest::start(const std::vector<std::string>& environment) const {
    return RunningScenario(dir(), environment);
}

Played ScenarioTest::play(const std::string& script,
                          const std::vector<std::string>& environment) const {
    RunningScenario running = start(environment);
    running.send(script);
    return running.finish();
}

Played ScenarioTest::playAll(const std::string& script,
                             const std::vector<std::string>& environment) const {
    Played played = play(script, environment);
    EXPECT_EQ(played.exitCode, 0) << played.error();
    EXPECT_EQ(played.error(), "");
    return played;
}

QJsonValue at(const QJsonObject& dump, const std::string& path) {
    QJsonValue value = dump;
    for (const QString& name : QString::fromStdString(path).split('.')) {
        value = value.toObject().value(name);
    }
    return value;
}

std::string selected(const QJsonObject& dump) {
    std::string numbers;
    int number = 0;
    for (const QJsonValue& vertex : dump["vertices"].toArray()) {
        ++number;
        if (!vertex["selected"].toBool()) continue;
        numbers += (numbers.empty() ? "" : " ") + std::to_string(number);
    }
    return numbers;
}

namespace {

std::vector<double> triple(const QJsonObject& dump, int vertex, const char* key) {
    std::vector<double> values;
    for (const QJsonValue& value : dump["vertices"].toArray().at(vertex - 1)[key].toArray()) {
        values.push_back(value.toDouble());
    }
    return values;
}

}  // namespace

std::vector<double> position(const QJsonObject& dump, int vertex) {
    return triple(dump, vertex, "pos");
}

std::vector<double> normal(const QJsonObject& dump, int vertex) {
    return triple(dump, vertex, "normal");
}

std::string undoNames(const QJsonObject& dump) {
    std::string names;
    for (const QJsonValue& step : dump["undo"].toArray()) {
        if (!step["valid"].toBool()) continue;
        names += (names.empty() ? "" : ", ") + step["name"].toString().toStdString();
    }
    return names;
}

void expectNear(const std::vector<double>& actual, const std::vector<double>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i], expected[i], 1e-9) << "component " << i;
    }
}

}  // namespace corvane
