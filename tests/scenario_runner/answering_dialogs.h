// Dialogs that answer from the script and print what they were asked.
#pragma once

#include <QStringList>
#include <deque>
#include <functional>

#include "dialogs.h"

namespace corvane::scenario {

class AnsweringDialogs : public Dialogs {
public:
    /// `stop` is called with the reason when a dialog has no fitting answer. It does not return:
    /// the dialog was opened somewhere deep inside the program.
    explicit AnsweringDialogs(std::function<void(const QString&)> stop) : stop_(std::move(stop)) {}

    /// Queues an answer from the words after "answer": file, input or message, and what to answer.
    /// Throws ScenarioError for words that are no answer.
    void queue(const QStringList& words);

    /// The answers that no dialog has used.
    std::size_t left() const { return answers_.size(); }

    std::optional<std::string> openFile(const std::string& filter,
                                        const std::string& current) override;
    std::optional<std::string> saveFile(const std::string& filter,
                                        const std::string& current) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultAnswer) override;
    void messageBox(const std::string& caption, const std::string& text) override;
    void rightToLeftMessageBox(const std::string& caption, const std::string& text) override;
    bool yesNo(const std::string& caption, const std::string& text) override;

private:
    struct Answer {
        QString kind;
        QString text;
    };

    Answer take(const QString& kind, const QString& question);
    std::optional<std::string> pickFile(const char* mode, const std::string& filter);
    QString pressed(const std::string& caption, const std::string& text, const char* buttons,
                    const QStringList& allowed);

    std::function<void(const QString&)> stop_;
    std::deque<Answer> answers_;
};

}  // namespace corvane::scenario
