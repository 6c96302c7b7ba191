// What is dropped on a window: the one file that it can open.
#pragma once

#include <QMimeData>
#include <string>

namespace corvane {

/// The path of the model that is dropped; empty where it is anything else, or more than one file.
std::string droppedModel(const QMimeData& data);

/// The same for a picture, of a kind that Load Image lists or Qt reads.
std::string droppedPicture(const QMimeData& data);

}  // namespace corvane
