// The questions that the program can put to its user. The Qt implementation shows real boxes;
// tests answer from a list and keep what was asked.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

/// How grave a message is, which its icon shows.
enum class Severity : std::uint8_t { Plain, Warning, Error };

/// The caption of a message box. A plain one converts from its text.
struct Caption {
    // NOLINTNEXTLINE(google-explicit-constructor): a caption is written as its text
    constexpr Caption(const char* itsText, Severity itsSeverity = Severity::Plain)
        : text(itsText), severity(itsSeverity) {}

    const char* text;
    Severity severity;
};

inline constexpr Caption kErrorCaption("Error", Severity::Error);
inline constexpr Caption kWarningCaption("Warning", Severity::Warning);
inline constexpr Caption kConfirmationCaption("Confirmation");

/// Filter of every dialog that opens or saves a model: a description, a bar, a pattern.
inline constexpr const char* kModelFilter = "Warcraft III MDL|*.mdl";

/// Asking for a file to save to.
struct SaveQuestion {
    std::string title;     ///< of the dialog
    std::string filter;    ///< "description|pattern", once or more with bars between
    std::string proposed;  ///< the path that the dialog starts with; may be empty
};

/// Modal dialogs. Texts are UTF-8; paths are the system's bytes.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Asks for a file to open. `filter` is "description|pattern", once or more with bars between,
    /// `current` the path to start from: a file, a folder with a slash at its end, or empty.
    /// Nothing when the user cancels.
    virtual std::optional<std::string> openFile(const std::string& filter,
                                                const std::string& current) = 0;

    /// Asks for a file to save to, and before an existing file is chosen whether to replace it.
    /// Nothing when the user cancels.
    virtual std::optional<std::string> saveFile(const SaveQuestion& question) = 0;

    /// Asks for one line of text. Nothing when the user cancels.
    virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                                const std::string& defaultAnswer) = 0;

    /// Shows a text until the user presses OK.
    virtual void messageBox(const Caption& caption, const std::string& text) = 0;

    /// The same in a box that reads from right to left.
    virtual void rightToLeftMessageBox(const Caption& caption, const std::string& text) = 0;

    /// Has the desktop show a document, a file. Whether the desktop knows a program for it.
    virtual bool showDocument(const std::string& /*path*/) { return false; }

    /// Asks a question with the buttons Yes and No; true for Yes.
    virtual bool yesNo(const Caption& caption, const std::string& text) = 0;
};

}  // namespace corvane
