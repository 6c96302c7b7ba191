// Dialogs that answer from the script and print what they were asked.
#pragma once

#include <QJsonObject>
#include <QStringList>
#include <deque>
#include <functional>

#include "editor/dialogs.h"

namespace corvane::scenario {

class AnsweringDialogs : public Dialogs {
public:
    /// `stop` is called with the reason when a dialog has no fitting answer. It does not return:
    /// the dialog was opened somewhere deep inside the program.
    explicit AnsweringDialogs(std::function<void(const QString&)> stop) : stop_(std::move(stop)) {}

    /// Queues an answer for a kind of dialog: file, input or message. `cancel` and `default` mean
    /// what they say only where they are not quoted; any other word, and a quoted one, is the text
    /// to answer. Throws ScenarioError for what is no answer.
    void queue(const QString& kind, const QString& answer, bool quoted);

    /// Leaves a picture of the next message or input box in a file. For it the box is shown, and
    /// closed again.
    void pictureNext(const QString& path) { picture_ = path; }

    /// The answers that no dialog has used.
    std::size_t left() const { return answers_.size(); }

    std::optional<std::string> openFile(const std::string& filter,
                                        const std::string& current) override;
    std::optional<std::string> saveFile(const SaveQuestion& question) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultAnswer) override;
    void messageBox(const Caption& caption, const std::string& text) override;
    void rightToLeftMessageBox(const Caption& caption, const std::string& text) override;
    /// Needs no answer: the document is named, and not shown.
    bool showDocument(const std::string& path) override;
    bool yesNo(const Caption& caption, const std::string& text) override;

private:
    enum class Action { Text, Cancel, Default };
    struct Answer {
        QString kind;
        QString text;
        Action action = Action::Text;
    };

    /// Prints the dialog with the next answer, or without one where that does not fit, and then
    /// stops.
    Answer take(QJsonObject dialog, const QString& question, const QStringList& allowed = {});
    std::optional<std::string> pickFile(const char* mode, const std::string& filter,
                                        const std::string& title);
    QString pressed(const Caption& caption, const std::string& text, const char* buttons,
                    const QStringList& allowed);

    /// Calls what shows a box and waits for it, if a picture of it is wanted.
    void picture(const std::function<void()>& showBox);

    std::function<void(const QString&)> stop_;
    QString picture_;  // where the next box's picture goes; empty for none
    std::deque<Answer> answers_;
};

}  // namespace corvane::scenario
