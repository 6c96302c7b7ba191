// Pictures in files: JPEG, GIF, BMP and whatever else Qt's plugins read.
#pragma once

#include <QImage>
#include <string>

namespace corvane {

/// A picture as it was read, or why it was not.
struct PictureFile {
    QImage image;
    std::string error;  ///< empty where there is an image
};

/// Reads a picture by what the file holds, whatever its name; of an animation the first frame. A
/// file that ends before its picture does is refused: the missing part would show as anything.
PictureFile readPicture(const std::string& path);

}  // namespace corvane
