// The real dialogs.
#pragma once

#include <QWidget>

#include "editor/dialogs.h"

namespace corvane {

class QtDialogs : public Dialogs {
public:
    std::optional<std::string> openFile(const std::string& filter,
                                        const std::string& current) override;
    std::optional<std::string> saveFile(const SaveQuestion& question) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultAnswer) override;
    void messageBox(const Caption& caption, const std::string& text) override;
    void rightToLeftMessageBox(const Caption& caption, const std::string& text) override;
    bool showDocument(const std::string& path) override;
    bool yesNo(const Caption& caption, const std::string& text) override;
};

/// A filter "description|*.ext;*.ext2|description|*.ext3" as a file dialog of Qt takes it, one
/// entry a description. Finds the extensions in upper and lower case.
QStringList qtFilters(const std::string& filter);

}  // namespace corvane
