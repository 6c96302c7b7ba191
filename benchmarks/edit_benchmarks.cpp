// What the user waits for after a drag, without drawing: the edit, and its undo.
#include <benchmark/benchmark.h>

#include "bench_editor.h"
#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/selection.h"
#include "edit/transforms.h"
#include "test_commands.h"
#include "views/commands/mouse.h"

namespace corvane {

namespace {

using Edit = void (*)(Editor& editor);

// A box about the right half of the front view.
void selectHalf(Editor& editor) {
    editor.drag = {.dragStartH = 0, .dragStartV = -100, .dragEndH = 100, .dragEndV = 100};
    boxSelect(editor, axesOf(View::Front));
}

void moveAll(Editor& editor) { moveSelection(editor, {1, 2, 3}); }

void rotateAll(Editor& editor) {
    double angle = 30;
    rotateSelection(editor, angle, Axis::Y);
}

void scaleAll(Editor& editor) { scaleSelection(editor, 10, 5); }

// Does and undoes an edit of the sphere, all of it selected, and times one of the two.
void timeEdit(benchmark::State& state, Edit edit, bool timeUndo) {
    BenchEditor<IdleSurface> bench;
    bench.loadSphere();
    selectAll(bench.editor);
    for (auto _ : state) {
        if (timeUndo) state.PauseTiming();
        edit(bench.editor);
        if (timeUndo) {
            state.ResumeTiming();
        } else {
            state.PauseTiming();
        }
        undoLast(bench.editor);
        if (!timeUndo) state.ResumeTiming();
    }
}

#define CORVANE_EDIT_BENCHMARK(name, edit)                                         \
    BENCHMARK_CAPTURE(timeEdit, name, edit, false)->Unit(benchmark::kMillisecond); \
    BENCHMARK_CAPTURE(timeEdit, name##Undo, edit, true)->Unit(benchmark::kMillisecond)

CORVANE_EDIT_BENCHMARK(BoxSelect, selectHalf);
CORVANE_EDIT_BENCHMARK(SelectAll, selectAll);
CORVANE_EDIT_BENCHMARK(Move, moveAll);
CORVANE_EDIT_BENCHMARK(Rotate, rotateAll);
CORVANE_EDIT_BENCHMARK(Scale, scaleAll);

}  // namespace

}  // namespace corvane
