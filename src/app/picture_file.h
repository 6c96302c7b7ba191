// Pictures in files: JPEG, GIF, BMP, PNG and whatever else Qt's plugins read; BLP, DDS and TGA.
#pragma once

#include <QImage>
#include <string>

namespace corvane {

/// Larger files are not read, bytes. A picture of the largest size takes as much uncompressed.
inline constexpr qint64 kLargestPictureFile = qint64{256} * 1024 * 1024;

/// A picture as it was read, or why it was not.
struct PictureFile {
    QImage image;       ///< of a format without transparency
    std::string error;  ///< empty where there is an image
};

/// Reads a picture by what the file holds, whatever its name; of an animation the first frame. Its
/// colours are as they are stored, those of transparent pixels too, and it is not turned. A file
/// that lacks a part of its picture is refused: the missing part would show as anything.
PictureFile readPicture(const std::string& path);

}  // namespace corvane
