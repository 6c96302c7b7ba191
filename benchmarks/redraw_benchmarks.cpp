// The core's share of a redraw of the three views.
#include "editor/run_edit.h"
#include "redraw_shapes.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

void Redraw(benchmark::State& state) {
    BenchEditor<RecordingSurface> bench;
    showSphere(bench, state);
    for (auto _ : state) redrawAll(bench.editor);
}
BENCHMARK(Redraw)->Apply(redrawArguments);

}  // namespace

}  // namespace corvane
