#include "views/commands/mouse.h"

#include <cmath>

#include "edit/commands/drag_transforms.h"
#include "editor/run_edit.h"
#include "views/box_selection.h"
#include "views/commands/marker_commands.h"

namespace corvane {

namespace {

constexpr int kReadoutDecimals = 3;

const char* tipOf(View view) {
    switch (view) {
        case View::Front:
            return "Front viewport";
        case View::Top:
            return "Top viewport";
        case View::Left:
            break;
    }
    return "Left viewport";
}

// A drag's deltas on a view's axes, as a triple in slot order.
Triple deltaIn(View view, double dH, double dV) {
    Triple delta{};
    delta[slotOf(axesOf(view).horizontal)] = dH;
    delta[slotOf(axesOf(view).vertical)] = dV;
    return delta;
}

void transform(Editor& editor, View view, double dH, double dV) {
    switch (editor.modes.transformMode) {
        case TransformMode::Move:
            moveSelection(editor, deltaIn(view, dH, dV));
            break;
        case TransformMode::Scale:
            scaleSelection(editor, dH, dV);
            break;
        case TransformMode::Rotate:
            rotateSelection(editor, dV, depthAxisOf(view));
            break;
        case TransformMode::Extrude:
            extrudeSelection(editor, deltaIn(view, dH, dV));
            break;
    }
}

}  // namespace

ModelPoint toModel(const Editor& editor, View view, double x, double y) {
    const ViewState& state = editor.views[view];
    // All views are of the front picture's size.
    const double width = editor.pictures.front.width();
    const double height = editor.pictures.front.height();
    return {(x - state.panX - width / 2) / state.zoom, -(y - state.panY - height / 2) / state.zoom};
}

Readout mouseMove(Editor& editor, View view, double x, double y) {
    const ModelPoint point = toModel(editor, view, x, y);
    const auto text = [&](double value) {
        return formatUserNumber(roundToDecimals(value, kReadoutDecimals), editor.userNumbers);
    };
    editor.window.showTip(tipOf(view));
    // The boxes are labelled with the file's axes, not with the editor's.
    switch (view) {
        case View::Front:
            return {.x = "0", .y = text(point.h), .z = text(point.v)};
        case View::Top:
            return {.x = text(point.v), .y = text(point.h), .z = "0"};
        case View::Left:
            break;
    }
    return {.x = text(point.h), .y = "0", .z = text(point.v)};
}

void mouseDown(Editor& editor, View view, double x, double y) {
    const ModelPoint point = toModel(editor, view, x, y);
    editor.drag.dragStartH = point.h;
    editor.drag.dragStartV = point.v;
}

void mouseUp(Editor& editor, View view, MouseButton button, double x, double y) {
    const ModelPoint point = toModel(editor, view, x, y);
    DragPoints& drag = editor.drag;
    drag.dragEndH = point.h;
    drag.dragEndV = point.v;
    // Zoomed out beyond all measure a drag is no number, and whatever it moved would be lost.
    const bool isNumber = std::isfinite(drag.dragEndH - drag.dragStartH) &&
                          std::isfinite(drag.dragEndV - drag.dragStartV);
    if (!isNumber) return;
    if (button == MouseButton::Left) {
        if (editor.modes.placingMarker) {
            placeMarkerAt(editor, axesOf(view));
        } else {
            boxSelect(editor, axesOf(view));
        }
    } else {
        transform(editor, view, drag.dragEndH - drag.dragStartH, drag.dragEndV - drag.dragStartV);
    }
}

void boxSelect(Editor& editor, ViewAxes axes) {
    if (!editor.modes.selectEnabled) return;
    sortDrag(editor.drag);
    runEdit(editor, "Selection", [&](Geoset& geoset) {
        selectInBox(geoset, editor.drag, axes, editor.modes.selectMode);
    });
}

}  // namespace corvane
