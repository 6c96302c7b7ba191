// Dialogs, a window and pictures for a session that nobody watches. Every question is answered at
// once, and no question can be put for ever.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editor/dialogs.h"
#include "editor/editor_window.h"
#include "uveditor/commands/uv_editor.h"
#include "views/drawing_surface.h"

namespace corvane {

class FuzzDialogs : public Dialogs {
public:
    std::string path;    ///< what file dialogs answer
    std::string answer;  ///< what an input box answers at first
    bool agrees = true;  ///< what a question answers
    std::string error;   ///< the latest text with the caption "Error"
    int errors = 0;      ///< texts with the caption "Error" so far

    std::optional<std::string> openFile(const std::string& /*filter*/,
                                        const std::string& /*current*/) override {
        return path;
    }
    std::optional<std::string> saveFile(const SaveQuestion& /*question*/) override { return path; }
    /// The answer, "1" and Cancel in turn: whatever a loop waits for, one of them ends it.
    std::optional<std::string> inputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                                        const std::string& /*defaultAnswer*/) override {
        switch (inputs_++ % 3) {
            case 0:
                return answer;
            case 1:
                return "1";
            default:
                return std::nullopt;
        }
    }
    void messageBox(const Caption& caption, const std::string& text) override {
        if (caption.severity != Severity::Error) return;
        error = text;
        ++errors;
    }
    void rightToLeftMessageBox(const Caption& /*caption*/, const std::string& /*text*/) override {}
    bool yesNo(const Caption& /*caption*/, const std::string& /*text*/) override { return agrees; }

    /// What the next command's input boxes answer, from the first on.
    void expectInput(std::string text) {
        answer = std::move(text);
        inputs_ = 0;
    }

private:
    int inputs_ = 0;
};

/// A picture that nothing is drawn on.
class NoPicture : public DrawingSurface {
public:
    double width() const override { return 3135; }
    double height() const override { return 3015; }
    void clear() override {}
    void line(double, double, double, double, Colour) override {}
    void box(double, double, double, double, Colour) override {}
    void circle(double, double, double, Colour) override {}
    void image(double, double, double, double) override {}
};

/// A window that shows nothing.
class NoWindow : public EditorWindow {
public:
    void updateButtons() override {}
    void showTip(const std::string& /*text*/) override {}
    void startSelectTimer() override {}
    void showTextureEditor(UVData data) override { textureData = std::move(data); }
    void copyText(const std::string& /*text*/) override {}

    UVData textureData;  ///< what the texture editor was last shown with
};

}  // namespace corvane
