#include "answering_dialogs.h"

#include <QJsonObject>

#include "output.h"
#include "script.h"

namespace corvane::scenario {

namespace {

QString qt(const std::string& text) { return QString::fromStdString(text); }

QJsonObject dialogEvent(const char* kind) { return {{"event", "dialog"}, {"kind", kind}}; }

}  // namespace

void AnsweringDialogs::queue(const QStringList& words) {
    if (words.size() != 2) throw ScenarioError("answer needs a kind of dialog and one answer");
    const QString& kind = words[0];
    const QString& text = words[1];
    if (kind == "message" && !QStringList{"ok", "yes", "no"}.contains(text)) {
        throw ScenarioError("a message box is answered by ok, yes or no");
    }
    if (!QStringList{"file", "input", "message"}.contains(kind)) {
        throw ScenarioError("there is no kind of dialog \"" + kind.toStdString() + "\"");
    }
    answers_.push_back({kind, text});
}

AnsweringDialogs::Answer AnsweringDialogs::take(const QString& kind, const QString& question) {
    if (answers_.empty() || answers_.front().kind != kind) {
        const QString next =
            answers_.empty() ? "none is left" : "the next one is for a " + answers_.front().kind;
        stop_("no answer for a " + kind + " dialog (" + question + "): " + next);
    }
    Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

std::optional<std::string> AnsweringDialogs::pickFile(const char* mode, const std::string& filter) {
    QJsonObject event = dialogEvent("file");
    event["mode"] = mode;
    event["filter"] = qt(filter);
    const Answer answer = take("file", mode);
    event["answer"] = answer.text;
    print(event);
    if (answer.text == "cancel") return std::nullopt;
    return answer.text.toStdString();
}

std::optional<std::string> AnsweringDialogs::openFile(const std::string& filter,
                                                      const std::string& /*current*/) {
    return pickFile("open", filter);
}

std::optional<std::string> AnsweringDialogs::saveFile(const std::string& filter,
                                                      const std::string& /*current*/) {
    return pickFile("save", filter);
}

std::optional<std::string> AnsweringDialogs::inputBox(const std::string& prompt,
                                                      const std::string& title,
                                                      const std::string& defaultAnswer) {
    QJsonObject event = dialogEvent("input");
    event["prompt"] = qt(prompt);
    event["title"] = qt(title);
    event["default"] = qt(defaultAnswer);
    const Answer answer = take("input", qt(prompt));
    event["answer"] = answer.text;
    print(event);
    if (answer.text == "cancel") return std::nullopt;
    if (answer.text == "default") return defaultAnswer;
    return answer.text.toStdString();
}

QString AnsweringDialogs::pressed(const std::string& caption, const std::string& text,
                                  const char* buttons, const QStringList& allowed) {
    QJsonObject event = dialogEvent("message");
    event["caption"] = qt(caption);
    event["text"] = qt(text);
    event["buttons"] = buttons;
    const Answer answer = take("message", qt(caption) + ": " + qt(text));
    if (!allowed.contains(answer.text)) {
        stop_("the message box (" + qt(caption) + ": " + qt(text) + ") has no button " +
              answer.text);
    }
    event["answer"] = answer.text;
    print(event);
    return answer.text;
}

void AnsweringDialogs::messageBox(const std::string& caption, const std::string& text) {
    pressed(caption, text, "ok", {"ok"});
}

void AnsweringDialogs::rightToLeftMessageBox(const std::string& caption, const std::string& text) {
    messageBox(caption, text);
}

bool AnsweringDialogs::yesNo(const std::string& caption, const std::string& text) {
    return pressed(caption, text, "yesno", {"yes", "no"}) == "yes";
}

}  // namespace corvane::scenario
