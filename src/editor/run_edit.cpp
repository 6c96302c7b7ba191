#include "editor/run_edit.h"

#include "edit/selection.h"
#include "views/ortho_view.h"
#include "views/perspective_view.h"

namespace corvane {

namespace {

DrawingSurface& pictureOf(const Editor& editor, View view) {
    switch (view) {
        case View::Front:
            return editor.pictures.front;
        case View::Top:
            return editor.pictures.top;
        case View::Left:
            break;
    }
    return editor.pictures.left;
}

bool isTransform(UndoneBy undoneBy) {
    return undoneBy == UndoneBy::Moving || undoneBy == UndoneBy::Scaling ||
           undoneBy == UndoneBy::Rotating;
}

// What a save writes is what the file holds only where it really is the same: a transform is undone
// by its opposite, which may miss the old number by its last digits, and the oldest step that can
// be reached is reversed again and again.
void countUndone(GeosetStore& store, const UndoRecord& step) {
    if (!step.step || !step.step->kind().changesModel) return;
    if (step.revisionBefore == store.revisions.saved() && store.isAsSaved()) {
        store.revisions.noteBackToSaved();
    } else {
        store.revisions.noteChanged();
    }
}

}  // namespace

void updateView(const Editor& editor, DrawingSurface& drawTo, ViewAxes axes,
                const ViewState& view) {
    drawView({editor.store, editor.markers, editor.modes.showNormals}, drawTo, axes, view);
}

void updateView(Editor& editor, View view) {
    if (!editor.store.modelLoaded) return;
    updateView(editor, pictureOf(editor, view), axesOf(view), editor.views[view]);
}

void redrawAll(Editor& editor) {
    for (const View view : kViews) updateView(editor, view);
}

void drawPerspective(Editor& editor) {
    drawPerspective(editor.store, editor.perspective, editor.pictures.perspective);
}

void show(Editor& editor, Show what) {
    if (what == Show::Buttons || what == Show::ButtonsThenViews) editor.window.updateButtons();
    if (what == Show::Views || what == Show::ViewsThenButtons || what == Show::ButtonsThenViews) {
        redrawAll(editor);
    }
    if (what == Show::ViewsThenButtons) editor.window.updateButtons();
}

void pushUndo(Editor& editor, const StepTaken& taken) {
    if (!editor.store.modelLoaded) return;
    recordStep(editor.undo, editor.store, taken, editor.store.revisions.current());
    show(editor, Show::Buttons);
}

bool beginEdit(Editor& editor, const StepTaken& taken) {
    if (!editor.store.modelLoaded) return false;
    if (taken.step.kind().needsSelection && countSelectedVertices(editor.store) == 0) return false;
    pushUndo(editor, taken);
    return true;
}

void endEdit(Editor& editor, const StepKind& kind, Show what) {
    if (kind.changesModel) editor.store.revisions.noteChanged();
    show(editor, what);
}

void undoLast(Editor& editor) {
    const UndoRecord step = editor.undo.slots.front();
    ActiveSlots active = activeSlots(editor.modes);
    reverseStep(step, editor.store, active);
    setActiveSlots(editor.modes, active);
    // A transform ends clone mode, backwards too.
    if (step.step && isTransform(step.step->kind().undoneBy)) editor.modes.cloneMode = false;
    countUndone(editor.store, step);
    dropNewest(editor.undo);
    show(editor, Show::ButtonsThenViews);
}

}  // namespace corvane
