#include "app/picture_file.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QtEndian>

namespace corvane {

namespace {

// Of a picture: 8192 by 8192 pixels, which take up to 8 bytes each before they are converted.
constexpr int kMemoryLimit = 512;  // MiB
constexpr qint64 kBytesPerMiB = qint64{1024} * 1024;

constexpr qsizetype kBmpHeadSize = 38;  // as far as it says how large the picture is

template <class Number>
qint64 numberAt(const QByteArray& bytes, qsizetype offset) {
    return qFromLittleEndian<Number>(bytes.constData() + offset);
}

// Where the picture of a BMP file ends, counted in bytes from the file's start; 0 where its head
// does not say.
qint64 endOfBmp(const QByteArray& head) {
    constexpr qint64 kOldHeaderSize = 12;
    constexpr qint64 kRunLength8 = 1;  // kinds of compression
    constexpr qint64 kRunLength4 = 2;
    if (head.size() < kBmpHeadSize) return 0;
    const qint64 start = numberAt<quint32>(head, 10);
    const bool old = numberAt<quint32>(head, 14) == kOldHeaderSize;
    const qint64 compression = old ? 0 : numberAt<quint32>(head, 30);
    if (compression == kRunLength8 || compression == kRunLength4) {
        return start + numberAt<quint32>(head, 34);
    }
    const qint64 width = old ? numberAt<quint16>(head, 18) : qAbs(numberAt<qint32>(head, 18));
    const qint64 height = old ? numberAt<quint16>(head, 20) : qAbs(numberAt<qint32>(head, 22));
    const qint64 bits = numberAt<quint16>(head, old ? 24 : 28);
    // Beyond these Qt's plugin refuses the file.
    constexpr qint64 kMostPixels = qint64{16384} * 16384;
    constexpr qint64 kMostBits = 32;
    if (width == 0 || height == 0 || width * height > kMostPixels || bits > kMostBits) return 0;
    const qint64 row = (width * bits + 31) / 32 * 4;
    return start + row * (height - 1) + (width * bits + 7) / 8;  // the last row needs no padding
}

// Where the first frame of a GIF file ends, counted in bytes from the file's start; behind the
// file's end where it is cut off before, as far as it can be told.
qint64 endOfGif(const QByteArray& bytes) {
    constexpr qsizetype kHeadSize = 13;
    constexpr qsizetype kFrameHeadSize = 10;
    constexpr char kExtension = 0x21;
    constexpr char kFrame = 0x2C;
    const auto byteAt = [&](qsizetype i) {
        return i < bytes.size() ? static_cast<quint8>(bytes[i]) : quint8{0};
    };
    // Flags tell of a table of colours, 3 bytes each.
    const auto tableSize = [](quint8 flags) {
        return (flags & 0x80) != 0 ? qsizetype{3} << ((flags & 7) + 1) : qsizetype{0};
    };
    // Blocks of data follow each other, with their sizes before them, up to an empty one.
    const auto skipBlocks = [&](qsizetype i) {
        while (byteAt(i) != 0) i += 1 + byteAt(i);
        return i + 1;
    };
    qsizetype i = kHeadSize + tableSize(byteAt(10));
    while (i < bytes.size() && bytes[i] == kExtension) i = skipBlocks(i + 2);
    if (i < bytes.size() && bytes[i] != kFrame) return 0;  // not a frame, not cut off either
    return skipBlocks(i + kFrameHeadSize + tableSize(byteAt(i + 9)) + 1);
}

// Where the data of a JPEG picture begins, behind the segments of its head, which may hold a small
// picture of their own; the file's size where there is none.
qsizetype dataOfJpeg(const QByteArray& bytes) {
    constexpr auto kMark = static_cast<char>(0xFF);
    constexpr auto kData = static_cast<char>(0xDA);
    qsizetype i = 2;
    while (i + 4 <= bytes.size() && bytes[i] == kMark && bytes[i + 1] != kData) {
        i += 2 + qFromBigEndian<quint16>(bytes.constData() + i + 2);
    }
    return qMin(i, bytes.size());
}

// Whether the file lacks the end of its picture. Qt's plugins do not mind that.
bool isCutOff(QFile& file) {
    const QByteArray head = file.peek(kBmpHeadSize);
    if (head.startsWith("BM")) return file.size() < endOfBmp(head);
    const bool isJpeg = head.startsWith("\xFF\xD8");
    if (!isJpeg && !head.startsWith("GIF8")) return false;
    const QByteArray bytes = file.readAll();
    file.seek(0);
    if (!isJpeg) return bytes.size() < endOfGif(bytes);
    // After the data comes a mark for its end, and it has no such mark in it.
    return bytes.indexOf("\xFF\xD9", dataOfJpeg(bytes)) < 0;
}

// Invalid where it cannot be told without decoding.
QSize sizeOf(QFile& file) {
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    file.seek(0);  // what this reader has read another one has to read again
    return size;
}

QString sizeText(QSize size) {
    return QStringLiteral("%1 by %2 pixels").arg(size.width()).arg(size.height());
}

}  // namespace

PictureFile readPicture(const std::string& path) {
    const auto refused = [](const QString& reason) {
        return PictureFile{.image = {}, .error = reason.toStdString()};
    };
    const QString name = QString::fromStdString(path);
    const QFileInfo info(name);
    if (info.isDir()) return refused(QFile::tr("is a folder"));
    // Reading a pipe may wait for ever.
    if (info.exists() && !info.isFile()) return refused(QFile::tr("is not a file"));
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) return refused(file.errorString());

    QImageReader::setAllocationLimit(kMemoryLimit);
    const QSize size = sizeOf(file);
    const qint64 bytes = qint64{4} * size.width() * size.height();
    if (size.isValid() && bytes > kMemoryLimit * kBytesPerMiB) {
        return refused(QFile::tr("has %1, too many").arg(sizeText(size)));
    }
    if (isCutOff(file)) return refused(QFile::tr("ends before its picture does"));
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull()) return refused(reader.errorString());
    return {image.convertToFormat(QImage::Format_ARGB32_Premultiplied), {}};
}

}  // namespace corvane
