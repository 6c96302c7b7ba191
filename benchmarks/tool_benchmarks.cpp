// The tools of the menus on a whole mesh, without drawing, at the format's limits and at half of
// them: the time must grow with the mesh and no faster.
#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>

#include "bench_editor.h"
#include "edit/clone.h"
#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/normals.h"
#include "edit/selection.h"
#include "test_commands.h"

namespace corvane {

namespace {

using Tool = void (*)(Editor& editor);

// A ring of `columns` by `rows` vertices, all selected, with one or two triangles to each of its as
// many quads. With two it is closed; with one no two triangles share an edge.
Geoset ringMesh(int columns, int rows, int trianglesPerQuad) {
    constexpr double kRing = 40;  // model units: from the ring's middle to its tube's
    constexpr double kTube = 15;
    Geoset mesh;
    for (int row = 0; row < rows; ++row) {
        const double tube = 2 * std::numbers::pi * row / rows;
        for (int column = 0; column < columns; ++column) {
            const double turn = 2 * std::numbers::pi * column / columns;
            const double across = kRing + kTube * std::cos(tube);
            VertexRecord vertex;
            vertex.pos = {across * std::cos(turn), kTube * std::sin(tube), across * std::sin(turn)};
            for (double& coordinate : vertex.pos) coordinate = roundToDecimals(coordinate, 5);
            vertex.normal = {0, 1, 0};
            vertex.tu = roundToDecimals(static_cast<double>(column) / columns, 5);
            vertex.tv = roundToDecimals(static_cast<double>(row) / rows, 5);
            vertex.selected = true;
            mesh.Vertices.push_back(vertex);
        }
    }
    const auto index = [&](int column, int row) {
        return static_cast<std::int16_t>(row % rows * columns + column % columns);
    };
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const std::int16_t a = index(column, row);
            const std::int16_t b = index(column + 1, row);
            const std::int16_t c = index(column, row + 1);
            mesh.Faces.push_back({.corner = {a, b, c}});
            const std::int16_t opposite = index(column + 1, row + 1);
            if (trianglesPerQuad < 2) continue;
            mesh.Faces.push_back({.corner = {b, opposite, c}});
        }
    }
    mesh.matrixGroups.emplace_back().fill(kNoMatrix);
    mesh.matrixGroups.back()[0] = 0;
    return mesh;
}

Geoset ringMesh(const benchmark::State& state) {
    return ringMesh(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                    static_cast<int>(state.range(2)));
}

void countElements(benchmark::State& state, const Geoset& geoset) {
    state.counters["vertices"] = static_cast<double>(geoset.Vertices.size());
    state.counters["faces"] = static_cast<double>(geoset.Faces.size());
}

// The counters say what the mesh has afterwards.
void timeTool(benchmark::State& state, Tool tool) {
    const Geoset mesh = ringMesh(state);
    BenchEditor<IdleSurface> bench;
    bench.editor.store.modelLoaded = true;
    for (auto _ : state) {
        state.PauseTiming();
        static_cast<Geoset&>(bench.editor.store) = mesh;
        state.ResumeTiming();
        tool(bench.editor);
    }
    if (!bench.dialogs.asked.empty()) state.SkipWithError(bench.dialogs.asked[0].text.c_str());
    countElements(state, bench.editor.store);
}

void cloneAll(Editor& editor) {
    if (!fitsLimits(editor.store, cloneGrowth(editor.store))) return;
    edit<"Clone", cloneSelected>(editor);
}

void extrudeAll(Editor& editor) { extrudeSelection(editor, {0, 0, 5}); }

void expandFromOne(Editor& editor) {
    for (VertexRecord& vertex : editor.store.Vertices) vertex.selected = false;
    editor.store.Vertices.front().selected = true;
    expandSelection(editor);
}

// Saves a model that consists of the mesh, through to the disk.
void SaveMesh(benchmark::State& state) {
    const TempFolder folder;
    const std::string path = folder.path("mesh.mdl");
    {
        std::ofstream out(path, std::ios::binary);
        writeModelOf(out, ringMesh(state));
    }
    BenchEditor<IdleSurface> bench;
    bench.dialogs.files.emplace_back(path);
    openCommand(bench.editor);
    selectAll(bench.editor);
    for (auto _ : state) bench.save();
    countElements(state, bench.editor.store);
    closeModel(bench.editor);
}

// Columns, rows, triangles to a quad: half of the limits, then the limits of 32767.
#define CORVANE_TOOL_BENCHMARK(name, tool)  \
    BENCHMARK_CAPTURE(timeTool, name, tool) \
        ->Args({128, 128, 1})               \
        ->Args({217, 151, 1})               \
        ->Unit(benchmark::kMillisecond)

CORVANE_TOOL_BENCHMARK(Weld, weldSelection);
CORVANE_TOOL_BENCHMARK(RecalculateNormals, recalculateNormals);
CORVANE_TOOL_BENCHMARK(ExpandSelection, expandSelection);
CORVANE_TOOL_BENCHMARK(ExpandFromOne, expandFromOne);
CORVANE_TOOL_BENCHMARK(DeleteFace, deleteSelectedFaces);
BENCHMARK(SaveMesh)
    ->Args({128, 128, 1})
    ->Args({217, 151, 1})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// What adds to the mesh reaches the limits with its result.
BENCHMARK_CAPTURE(timeTool, Clone, cloneAll)
    ->Args({64, 128, 1})
    ->Args({127, 129, 1})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeTool, ExtrudeClosed, extrudeAll)
    ->Args({64, 128, 2})
    ->Args({127, 129, 2})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeTool, ExtrudeWithWalls, extrudeAll)
    ->Args({45, 52, 1})
    ->Args({31, 151, 1})
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvane
