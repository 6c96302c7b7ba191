// All that the texture editor's window owns.
#pragma once

#include <optional>
#include <string>

#include "editor/dialogs.h"
#include "model/snapshot.h"
#include "uveditor/uv_state.h"

namespace corvane {

/// What the texture editor asks of its window. Kept narrow so that a test can stand in for it.
class UVWindow {
public:
    virtual ~UVWindow() = default;

    /// Brings buttons and title in line with the editor's state.
    virtual void updateButtons() = 0;

    /// Shows a text (UTF-8) that stays until another one takes its place; empty for none.
    virtual void showNotice(const std::string& text) = 0;

    /// Loads a picture for the background. Nothing where it was loaded; else the reason why not,
    /// and the picture that was there stays.
    virtual std::string loadPicture(const std::string& path) = 0;
};

/// The state and what its commands ask of the window, for as long as the window exists.
struct UVEditor : UVState {
    UVWindow& window;
    Dialogs& dialogs;
    /// The mesh that the data was taken from, as it was when another one was read.
    std::optional<Snapshot> leftMesh{};
};

}  // namespace corvane
