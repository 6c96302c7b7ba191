// What the commands ask of the main window. Kept narrow so that a test can stand in for it.
#pragma once

#include <string>

namespace corvane {

struct Snapshot;
struct UVData;

class EditorWindow {
public:
    virtual ~EditorWindow() = default;

    /// Brings buttons, menu items and the title in line with the editor's state.
    virtual void updateButtons() = 0;

    /// Shows a one-line tip (UTF-8) unless tips are switched off.
    virtual void showTip(const std::string& text) = 0;

    /// Shows a text (UTF-8) that stays, whatever tips come and whether or not they are switched on,
    /// until another one takes its place; empty for none.
    virtual void showNotice(const std::string& text) = 0;

    /// Starts, or starts again, the single-shot timer that allows box selection when it fires.
    virtual void startSelectTimer() = 0;

    /// Shows the texture editor with new data.
    virtual void showTextureEditor(UVData data) = 0;

    /// The mesh in memory may be about to leave it: writes the texture editor's coordinates that
    /// Save Changes has not written into a snapshot of that mesh, if they were taken from it.
    /// Whether there are any. What is changed there later can still be kept with that snapshot.
    virtual bool addUnsavedTexture(Snapshot& /*snapshot*/) { return false; }

    /// Shows what was kept, to be brought back.
    virtual void showRecover() {}

    /// Shows the user guide, or says why not.
    virtual void showGuide() {}

    /// Puts a text (UTF-8) on the clipboard.
    virtual void copyText(const std::string& text) = 0;
};

}  // namespace corvane
