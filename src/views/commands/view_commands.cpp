#include "views/commands/view_commands.h"

#include "editor/run_edit.h"
#include "views/help_texts.h"
#include "views/navigation.h"
#include "views/perspective_view.h"

namespace corvane {

namespace {

// Changes the perspective view and draws it.
template <class Change>
void changePerspective(Editor& editor, Change change) {
    change(editor.perspective);
    drawPerspective(editor);
}

}  // namespace

void zoomIn(Editor& editor, View view) {
    runChange(editor, Show::Views, [=](Editor& e) { zoomIn(e.views[view]); });
}

void zoomOut(Editor& editor, View view) {
    runChange(editor, Show::Views, [=](Editor& e) { zoomOut(e.views[view]); });
}

void pan(Editor& editor, View view, int dx, int dy) {
    pan(editor.views[view], dx, dy);
    updateView(editor, view);
}

void turnPerspective(Editor& editor, int degrees) {
    changePerspective(editor, [=](PerspectiveState& state) { turnPerspective(state, degrees); });
}

void raisePerspective(Editor& editor, int offset) {
    changePerspective(editor, [=](PerspectiveState& state) { raisePerspective(state, offset); });
}

void zoomPerspective(Editor& editor, int distance) {
    changePerspective(editor, [=](PerspectiveState& state) { zoomPerspective(state, distance); });
}

void setSelectMode(Editor& editor, SelectMode mode) {
    runChange(editor, Show::Buttons, [=](Editor& e) { e.modes.selectMode = mode; });
}

void setTransformMode(Editor& editor, TransformMode mode) {
    runChange(editor, Show::Buttons, [=](Editor& e) { e.modes.transformMode = mode; });
}

void toggleClone(Editor& editor) {
    runChange(editor, Show::Buttons, [](Editor& e) { e.modes.cloneMode = !e.modes.cloneMode; });
}

void toggleActive(Editor& editor, Axis axis) {
    recordActiveAxes(editor);
    runChange(editor, Show::Buttons, [=](Editor& e) {
        ActiveSlots active = activeSlots(e.modes);
        active[slotOf(axis)] = !active[slotOf(axis)];
        setActiveSlots(e.modes, active);
    });
}

void recordActiveAxes(Editor& editor) {
    constexpr Step kSetActiveAxes = "Set Active Axes";
    if (editor.undo.slots.front().step == kSetActiveAxes) return;
    const auto number = [](bool active) { return active ? 1.0 : 0.0; };
    const ToolModes& modes = editor.modes;
    pushUndo(editor, {kSetActiveAxes,
                      {number(modes.activeX), number(modes.activeY), number(modes.activeZ)}});
}

void toggleShowNormals(Editor& editor) {
    runChange(editor, Show::ButtonsThenViews,
              [](Editor& e) { e.modes.showNormals = !e.modes.showNormals; });
}

void toggleTips(Editor& editor) {
    runChange(editor, Show::Buttons, [](Editor& e) { e.modes.tipsEnabled = !e.modes.tipsEnabled; });
}

void showUserGuide(Editor& editor) { editor.window.showGuide(); }

void showHelp(Editor& editor, std::string_view menuItem) {
    const HelpBox* const box = helpBoxOf(menuItem);
    if (box == nullptr) return;
    if (box->rightToLeft) {
        editor.dialogs.rightToLeftMessageBox(box->title, box->text);
    } else {
        editor.dialogs.messageBox(box->title, box->text);
    }
}

}  // namespace corvane
