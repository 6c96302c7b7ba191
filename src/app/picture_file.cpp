#include "app/picture_file.h"

#include <QFile>
#include <QImageReader>
#include <QLocale>
#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

#include "model/files.h"
#include "textures/jpeg_marks.h"
#include "textures/texture.h"

namespace corvane {

namespace {

// Of a picture: 8192 by 8192 pixels, which take up to 8 bytes each before they are converted.
constexpr int kMemoryLimit = 512;  // MiB
constexpr qint64 kBytesPerMiB = qint64{1024} * 1024;

constexpr std::uint32_t kOpaqueAlpha = 0xFF000000;

// A file's bytes for a decoder. Qt's decoders of BMP, GIF and JPEG say nothing where the file ends
// before its picture does; what is missing is black, or noise. But they have tried to read it. No
// QBuffer: Qt takes the bytes of those without asking for them.
class Source : public QIODevice {
public:
    explicit Source(const QByteArray& bytes) : bytes_(bytes) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    qint64 size() const override { return bytes_.size(); }

    void forgetReads() { shortReads_ = emptyReads_ = 0; }

    /// Whether a decoder wanted more than there is: one that reads no more than it needs, or one
    /// that reads blocks, of which the last one may be a short one.
    bool wasTooShortForExactReads() const { return shortReads_ > 0; }
    bool wasTooShortForBlocks() const { return emptyReads_ > 0; }

protected:
    qint64 readData(char* to, qint64 wanted) override {
        const qint64 read = std::clamp<qint64>(bytes_.size() - pos(), 0, wanted);
        std::copy_n(bytes_.constData() + pos(), read, to);
        if (read < wanted) ++shortReads_;
        if (read == 0 && wanted > 0) ++emptyReads_;
        return read;
    }
    qint64 writeData(const char* /*from*/, qint64 /*count*/) override { return -1; }

private:
    const QByteArray& bytes_;
    int shortReads_ = 0;
    int emptyReads_ = 0;
};

// Counts what libjpeg complains of while this exists. Qt only writes it to its log.
class JpegComplaints {
public:
    JpegComplaints() {
        count_ = 0;
        previous_ = qInstallMessageHandler(note);
    }
    ~JpegComplaints() { qInstallMessageHandler(previous_); }
    JpegComplaints(const JpegComplaints&) = delete;
    JpegComplaints& operator=(const JpegComplaints&) = delete;

    bool any() const { return count_ > 0; }

private:
    static void note(QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (qstrcmp(context.category, "qt.gui.imageio.jpeg") == 0) ++count_;
        previous_(type, context, text);
    }

    static inline int count_ = 0;
    static inline QtMessageHandler previous_ = nullptr;
};

// Whether a file lacks a part of its picture although the decoder made one.
bool isCutOff(const QByteArray& format, const QByteArray& bytes, const Source& source,
              const JpegComplaints& complaints) {
    if (format == "bmp") return source.wasTooShortForExactReads();
    if (format == "gif") return source.wasTooShortForBlocks();
    if (format != "jpeg" || !source.wasTooShortForBlocks()) return false;
    // It may lack the mark of its end and nothing else. Where the colours come in several passes
    // that cannot be told: without the later ones the picture is only blurred.
    return comesInPasses({bytes.constData(), static_cast<std::size_t>(bytes.size())}) ||
           complaints.any();
}

QString sizeText(QSize size) {
    return QStringLiteral("%1 by %2 pixels").arg(size.width()).arg(size.height());
}

QString bytesText(qint64 bytes) { return QLocale::c().formattedDataSize(bytes); }

QString noMemory() { return QFile::tr("needs more memory than there is"); }

// What a decoder made of a file's bytes, or the reason why it is no use.
struct Decoded {
    QImage image;
    QString error;
};

Decoded decoded(const QByteArray& bytes) {
    QImageReader::setAllocationLimit(kMemoryLimit);
    Source source(bytes);
    QImageReader reader(&source);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (size.isValid() && qint64{4} * size.width() * size.height() > kMemoryLimit * kBytesPerMiB) {
        return {{}, QFile::tr("has %1, too many").arg(sizeText(size))};
    }
    const QByteArray format = reader.format();
    source.forgetReads();
    const JpegComplaints complaints;
    const QImage::Format pixels = reader.imageFormat();
    const QImage image = reader.read();
    if (image.isNull()) {
        // Qt's decoders call a lack of memory an error of the file.
        const bool isKnown = size.isValid() && pixels != QImage::Format_Invalid;
        const bool hadRoom = !isKnown || !QImage(size, pixels).isNull();
        return {{}, hadRoom ? reader.errorString() : noMemory()};
    }
    if (isCutOff(format, bytes, source, complaints)) {
        return {{}, QFile::tr("ends before its picture does")};
    }
    return {image, {}};
}

PictureFile refused(const QString& reason) { return {.image = {}, .error = reason.toStdString()}; }

PictureFile refusedForMemory() { return refused(noMemory()); }

// A texture's pixels as an image, which owns them from here on. Without transparency.
QImage imageOf(Texture texture) {
    std::uint32_t* const pixels = texture.pixels.get();
    for (std::size_t i = 0; i < texture.size(); ++i) pixels[i] |= kOpaqueAlpha;
    const auto bytesPerLine = qsizetype{sizeof(std::uint32_t)} * texture.width;
    const auto release = [](void* owned) { delete[] static_cast<std::uint32_t*>(owned); };
    QImage image(reinterpret_cast<uchar*>(pixels), static_cast<int>(texture.width),
                 static_cast<int>(texture.height), bytesPerLine, QImage::Format_RGB32, release,
                 pixels);
    if (!image.isNull()) static_cast<void>(texture.pixels.release());
    return image;
}

// What Qt does not read, or not all of.
PictureFile textureIn(std::string_view bytes) {
    try {
        const QImage image =
            imageOf(decodeTexture(bytes, kMemoryLimit * kBytesPerMiB / sizeof(std::uint32_t)));
        return image.isNull() ? refusedForMemory() : PictureFile{image, {}};
    } catch (const TextureError& error) {
        return refused(QString::fromStdString(error.what()));
    }
}

PictureFile refused(std::error_code error) {
    return refused(QString::fromStdString(error.message()));
}

PictureFile pictureIn(files::File& file, const files::Status& status) {
    const auto size = static_cast<qsizetype>(status.stamp.size);
    if (size > kLargestPictureFile) {
        return refused(
            QFile::tr("has %1, more than %2").arg(bytesText(size), bytesText(kLargestPictureFile)));
    }
    QByteArray bytes(size, Qt::Uninitialized);
    qsizetype got = 0;
    std::error_code error;
    while (got < size) {  // no further if it grows meanwhile
        const std::span<char> rest(bytes.data() + got, static_cast<std::size_t>(size - got));
        const std::size_t read = file.read(rest, error);
        if (error) return refused(error);
        if (read == 0) break;
        got += static_cast<qsizetype>(read);
    }
    bytes.truncate(got);

    const std::string_view content(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (isTexture(content)) return textureIn(content);
    Decoded picture = decoded(bytes);
    if (!picture.error.isEmpty()) return refused(picture.error);
    // This keeps the colours of transparent pixels.
    const QImage opaque = std::move(picture.image).convertToFormat(QImage::Format_RGB32);
    if (opaque.isNull()) return refusedForMemory();
    return {opaque, {}};
}

}  // namespace

// The path goes to the system as it is: Qt finds no file whose name is not UTF-8.
PictureFile readPicture(const std::string& path) {
    std::error_code error;
    files::File file = files::File::toRead(path, error);  // does not wait for a pipe's writer
    const std::optional<files::Status> status = error ? std::nullopt : file.status(error);
    if (!status) return refused(error);
    if (status->kind == files::Kind::Folder) return refused(QFile::tr("is a folder"));
    if (status->kind != files::Kind::Regular) return refused(QFile::tr("is not a file"));
    try {
        return pictureIn(file, *status);
    } catch (const std::bad_alloc&) {
        return refusedForMemory();
    }
}

}  // namespace corvane
