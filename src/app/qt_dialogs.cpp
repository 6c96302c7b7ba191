#include "app/qt_dialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>
#include <algorithm>

#include "app/save_name.h"
#include "app/system_path.h"

namespace corvane {

namespace {

constexpr int kWidestField = 600;   // pixels
constexpr int kTitleButtons = 130;  // pixels of a title bar that are not its text

QWidget* parentWindow() { return QApplication::activeWindow(); }

// The folder of a file, or the nearest above it that Qt finds: none whose name is no UTF-8.
QString folderOf(const QFileInfo& file) {
    QFileInfo folder(file.absolutePath());
    while (!folder.exists() && !folder.isRoot()) folder.setFile(folder.absolutePath());
    return folder.filePath();
}

// The filter entry that lists a file; the last one, which lists all, where no other does.
QString entryOf(const QStringList& filters, const QString& name) {
    for (const QString& filter : filters) {
        const QString patterns = filter.section('(', -1).section(')', 0, 0);
        if (QDir::match(patterns.split(' ', Qt::SkipEmptyParts), name)) return filter;
    }
    return filters.last();
}

// Shows a file dialog that stands where the current file is; one that opens files lists those of
// its kind. A path that ends with a slash is a folder.
std::optional<std::string> pick(QFileDialog& dialog, const std::string& filter,
                                const std::string& current) {
    dialog.setNameFilters(qtFilters(filter) << QFileDialog::tr("All files (*)"));
    if (!current.empty()) {
        const QFileInfo file(QString::fromStdString(current));
        dialog.setDirectory(folderOf(file));
        if (!file.fileName().isEmpty()) {
            dialog.selectFile(file.fileName());
            if (dialog.acceptMode() == QFileDialog::AcceptOpen) {
                dialog.selectNameFilter(entryOf(dialog.nameFilters(), file.fileName()));
            }
        }
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty()) {
        return std::nullopt;
    }
    return chosenPath(dialog.selectedUrls().first(), current);
}

void prepare(QMessageBox& box, const Caption& caption, const std::string& text) {
    box.setWindowTitle(QString::fromUtf8(caption.text));
    box.setTextFormat(Qt::PlainText);  // a path may look like markup
    box.setText(QString::fromStdString(text));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

QMessageBox::Icon iconOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return QMessageBox::Critical;
        case Severity::Warning:
            return QMessageBox::Warning;
        case Severity::Plain:
            break;
    }
    return QMessageBox::NoIcon;
}

void showMessage(const Caption& caption, const std::string& text, Qt::LayoutDirection direction) {
    QMessageBox box(parentWindow());
    prepare(box, caption, text);
    box.setLayoutDirection(direction);
    box.setIcon(iconOf(caption.severity));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

}  // namespace

std::optional<std::string> QtDialogs::openFile(const std::string& filter,
                                               const std::string& current) {
    QFileDialog dialog(parentWindow(), QFileDialog::tr("Open"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return pick(dialog, filter, current);
}

std::optional<std::string> QtDialogs::saveFile(const SaveQuestion& question) {
    const auto ask = [&](const std::string& proposed) {
        // Without a default suffix: the dialog must ask about the very name that it gives back.
        QFileDialog dialog(parentWindow(), QString::fromStdString(question.title));
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        return pick(dialog, question.filter, proposed);
    };
    const auto mayReplace = [&](const std::string& path) {
        const QString name = QFileInfo(QString::fromStdString(path)).fileName();
        return yesNo(question.title.c_str(),
                     QFileDialog::tr("%1 already exists.\nDo you want to replace it?")
                         .arg(name)
                         .toStdString());
    };
    return pickSaveName(question.proposed, ask, mayReplace);
}

std::optional<std::string> QtDialogs::inputBox(const std::string& prompt, const std::string& title,
                                               const std::string& defaultAnswer) {
    QInputDialog dialog(parentWindow());
    dialog.setWindowTitle(QString::fromStdString(title));
    dialog.setLabelText(QString::fromStdString(prompt));
    dialog.setTextValue(QString::fromStdString(defaultAnswer));
    // All of a text that is there to be read and copied is seen, and all of the title.
    auto* const field = dialog.findChild<QLineEdit*>();
    if (field != nullptr) {
        const QFontMetrics metrics = field->fontMetrics();
        const int margin = metrics.horizontalAdvance("MM");
        const int text = metrics.horizontalAdvance(field->text()) + margin;
        const int head = metrics.horizontalAdvance(dialog.windowTitle()) + kTitleButtons;
        field->setMinimumWidth(std::min(std::max(text, head), kWidestField));
    }
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue().toStdString();
}

void QtDialogs::messageBox(const Caption& caption, const std::string& text) {
    showMessage(caption, text, QGuiApplication::layoutDirection());
}

void QtDialogs::rightToLeftMessageBox(const Caption& caption, const std::string& text) {
    showMessage(caption, text, Qt::RightToLeft);
}

bool QtDialogs::showDocument(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
}

bool QtDialogs::yesNo(const Caption& caption, const std::string& text) {
    QMessageBox box(parentWindow());
    prepare(box, caption, text);
    box.setIcon(QMessageBox::Question);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    // What is asked cannot be undone: a stray Enter or Escape must not do it.
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

QStringList qtFilters(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& pattern : parts[i + 1].split(';', Qt::SkipEmptyParts)) {
            patterns << pattern.toLower();
            if (pattern.toUpper() != pattern.toLower()) patterns << pattern.toUpper();
        }
        filters << parts[i] + QStringLiteral(" (") + patterns.join(' ') + ')';
    }
    return filters;
}

}  // namespace corvane
