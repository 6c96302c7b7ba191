#include "views/commands/marker_commands.h"

#include <array>
#include <optional>
#include <string>

#include "edit/selection.h"
#include "editor/run_edit.h"

namespace corvane {

void addMarker(Editor& editor) {
    struct Question {
        const char* prompt;
        Axis axis;
    };
    constexpr std::array<Question, 3> kQuestions = {
        {{"Z (front/back)", Axis::Z}, {"X (left/right)", Axis::X}, {"Y (up/down)", Axis::Y}}};
    Triple pos{};
    for (const Question& question : kQuestions) {
        std::optional<double> number;
        while (!number) {
            const std::optional<std::string> answer =
                editor.dialogs.inputBox(question.prompt, "Add marker", "0");
            if (!answer) return;
            number = parseUserNumber(*answer, editor.userNumbers);
            if (!number) {
                editor.dialogs.messageBox(
                    kErrorCaption,
                    "A coordinate is a number within the range of a double, such as " +
                        formatUserNumber(1.5, editor.userNumbers) + ". Cancel adds no marker.");
            }
        }
        pos[slotOf(question.axis)] = *number;
    }
    runChange(editor, Show::Nothing, [&](Editor& e) { placeMarker(e.markers, pos); });
}

void addMarkerAtSelection(Editor& editor) {
    runChange(editor, Show::Nothing,
              [](Editor& e) { placeMarker(e.markers, selectionCentre(e.store)); });
}

void addMarkerGraphically(Editor& editor) {
    runChange(editor, Show::Buttons,
              [](Editor& e) { e.modes.placingMarker = !e.modes.placingMarker; });
}

void placeMarkerAt(Editor& editor, ViewAxes axes) {
    runChange(editor, Show::Buttons, [=](Editor& e) {
        Triple pos{};
        pos[slotOf(axes.horizontal)] = e.drag.dragEndH;
        pos[slotOf(axes.vertical)] = e.drag.dragEndV;
        placeMarker(e.markers, pos);
        e.modes.placingMarker = false;
    });
}

void removeLastMarker(Editor& editor) {
    runChange(editor, Show::Views, [](Editor& e) { removeLastMarker(e.markers); });
}

void removeAllMarkers(Editor& editor) {
    runChange(editor, Show::Views, [](Editor& e) { removeAllMarkers(e.markers); });
}

}  // namespace corvane
