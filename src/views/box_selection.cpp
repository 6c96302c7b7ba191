#include "views/box_selection.h"

#include <utility>

#include "views/ortho_view.h"

namespace corvane {

void boxSelect(Editor& editor, ViewAxes axes) {
    if (!editor.modes.selectEnabled) return;
    DragPoints& drag = editor.drag;
    if (drag.dragStartH > drag.dragEndH) std::swap(drag.dragStartH, drag.dragEndH);
    if (drag.dragStartV > drag.dragEndV) std::swap(drag.dragStartV, drag.dragEndV);
    pushUndo(editor, {.keepSelection = true}, {}, "Selection");

    const SelectMode mode = editor.modes.selectMode;
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (mode == SelectMode::Select) vertex.selected = false;
        const double h = vertex.pos[slotOf(axes.horizontal)];
        const double v = vertex.pos[slotOf(axes.vertical)];
        if (drag.dragStartH < h && h < drag.dragEndH && drag.dragStartV < v && v < drag.dragEndV) {
            vertex.selected = mode != SelectMode::Deselect;
        }
    }
    redrawAll(editor);
}

}  // namespace corvane
