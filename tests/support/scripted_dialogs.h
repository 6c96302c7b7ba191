// Dialogs that answer from lists and keep what they were asked.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "editor/dialogs.h"

namespace corvane {

class ScriptedDialogs : public Dialogs {
public:
    /// One question as it was put. Unused texts are empty.
    struct Asked {
        std::string kind;  ///< "open", "save", "input", "message", "document", "yesno"
        std::string title;
        std::string text;
        std::string defaultText;  ///< an input box's answer, a file dialog's current path
    };

    std::deque<std::optional<std::string>> files;   ///< answers to come; nullopt cancels
    std::deque<std::optional<std::string>> inputs;  ///< answers to come; nullopt cancels
    std::deque<bool> yesNos;                        ///< answers to come
    bool documentsShow = true;  ///< whether the desktop knows a program for documents
    std::vector<Asked> asked;
    std::function<void()> onInput;    ///< called while an input box is shown
    std::function<void()> onMessage;  ///< called while a message box is shown

    std::optional<std::string> openFile(const std::string& filter,
                                        const std::string& current) override {
        asked.push_back({"open", "", filter, current});
        return take(files);
    }
    std::optional<std::string> saveFile(const SaveQuestion& question) override {
        asked.push_back({"save", question.title, question.filter, question.proposed});
        return take(files);
    }
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultAnswer) override {
        asked.push_back({"input", title, prompt, defaultAnswer});
        if (onInput) onInput();
        return take(inputs);
    }
    void messageBox(const Caption& caption, const std::string& text) override {
        asked.push_back({"message", caption.text, text, ""});
        if (onMessage) onMessage();
    }
    void rightToLeftMessageBox(const Caption& caption, const std::string& text) override {
        asked.push_back({"message", caption.text, text, "right to left"});
    }
    bool showDocument(const std::string& path) override {
        asked.push_back({"document", "", path, ""});
        return documentsShow;
    }
    bool yesNo(const Caption& caption, const std::string& text) override {
        asked.push_back({"yesno", caption.text, text, ""});
        return take(yesNos);
    }

    /// The latest question.
    const Asked& last() const { return asked.at(asked.size() - 1); }

private:
    // A question too many must fail, not hang: input boxes repeat until they have an answer.
    template <class T>
    T take(std::deque<T>& answers) {
        if (answers.empty()) {
            throw std::runtime_error("no answer is left for a " + asked.back().kind +
                                     " dialog: " + asked.back().text);
        }
        T answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

}  // namespace corvane
