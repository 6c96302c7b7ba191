// The history of editing steps, newest first. The three drag transforms are undone by replaying
// them with negated numbers; every other step by putting copies of what it changed back.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/geoset.h"
#include "edit/undo_steps.h"

namespace corvane {

/// One step. A copy that the step does not keep is null. Copies are shared, never changed.
struct UndoRecord {
    bool valid = false;
    std::shared_ptr<const std::vector<bool>> selection;
    std::shared_ptr<const std::vector<VertexRecord>> vertices;
    Triple numbers{};  ///< A, B, C: deltas, angle or axis states; 0 where the step has none
    std::string name;  ///< as shown; empty in an empty slot
    std::shared_ptr<const std::vector<FaceRecord>> faces;
    std::optional<Step> step;          ///< nothing in an empty slot
    Axis axis = Axis::X;               ///< that a rotation turned about
    std::uint64_t revisionBefore = 0;  ///< the geoset's revision before the step
};

/// A step pushes all slots down; an undo pulls up only the first ones.
inline constexpr std::size_t kUndoSlots = 40;
inline constexpr std::size_t kUndoPullSlots = 20;

/// The slots, newest first.
struct UndoHistory {
    std::array<UndoRecord, kUndoSlots> slots;
};

/// A step as it is about to be taken.
struct StepTaken {
    // NOLINTNEXTLINE(google-explicit-constructor): most steps have nothing besides
    constexpr StepTaken(Step what, const Triple& itsNumbers = {},
                        std::optional<Axis> rotatedAbout = {})
        : step(what), numbers(itsNumbers), axis(rotatedAbout) {}
    // NOLINTNEXTLINE(google-explicit-constructor): the same
    consteval StepTaken(const char* name) : step(name) {}

    Step step;
    Triple numbers{};
    std::optional<Axis> axis{};  ///< of a rotation, whose name it ends
};

/// Records a step of the geoset as it is before the change.
void recordStep(UndoHistory& history, const Geoset& geoset, const StepTaken& taken,
                std::uint64_t revision);

/// Reverses a step: puts its copies back, or does the opposite to what is selected now along the
/// axes that are active now. Nothing for an empty slot.
void reverseStep(const UndoRecord& step, Geoset& geoset, ActiveSlots& active);

/// Drops the newest step. Only the first 20 slots move up, and slot 20 keeps its record: after
/// nineteen undos in a row the twentieth newest step fills slots 1 to 20 and is reversed again and
/// again. What lies deeper is never reached.
void dropNewest(UndoHistory& history);

/// The caption of the Undo menu item: "Undo", with the newest step's name if there is one.
std::string undoCaption(const UndoHistory& history);

}  // namespace corvane
