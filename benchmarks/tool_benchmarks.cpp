// The menu's tools on a whole mesh, without drawing, at growing sizes: their time must grow with
// the mesh and no faster.
#include <benchmark/benchmark.h>

#include "bench_editor.h"
#include "edit/clone.h"
#include "edit/extrude.h"
#include "edit/normals.h"
#include "edit/selection.h"
#include "edit/snap_delete.h"

namespace corvane {

namespace {

using Tool = void (*)(Editor& editor);

// The vertices along one side of a square grid: 7938, 16200 and 32258 faces. Tools that add to the
// mesh start from the smaller ones, so that the result keeps within the limits.
constexpr int kHalfSide = 91;
constexpr int kFullSide = 128;
constexpr int kSmallSide = 64;

// A square grid of `side` by `side` vertices, slightly curved, all of it selected.
void loadGrid(GeosetStore& store, int side) {
    store.Vertices.clear();
    store.Faces.clear();
    const auto index = [side](int x, int y) { return static_cast<std::int16_t>(y * side + x); };
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            VertexRecord vertex;
            vertex.pos = {x * 0.5, y * 0.5, 0.01 * x * y};
            vertex.selected = true;
            store.Vertices.push_back(vertex);
        }
    }
    for (int y = 0; y + 1 < side; ++y) {
        for (int x = 0; x + 1 < side; ++x) {
            store.Faces.push_back({.corner = {index(x, y), index(x + 1, y), index(x, y + 1)}});
            store.Faces.push_back(
                {.corner = {index(x + 1, y), index(x + 1, y + 1), index(x, y + 1)}});
        }
    }
    store.modelLoaded = true;
}

void timeTool(benchmark::State& state, Tool tool) {
    BenchEditor<IdleSurface> bench;
    for (auto _ : state) {
        state.PauseTiming();
        loadGrid(bench.editor.store, static_cast<int>(state.range(0)));
        state.ResumeTiming();
        tool(bench.editor);
    }
    state.counters["faces"] = static_cast<double>(2 * (state.range(0) - 1) * (state.range(0) - 1));
}

void expandFromOne(Editor& editor) {
    for (VertexRecord& vertex : editor.store.Vertices) vertex.selected = false;
    editor.store.Vertices.front().selected = true;
    expandSelection(editor);
}

void extrudeAll(Editor& editor) { extrudeSelection(editor, {0, 0, 5}); }

BENCHMARK_CAPTURE(timeTool, Clone, cloneSelection)
    ->Arg(kSmallSide)
    ->Arg(kHalfSide)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeTool, Extrude, extrudeAll)
    ->Arg(kSmallSide)
    ->Arg(kHalfSide)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeTool, Weld, weldSelection)
    ->Arg(kHalfSide)
    ->Arg(kFullSide)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeTool, RecalculateNormals, recalculateNormals)
    ->Arg(kHalfSide)
    ->Arg(kFullSide)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeTool, ExpandSelection, expandFromOne)
    ->Arg(kHalfSide)
    ->Arg(kFullSide)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeTool, DeleteFace, deleteSelectedFaces)
    ->Arg(kHalfSide)
    ->Arg(kFullSide)
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvane
