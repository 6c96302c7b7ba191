// Pictures for tests, and the bytes of files that hold them.
#pragma once

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <string>

namespace corvane {

/// The bytes of an image in a format of Qt's. A JPEG picture may come in passes.
inline std::string bytesOf(const QImage& image, const char* format, bool inPasses = false) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(100);
    writer.setProgressiveScanWrite(inPasses);
    EXPECT_TRUE(writer.write(image));
    return bytes.toStdString();
}

/// A picture of one colour.
inline QImage plain(const QColor& colour, QSize size = {64, 64}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// A picture whose quarters are red, green, blue and yellow, from the upper left one on.
inline QImage quarters() {
    QImage image(64, 32, QImage::Format_RGB32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 64; ++x) {
            const QColor top = x < 32 ? Qt::red : Qt::green;
            const QColor bottom = x < 32 ? Qt::blue : Qt::yellow;
            image.setPixelColor(x, y, y < 16 ? top : bottom);
        }
    }
    return image;
}

/// A small picture of noise, no part of which can be guessed from the others.
inline QImage noise() {
    QImage image(24, 16, QImage::Format_RGB32);
    unsigned value = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            value = value * 1103515245U + 12345U;
            image.setPixel(x, y, 0xFF000000U | value >> 8U);
        }
    }
    return image;
}

/// A GIF of two frames of one pixel, the first one red, the second one blue.
inline std::string animation() {
    const std::string control("\x21\xF9\x04\x00\x0A\x00\x00\x00", 8);
    const std::string frame("\x2C\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02", 12);
    return std::string("GIF89a\x01\x00\x01\x00\x80\x00\x00", 13) +
           std::string("\xFF\x00\x00\x00\x00\xFF", 6) +  // red, blue
           control + frame + std::string("\x44\x01\x00", 3) + control + frame +
           std::string("\x4C\x01\x00", 3) + ";";
}

}  // namespace corvane
