// The pictures that redrawing is measured with: the sphere at the format's limits.
#pragma once

#include <benchmark/benchmark.h>

#include "bench_editor.h"
#include "views/recording_surface.h"

namespace corvane {

/// Loads the sphere, with a view of it and a kind of colouring as the benchmark's arguments say.
inline void showSphere(BenchEditor<RecordingSurface>& bench, const benchmark::State& state) {
    bench.loadSphere();
    Editor& editor = bench.editor;
    for (ViewState& view : editor.views.states) view.zoom = static_cast<double>(state.range(0));
    const bool mixed = state.range(1) != 0;
    editor.modes.showNormals = mixed;
    bool selected = false;
    for (VertexRecord& vertex : editor.store.Vertices) {
        vertex.selected = selected;
        selected = mixed && !selected;
    }
}

/// Zoom in drawing units to a model unit: 20 shows all of the sphere, 200 a part of it. With
/// `mixed` every other vertex is selected and normals are shown, so that colours and kinds of what
/// is drawn change all the time.
inline void redrawArguments(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"zoom", "mixed"})->ArgsProduct({{20, 200}, {0, 1}});
    benchmark->Unit(benchmark::kMillisecond);
}

}  // namespace corvane
