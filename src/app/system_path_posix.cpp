#include <filesystem>

#include "app/system_path.h"

namespace corvane {

// Not by toLocalFile(), which replaces bytes that are no UTF-8.
std::string systemPath(const QUrl& url) {
    if (!url.isLocalFile()) return {};
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

std::string absolutePath(const QString& text) {
    return std::filesystem::absolute(systemPath(text)).string();
}

}  // namespace corvane
