#include "answering_dialogs.h"

#include <QApplication>
#include <QTimer>
#include <utility>

#include "app/qt_dialogs.h"
#include "app/system_path.h"
#include "output.h"
#include "script.h"

namespace corvane::scenario {

namespace {

QString qt(const std::string& text) { return QString::fromStdString(text); }

QJsonObject dialogEvent(const char* kind) { return {{"event", "dialog"}, {"kind", kind}}; }

}  // namespace

void AnsweringDialogs::queue(const QString& kind, const QString& answer, bool quoted) {
    if (!QStringList{"file", "input", "message"}.contains(kind)) {
        throw ScenarioError("there is no kind of dialog \"" + kind.toStdString() + "\"");
    }
    if (kind == "message" && !QStringList{"ok", "yes", "no"}.contains(answer)) {
        throw ScenarioError("a message box is answered by ok, yes or no");
    }
    Action action = Action::Text;
    if (!quoted && answer == "cancel") action = Action::Cancel;
    if (!quoted && answer == "default" && kind == "input") action = Action::Default;
    answers_.push_back({kind, answer, action});
}

AnsweringDialogs::Answer AnsweringDialogs::take(QJsonObject dialog, const QString& question,
                                                const QStringList& allowed) {
    const QString kind = dialog["kind"].toString();
    QString why;
    if (answers_.empty() || answers_.front().kind != kind) {
        const QString next =
            answers_.empty() ? "none is left" : "the next one is for a " + answers_.front().kind;
        why = "no answer for a " + kind + " dialog (" + question + "): " + next;
    } else if (!allowed.isEmpty() && !allowed.contains(answers_.front().text)) {
        why = "the message box (" + question + ") has no button " + answers_.front().text;
    }
    // The dialog was shown, answered or not.
    dialog["answer"] =
        why.isEmpty() ? QJsonValue(qt(systemPath(answers_.front().text))) : QJsonValue::Null;
    print(dialog);
    if (!why.isEmpty()) stop_(why);
    Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

std::optional<std::string> AnsweringDialogs::pickFile(const char* mode, const std::string& filter,
                                                      const std::string& title) {
    QJsonObject event = dialogEvent("file");
    event["mode"] = mode;
    event["filter"] = qt(filter);
    event["title"] = qt(title);
    const Answer answer = take(event, mode);
    if (answer.action == Action::Cancel) return std::nullopt;
    return systemPath(answer.text);
}

std::optional<std::string> AnsweringDialogs::openFile(const std::string& filter,
                                                      const std::string& /*current*/) {
    return pickFile("open", filter, "Open");
}

std::optional<std::string> AnsweringDialogs::saveFile(const SaveQuestion& question) {
    return pickFile("save", question.filter, question.title);
}

void AnsweringDialogs::picture(const std::function<void()>& showBox) {
    const QString path = std::exchange(picture_, {});
    if (path.isEmpty()) return;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* const box = QApplication::activeModalWidget();
        if (box == nullptr || !box->grab().save(path)) stop_("cannot write the picture " + path);
        box->close();
    });
    showBox();
}

std::optional<std::string> AnsweringDialogs::inputBox(const std::string& prompt,
                                                      const std::string& title,
                                                      const std::string& defaultAnswer) {
    picture([&] { QtDialogs().inputBox(prompt, title, defaultAnswer); });
    QJsonObject event = dialogEvent("input");
    event["prompt"] = qt(prompt);
    event["title"] = qt(title);
    event["default"] = qt(defaultAnswer);
    const Answer answer = take(event, qt(prompt));
    if (answer.action == Action::Cancel) return std::nullopt;
    if (answer.action == Action::Default) return defaultAnswer;
    return answer.text.toStdString();
}

QString AnsweringDialogs::pressed(const Caption& caption, const std::string& text,
                                  const char* buttons, const QStringList& allowed) {
    QJsonObject event = dialogEvent("message");
    event["caption"] = qt(caption.text);
    event["text"] = qt(text);
    event["buttons"] = buttons;
    return take(event, qt(caption.text) + ": " + qt(text), allowed).text;
}

void AnsweringDialogs::messageBox(const Caption& caption, const std::string& text) {
    picture([&] { QtDialogs().messageBox(caption, text); });
    pressed(caption, text, "ok", {"ok"});
}

void AnsweringDialogs::rightToLeftMessageBox(const Caption& caption, const std::string& text) {
    messageBox(caption, text);
}

bool AnsweringDialogs::showDocument(const std::string& path) {
    print({{"event", "document"}, {"path", qt(path)}});
    return true;
}

bool AnsweringDialogs::yesNo(const Caption& caption, const std::string& text) {
    picture([&] { QtDialogs().yesNo(caption, text); });
    return pressed(caption, text, "yesno", {"yes", "no"}) == "yes";
}

}  // namespace corvane::scenario
