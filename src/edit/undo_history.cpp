#include "edit/undo_history.h"

#include <algorithm>

#include "edit/deletion.h"
#include "edit/transforms.h"

namespace corvane {

namespace {

std::shared_ptr<const std::vector<bool>> selectionOf(const Geoset& geoset) {
    std::vector<bool> selection(geoset.Vertices.size());
    for (std::size_t i = 0; i < selection.size(); ++i) selection[i] = geoset.Vertices[i].selected;
    return std::make_shared<const std::vector<bool>>(std::move(selection));
}

void putBack(const UndoRecord& step, Geoset& geoset) {
    if (step.vertices) geoset.Vertices = *step.vertices;
    if (step.faces) geoset.Faces = *step.faces;
    if (!step.selection) return;
    const std::size_t count = std::min(geoset.Vertices.size(), step.selection->size());
    for (std::size_t i = 0; i < count; ++i) geoset.Vertices[i].selected = (*step.selection)[i];
}

}  // namespace

void recordStep(UndoHistory& history, const Geoset& geoset, const StepTaken& taken,
                std::uint64_t revision) {
    const StepKind& kind = taken.step.kind();
    UndoRecord record;
    record.valid = true;
    record.step = taken.step;
    record.numbers = taken.numbers;
    record.name = kind.name;
    if (taken.axis) {
        record.axis = *taken.axis;
        record.name += {' ', letterOf(*taken.axis)};
    }
    record.revisionBefore = revision;
    if (kind.keeps.keepSelection) record.selection = selectionOf(geoset);
    if (kind.keeps.keepVertices) {
        record.vertices = std::make_shared<const std::vector<VertexRecord>>(geoset.Vertices);
    }
    if (kind.keeps.keepFaces) {
        record.faces = std::make_shared<const std::vector<FaceRecord>>(geoset.Faces);
    }
    std::shift_right(history.slots.begin(), history.slots.end(), 1);
    history.slots.front() = std::move(record);
}

void reverseStep(const UndoRecord& step, Geoset& geoset, ActiveSlots& active) {
    if (!step.step) return;
    const auto& [a, b, c] = step.numbers;
    switch (step.step->kind().undoneBy) {
        case UndoneBy::Copies:
            putBack(step, geoset);
            break;
        case UndoneBy::Moving:
            moveSelected(geoset, {-a, -b, -c}, active);
            break;
        case UndoneBy::Scaling:
            scaleSelected(geoset, -a, -b, active);
            break;
        case UndoneBy::Rotating: {
            double angle = -a;
            rotateSelected(geoset, angle, step.axis);
            break;
        }
        case UndoneBy::Undeleting:
            undeleteSelected(geoset);
            break;
        case UndoneBy::AxisStates:
            active = {a == 1.0, b == 1.0, c == 1.0};
            break;
    }
}

void dropNewest(UndoHistory& history) {
    auto& slots = history.slots;
    std::shift_left(slots.begin(), slots.begin() + kUndoPullSlots - 1, 1);
    slots[kUndoPullSlots - 2] = slots[kUndoPullSlots - 1];
    slots.back() = {};
}

std::string undoCaption(const UndoHistory& history) {
    const UndoRecord& newest = history.slots.front();
    return newest.valid ? "Undo " + newest.name : "Undo";
}

}  // namespace corvane
