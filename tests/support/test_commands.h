// The commands that the menus' tables make of an operation and its step, by name; and steps by the
// names that they show.
#pragma once

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "edit/deletion.h"
#include "edit/normals.h"
#include "edit/placement.h"
#include "edit/selection.h"
#include "edit/weld.h"
#include "editor/run_edit.h"

namespace corvane {

inline void selectAll(Editor& editor) { edit<"Select All", selectAll>(editor); }
inline void invertSelection(Editor& editor) { edit<"Invert Selection", invertSelection>(editor); }
inline void expandSelection(Editor& editor) { edit<"Selection", expandSelection>(editor); }
inline void snapSelection(Editor& editor) { edit<"Snap", snapSelected>(editor); }
inline void weldSelection(Editor& editor) { edit<"Weld", weldSelected>(editor); }
inline void deleteSelectedFaces(Editor& editor) {
    edit<"Delete Face", deleteSelectedFaces>(editor);
}
inline void recalculateNormals(Editor& editor) {
    edit<"Recalculate Normals", recalculateNormals>(editor);
}
inline void mirrorSelection(Editor& editor, Axis axis) {
    runEdit(editor, {"Mirror", {static_cast<double>(slotOf(axis)), 0, 0}},
            [=](Geoset& geoset) { mirrorSelected(geoset, axis); });
}
inline void alignSelection(Editor& editor, Axis axis) {
    runEdit(editor, {"Align", {static_cast<double>(slotOf(axis)), 0, 0}},
            [=](Geoset& geoset) { alignSelected(geoset, axis); });
}

/// The step of the table that shows this name; for a rotation with its axis.
inline StepTaken stepNamed(std::string_view name, const Triple& numbers = {}) {
    Step step = "Move";
    std::optional<Axis> axis;
    if (name.starts_with("Rotate ")) {
        axis = static_cast<Axis>(name.back() - 'x');
        name = "Rotate";
    }
    const auto* const kind = std::ranges::find(kStepKinds, name, &StepKind::name);
    if (kind == kStepKinds.end()) throw std::runtime_error("no step " + std::string(name));
    step.index = static_cast<std::size_t>(kind - kStepKinds.begin());
    return {step, numbers, axis};
}

/// Records a step, which must keep these copies.
inline void pushUndo(Editor& editor, UndoCopies copies, const Triple& numbers,
                     std::string_view name) {
    const StepTaken taken = stepNamed(name, numbers);
    const UndoCopies& keeps = taken.step.kind().keeps;
    if (keeps.keepFaces != copies.keepFaces || keeps.keepVertices != copies.keepVertices ||
        keeps.keepSelection != copies.keepSelection) {
        throw std::runtime_error("other copies are kept for " + std::string(name));
    }
    pushUndo(editor, taken);
}

}  // namespace corvane
