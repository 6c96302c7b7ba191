// The texture that the model itself names, under the texture editor's view.
#pragma once

#include "editor/editor.h"
#include "uveditor/commands/uv_editor.h"

namespace corvane {

/// The command Load Model's Texture: looks for the file of the geoset's texture and puts its
/// picture under the view. A message where there is none, with the names that were looked for, or
/// where it cannot be read; the picture that was there stays.
void loadModelTexture(UVEditor& uv, const Editor& editor);

/// Brings the picture up to date when data are handed over: the model's texture where the user has
/// chosen no picture; otherwise, and where the model's is not found or cannot be read, the one that
/// is there, from its file. Says only why a picture of the user's cannot be read. Does not draw.
void refreshPicture(UVEditor& uv, const Editor& editor);

}  // namespace corvane
