#include "views/tool_modes.h"

#include "editor.h"
#include "views/ortho_view.h"

namespace corvane {

void setSelectMode(Editor& editor, SelectMode mode) {
    editor.modes.selectMode = mode;
    editor.window.updateButtons();
}

void setTransformMode(Editor& editor, TransformMode mode) {
    editor.modes.transformMode = mode;
    editor.window.updateButtons();
}

void toggleClone(Editor& editor) {
    editor.modes.cloneMode = !editor.modes.cloneMode;
    editor.window.updateButtons();
}

void toggleActive(Editor& editor, Axis axis) {
    recordActiveAxes(editor);
    ToolModes& modes = editor.modes;
    bool& active = axis == Axis::X   ? modes.activeX
                   : axis == Axis::Y ? modes.activeY
                                     : modes.activeZ;
    active = !active;
    editor.window.updateButtons();
}

void toggleShowNormals(Editor& editor) {
    editor.modes.showNormals = !editor.modes.showNormals;
    editor.window.updateButtons();
    redrawAll(editor);
}

Colour colourOf(const ToolModes& modes, SelectMode button) {
    return modes.selectMode == button ? kWhite : kButtonFace;
}

Colour colourOf(const ToolModes& modes, TransformMode button) {
    return modes.transformMode == button ? kWhite : kButtonFace;
}

Colour cloneColour(const ToolModes& modes) { return modes.cloneMode ? kCloneColour : kButtonFace; }

Colour axisColour(bool active) { return active ? kButtonFace : kInactiveAxisColour; }

}  // namespace corvane
