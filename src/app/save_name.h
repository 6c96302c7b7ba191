// Which file a save dialog comes to.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace corvane {

/// Shows a file dialog that starts with a path, and returns the path that it gives back; nothing
/// when it is cancelled. It has asked before it gives back the path of an existing file.
using SaveNamePicker = std::function<std::optional<std::string>(const std::string& proposed)>;

/// Asks whether the file with this path may be replaced.
using ReplaceQuestion = std::function<bool(const std::string& path)>;

/// Picks the path of a model to save to. A name without a period gets the extension ".mdl"; the
/// dialog has then asked about another name, or not at all, so that `mayReplace` is asked where the
/// file exists, and after a No the dialog comes again. Nothing when it is cancelled. Paths are
/// UTF-8.
std::optional<std::string> pickSaveName(const std::string& proposed, const SaveNamePicker& pick,
                                        const ReplaceQuestion& mayReplace);

}  // namespace corvane
