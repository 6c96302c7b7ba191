// The one place that runs an edit. An operation changes a geoset and knows nothing else; what every
// edit must do besides is done here: record its step, count the revision, draw, refresh the
// buttons.
#pragma once

#include <cstdint>

#include "editor/editor.h"

namespace corvane {

/// What a command has to show when it is done.
enum class Show : std::uint8_t {
    Nothing,
    Buttons,  ///< buttons, menu items, titles; and the texture editor looks at the mesh
    Views,
    ViewsThenButtons,
    ButtonsThenViews,
};

/// Draws the three views; nothing while no model is loaded.
void redrawAll(Editor& editor);

/// Draws one view; nothing while no model is loaded.
void updateView(Editor& editor, View view);

/// Draws the view on a surface, whatever is loaded.
void updateView(const Editor& editor, DrawingSurface& drawTo, ViewAxes axes, const ViewState& view);

/// Draws the perspective picture. Only opening a model and the picture's own buttons do.
void drawPerspective(Editor& editor);

/// Shows what a command changed. Commands leave this to runEdit() and runChange().
void show(Editor& editor, Show what);

/// Records a step without a change, as a command does that was cancelled after it had recorded.
/// Nothing while no model is loaded.
void pushUndo(Editor& editor, const StepTaken& taken);

/// What an edit does before its change, and after it; runEdit() puts the change in between.
bool beginEdit(Editor& editor, const StepTaken& taken);
void endEdit(Editor& editor, const StepKind& kind, Show what);

/// Runs `change` (a function of a Geoset&) as one edit: records the step, changes, counts the
/// revision, shows. False, and nothing done, while no model is loaded or where the step needs a
/// selection and there is none.
template <class Change>
bool runEdit(Editor& editor, const StepTaken& taken, Change change,
             Show what = Show::ViewsThenButtons) {
    if (!beginEdit(editor, taken)) return false;
    try {
        change(static_cast<Geoset&>(editor.store));
    } catch (...) {
        // Half of it may be there: that counts, and Undo takes it back.
        endEdit(editor, taken.step.kind(), what);
        throw;
    }
    endEdit(editor, taken.step.kind(), what);
    return true;
}

/// The same as a command without questions, for the tables of menus and buttons.
template <Step kStep, void (*kChange)(Geoset&)>
void edit(Editor& editor) {
    runEdit(editor, kStep, kChange);
}

/// The same for an operation that takes one more argument, known when the table is written.
template <Step kStep, auto kChange, Axis kAxis>
void editAxis(Editor& editor) {
    // The axis goes with the step, as the number of its slot.
    runEdit(editor, {kStep, {static_cast<double>(slotOf(kAxis)), 0, 0}},
            [](Geoset& geoset) { kChange(geoset, kAxis); });
}

/// Runs a change that is no step of Undo and changes nothing that a save writes: of modes, views,
/// markers, or of the selection where no step records it.
template <class Change>
void runChange(Editor& editor, Show what, Change change) {
    change(editor);
    show(editor, what);
}

/// Counts a change that is no step of Undo but changes what a save writes, and shows it.
template <class Change>
void runUnrecorded(Editor& editor, Show what, Change change) {
    change(editor);
    editor.store.revisions.noteChanged();
    show(editor, what);
}

/// The command Undo: reverses the newest step and drops it.
void undoLast(Editor& editor);

}  // namespace corvane
