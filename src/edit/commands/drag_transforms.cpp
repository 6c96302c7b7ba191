#include "edit/commands/drag_transforms.h"

#include "edit/clone.h"
#include "edit/extrude.h"
#include "edit/transforms.h"
#include "editor/run_edit.h"

namespace corvane {

namespace {

// Whether the geoset may grow that much; a message where it may not.
bool mayGrow(Editor& editor, const char* what, Growth growth) {
    if (fitsLimits(editor.store, growth)) return true;
    editor.dialogs.messageBox(kErrorCaption, limitMessage(what, editor.store, growth));
    return false;
}

// Runs a transform of the selection; in clone mode of a copy of it, as the step "Clone".
template <class Transform>
void runTransform(Editor& editor, const StepTaken& taken, Show what, Transform transform) {
    if (!editor.modes.cloneMode) {
        runEdit(editor, taken, transform, what);
        return;
    }
    if (!mayGrow(editor, "The cloned geoset", cloneGrowth(editor.store))) return;
    runEdit(
        editor, Step("Clone"),
        [&](Geoset& geoset) {
            cloneSelected(geoset);
            transform(geoset);
            editor.modes.cloneMode = false;
        },
        what);
}

}  // namespace

void moveSelection(Editor& editor, const Triple& delta) {
    runTransform(editor, {"Move", delta}, Show::ViewsThenButtons,
                 [&](Geoset& geoset) { moveSelected(geoset, delta, activeSlots(editor.modes)); });
}

void scaleSelection(Editor& editor, double a, double b) {
    runTransform(editor, {"Scale", {a, b, 0}}, Show::ViewsThenButtons,
                 [&](Geoset& geoset) { scaleSelected(geoset, a, b, activeSlots(editor.modes)); });
}

void rotateSelection(Editor& editor, double& angle, Axis axis) {
    runTransform(editor, {"Rotate", {angle, 0, 0}, axis}, Show::ButtonsThenViews,
                 [&](Geoset& geoset) { rotateSelected(geoset, angle, axis); });
}

void extrudeSelection(Editor& editor, const Triple& delta) {
    const std::vector<FaceEdge> open = openEdges(editor.store);
    if (!mayGrow(editor, "The extruded geoset", extrudeGrowth(editor.store, open))) return;
    runEdit(editor, "Extrude", [&](Geoset& geoset) {
        extrudeSelected(geoset, open);
        moveSelected(geoset, delta, activeSlots(editor.modes));
        editor.modes.cloneMode = false;
    });
}

}  // namespace corvane
