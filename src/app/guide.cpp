#include "app/guide.h"

#include <QDir>
#include <QFileInfo>

namespace corvane {

namespace {

// Seen from the program's folder: where the guide is installed, and where the build puts it.
constexpr const char* kGuideFolders[] = {CORVANE_GUIDE_FROM_PROGRAM, "../../docs/guide"};

}  // namespace

QString guidePage(const QString& programFolder, const QString& name) {
    for (const char* const folder : kGuideFolders) {
        const QFileInfo page(
            QDir::cleanPath(QDir(programFolder).absoluteFilePath(folder) + '/' + name));
        if (page.isFile()) return page.filePath();
    }
    return {};
}

void showGuideOf(const QString& programFolder, Dialogs& dialogs) {
    const QString page = guidePage(programFolder, QStringLiteral("index.html"));
    if (page.isEmpty()) {
        const QString expected =
            QDir::cleanPath(QDir(programFolder).absoluteFilePath(CORVANE_GUIDE_FROM_PROGRAM));
        dialogs.messageBox(kErrorCaption, "The user guide is not installed: there is no page in " +
                                              expected.toStdString() +
                                              ".\n\nThe other items of the Help menu need no page. "
                                              "The guide comes with Corvane: install it again or, "
                                              "where it came as a zip, unpack the whole zip and "
                                              "start the program there.");
        return;
    }
    if (dialogs.showDocument(page.toStdString())) return;
    dialogs.messageBox(kErrorCaption,
                       "No program was found that shows the user guide.\n\nOpen "
                       "this page in a web browser: " +
                           page.toStdString());
}

}  // namespace corvane
