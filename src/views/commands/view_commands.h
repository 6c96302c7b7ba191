// The buttons beside the pictures and of the tool panel, and what the View menu switches.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// The buttons beside a view: zoom it in or out, then draw all views; move its drawing (drawing
/// units), then draw it.
void zoomIn(Editor& editor, View view);
void zoomOut(Editor& editor, View view);
void pan(Editor& editor, View view, int dx, int dy);

/// The buttons beside the perspective picture: change one value of the view, then draw it. Nothing
/// else but opening a model draws it.
void turnPerspective(Editor& editor, int degrees);
void raisePerspective(Editor& editor, int offset);
void zoomPerspective(Editor& editor, int distance);

/// The buttons of the modes.
void setSelectMode(Editor& editor, SelectMode mode);
void setTransformMode(Editor& editor, TransformMode mode);
void toggleClone(Editor& editor);

/// Switches an axis on or off. Records the step "Set Active Axes" first.
void toggleActive(Editor& editor, Axis axis);

/// Records the step "Set Active Axes", unless the newest step already is one: a run of axis
/// toggles is one step. Called before the toggle.
void recordActiveAxes(Editor& editor);

/// Switches the display of normals.
void toggleShowNormals(Editor& editor);

/// Switches the tips.
void toggleTips(Editor& editor);

/// Shows the user guide, or says why not.
void showUserGuide(Editor& editor);

/// Shows a box of the Help menu; nothing where there is none for that menu item.
void showHelp(Editor& editor, std::string_view menuItem);

}  // namespace corvane
