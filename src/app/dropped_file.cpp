#include "app/dropped_file.h"

#include <QImageReader>
#include <QStringList>
#include <QUrl>

#include "app/system_path.h"
#include "model/files.h"
#include "uveditor/commands/texture_commands.h"

namespace corvane {

namespace {

// The extension of a path without its dot, in lower case.
std::string extensionOf(const std::string& path) {
    const std::size_t dot = path.find_last_of("./");
    if (dot == std::string::npos || path[dot] == '/') return {};
    return QByteArray::fromStdString(path.substr(dot + 1)).toLower().toStdString();
}

// Whether the dialog that loads a picture lists files with this extension.
bool isInPictureFilter(const std::string& extension) {
    const QString pattern = "*." + QString::fromStdString(extension);
    for (const QString& part : QString(kPictureFilter).split('|')) {
        if (part.split(';').contains(pattern, Qt::CaseInsensitive)) return true;
    }
    return false;
}

// The one file that is dropped; empty for a folder or what is not there.
std::string droppedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1) return {};
    const std::string path = systemPath(urls.first());
    if (path.empty()) return {};
    std::error_code error;
    const std::optional<files::Status> status = files::statusOf(path, error);
    return status && status->kind == files::Kind::Regular ? path : std::string();
}

}  // namespace

std::string droppedModel(const QMimeData& data) {
    const std::string path = droppedFile(data);
    return extensionOf(path) == "mdl" ? path : std::string();
}

std::string droppedPicture(const QMimeData& data) {
    const std::string path = droppedFile(data);
    const std::string extension = extensionOf(path);
    if (extension.empty()) return {};
    const QByteArray name = QByteArray::fromStdString(extension);
    const bool isKnown =
        isInPictureFilter(extension) || QImageReader::supportedImageFormats().contains(name);
    return isKnown ? path : std::string();
}

}  // namespace corvane
