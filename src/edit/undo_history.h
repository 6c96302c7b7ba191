// The history of editing steps, newest first. The three drag transforms are undone by replaying
// them with negated numbers; every other step by putting copies of what it changed back.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/geoset_store.h"

namespace corvane {

struct Editor;

/// One step. A copy that the step does not keep is null. Copies are shared, never changed.
struct UndoRecord {
    bool valid = false;
    std::shared_ptr<const std::vector<bool>> selection;
    std::shared_ptr<const std::vector<VertexRecord>> vertices;
    Triple numbers{};  ///< A, B, C: deltas, angle or axis states; 0 where the step has none
    std::string name;
    std::shared_ptr<const std::vector<FaceRecord>> faces;
};

/// A step pushes all slots down; an undo pulls up only the first ones.
inline constexpr std::size_t kUndoSlots = 40;
inline constexpr std::size_t kUndoPullSlots = 20;

/// The slots, newest first.
struct UndoHistory {
    std::array<UndoRecord, kUndoSlots> slots;

    /// The texture editor was handed the mesh that the steps belong to. Goes with them when
    /// another geoset is read.
    bool inTextureEditor = false;

    /// Save Changes of the texture editor wrote to that mesh, which is no step of its own: an undo
    /// may take back what it wrote.
    bool savedFromTextureEditor = false;
};

/// Which copies a step keeps.
struct UndoCopies {
    bool keepFaces = false;
    bool keepVertices = false;
    bool keepSelection = false;
};

/// Records a step, before the edit that it belongs to. Does nothing while no model is loaded.
void pushUndo(Editor& editor, UndoCopies copies, const Triple& numbers, std::string_view name);

/// Records the step "Set Active Axes", unless the newest step already is one: a run of axis
/// toggles is one step. Called before the toggle.
void recordActiveAxes(Editor& editor);

/// The command Undo: reverses the newest step, drops it and redraws.
void undoLast(Editor& editor);

/// The caption of the Undo menu item: "Undo", with the newest step's name if there is one.
std::string undoCaption(const UndoHistory& history);

}  // namespace corvane
