// The commands of the texture editor's window: its buttons, its menus, the mouse, the picture.
#pragma once

#include <string>

#include "editor/editor.h"
#include "uveditor/commands/uv_editor.h"
#include "views/mouse_button.h"

namespace corvane {

/// The filter of the dialog that picks a background picture: descriptions and patterns in turn.
inline constexpr const char* kPictureFilter =
    "JPEG Images|*.JPG|GIF Images|*.gif|BMP Images|*.bmp|Other Images|*.blp;*.dds;*.png;*.tga";

/// Draws the view anew.
void redraw(UVEditor& uv);

/// The one place where the texture editor changes: runs the change, then refreshes the buttons and
/// draws.
template <class Change>
void changeTexture(UVEditor& uv, Change change) {
    change(uv);
    uv.window.updateButtons();
    redraw(uv);
}

/// The buttons' handlers.
void uvSetSelectMode(UVEditor& uv, SelectMode mode);
void uvSetTransformMode(UVEditor& uv, TransformMode mode);
void uvToggleX(UVEditor& uv);
void uvToggleY(UVEditor& uv);
void uvZoomIn(UVEditor& uv);
void uvZoomOut(UVEditor& uv);
/// Moves the picture, pixels.
void uvPan(UVEditor& uv, int dx, int dy);

/// The menu's commands: every vertex, deleted ones too.
void uvSelectAll(UVEditor& uv);
void uvInvertSelection(UVEditor& uv);

/// A button was pressed, or released, at a position of the view (pixels, cut to whole ones).
/// Releasing the left button selects by the box, any other one transforms the selection.
void uvMouseDown(UVEditor& uv, double x, double y);
void uvMouseUp(UVEditor& uv, MouseButton button, double x, double y);

/// Asks for a picture, from where the last one was and at first from the model's folder, and puts
/// it under the view. A message where it cannot be read; the picture that was there stays.
void loadImage(UVEditor& uv, const Editor& editor);

/// The same for the picture at a path.
void loadImageFrom(UVEditor& uv, const std::string& path);

/// Says why a picture could not be read.
void showPictureError(UVEditor& uv, const std::string& path, const std::string& reason);

}  // namespace corvane
