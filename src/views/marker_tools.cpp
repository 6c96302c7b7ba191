#include "views/marker_tools.h"

#include <algorithm>

#include "edit/selection.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

void useSlot(MarkerTable& markers, const Triple& pos) {
    markers[static_cast<std::size_t>(findFreeMarker(markers)) - 1] = {pos, true};
}

}  // namespace

int findFreeMarker(const MarkerTable& markers) {
    const auto free = std::ranges::find(markers, false, &MarkerRecord::used);
    const auto slot = static_cast<int>(free - markers.begin()) + 1;
    return std::min(slot, static_cast<int>(kMarkerSlots));
}

void addMarker(Editor& editor) {
    struct Question {
        const char* prompt;
        Axis axis;
    };
    constexpr std::array<Question, 3> kQuestions = {
        {{"Z (front/back)", Axis::Z}, {"X (left/right)", Axis::X}, {"Y (up/down)", Axis::Y}}};
    Triple pos{};
    for (const Question& question : kQuestions) {
        const std::optional<std::string> answer =
            editor.dialogs.inputBox(question.prompt, "Add marker", "0");
        const std::optional<double> number =
            parseUserNumber(answer.value_or(""), editor.userNumbers);
        if (!number) return;
        pos[slotOf(question.axis)] = *number;
    }
    useSlot(editor.markers, pos);
}

void addMarkerAtSelection(Editor& editor) {
    useSlot(editor.markers, selectionCentre(editor.store));
}

void addMarkerGraphically(Editor& editor) {
    editor.modes.placingMarker = true;
    editor.window.updateButtons();
}

void placeMarkerAt(Editor& editor, ViewAxes axes) {
    Triple pos{};
    pos[slotOf(axes.horizontal)] = editor.drag.dragEndH;
    pos[slotOf(axes.vertical)] = editor.drag.dragEndV;
    useSlot(editor.markers, pos);
    editor.modes.placingMarker = false;
    editor.window.updateButtons();
}

void removeLastMarker(Editor& editor) {
    const auto last = std::find_if(editor.markers.rbegin(), editor.markers.rend(),
                                   [](const MarkerRecord& marker) { return marker.used; });
    if (last != editor.markers.rend()) last->used = false;
    redrawAll(editor);
}

void removeAllMarkers(Editor& editor) {
    for (MarkerRecord& marker : editor.markers) marker.used = false;
    redrawAll(editor);
}

}  // namespace corvane
