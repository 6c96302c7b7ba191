// Brings back a model that was kept.
#pragma once

#include <optional>
#include <string>

#include "editor/editor.h"

namespace corvane {

/// The command Recover: shows what was kept.
void showRecover(Editor& editor);

/// A model that was kept, and where it belongs.
struct KeptModel {
    ModelText text;
    std::string modelPath;           ///< where a save will write it
    std::optional<FileStamp> stamp;  ///< of the model file when it was last known
    int geosetNumber = 0;            ///< 1-based; chosen by the user where the text lacks it
};

/// Makes a kept model the current one, with one of its geosets, unsaved. A save asks where the
/// model file is another one than then. False after a message, and then everything is as it was.
bool openKept(Editor& editor, const KeptModel& kept);

}  // namespace corvane
