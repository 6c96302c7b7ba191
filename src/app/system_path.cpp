#include "app/system_path.h"

#include <QStringDecoder>
#include <algorithm>

namespace corvane {

namespace {

// What stands for the byte 0. Bytes below 0x80 are always UTF-8, so these are low surrogates.
constexpr char16_t kByteBase = 0xDC00;
constexpr qsizetype kLongestSequence = 4;  // bytes of one character

// The number of bytes from `at` on that are one character; 0 where they are none.
qsizetype characterAt(const QByteArray& path, qsizetype at) {
    const qsizetype most = std::min(kLongestSequence, path.size() - at);
    for (qsizetype length = 1; length <= most; ++length) {
        const QByteArrayView bytes(path.constData() + at, length);
        if (QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8()) return length;
    }
    return 0;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// As Qt shows it.
std::string shown(const std::string& path) { return QString::fromStdString(path).toStdString(); }

}  // namespace

QString textOfPath(const QByteArray& path) {
    QString text;
    for (qsizetype at = 0; at < path.size();) {
        const qsizetype length = characterAt(path, at);
        if (length > 0) {
            text += QString::fromUtf8(path.constData() + at, length);
            at += length;
        } else {
            text += QChar(kByteBase + static_cast<unsigned char>(path[at]));
            ++at;
        }
    }
    return text;
}

std::string systemPath(const QString& text) {
    std::string path;
    qsizetype written = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at].unicode();
        const bool isByte = unit >= kByteBase + 0x80 && unit <= kByteBase + 0xFF &&
                            (at == 0 || !text[at - 1].isHighSurrogate());
        if (!isByte) continue;
        path += text.mid(written, at - written).toStdString();
        path += static_cast<char>(unit - kByteBase);
        written = at + 1;
    }
    return path + text.mid(written).toStdString();
}

std::string chosenPath(const QUrl& chosen, const std::string& current) {
    std::string path = systemPath(chosen);
    if (path == shown(current)) return current;
    const std::string folder = folderOf(current);
    const std::string shownFolder = shown(folder);
    if (!folder.empty() && folder != shownFolder && folderOf(path) == shownFolder) {
        return folder + path.substr(shownFolder.size());
    }
    return path;
}

}  // namespace corvane
