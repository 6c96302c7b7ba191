#include "views/box_selection.h"

#include <utility>

namespace corvane {

void sortDrag(DragPoints& drag) {
    if (drag.dragStartH > drag.dragEndH) std::swap(drag.dragStartH, drag.dragEndH);
    if (drag.dragStartV > drag.dragEndV) std::swap(drag.dragStartV, drag.dragEndV);
}

void selectInBox(Geoset& geoset, const DragPoints& box, ViewAxes axes, SelectMode mode) {
    for (VertexRecord& vertex : geoset.Vertices) {
        if (mode == SelectMode::Select) vertex.selected = false;
        const double h = vertex.pos[slotOf(axes.horizontal)];
        const double v = vertex.pos[slotOf(axes.vertical)];
        if (box.dragStartH < h && h < box.dragEndH && box.dragStartV < v && v < box.dragEndV) {
            vertex.selected = mode != SelectMode::Deselect;
        }
    }
}

}  // namespace corvane
