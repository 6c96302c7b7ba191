#include <QDir>
#include <QFileInfo>

#include "app/system_path.h"

namespace corvane {

// The drive, or the computer that a file is on, are no part of a URL's path.
std::string systemPath(const QUrl& url) { return url.toLocalFile().toStdString(); }

std::string absolutePath(const QString& text) {
    return QFileInfo(QDir::fromNativeSeparators(text)).absoluteFilePath().toStdString();
}

}  // namespace corvane
