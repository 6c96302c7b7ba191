// What keeping for File, Recover costs those who edit, open and save the large model. Each pair is
// the same with and without.
#include <benchmark/benchmark.h>

#include <chrono>

#include "bench_editor.h"
#include "edit/commands/drag_transforms.h"
#include "edit/selection.h"
#include "kept/keeper.h"

namespace corvane {

namespace {

const LargeModelFile& largeModel() {
    static const LargeModelFile file;
    return file;
}

/// An editor with the large model open and all of its geoset selected.
struct KeepingEditor : BenchEditor<IdleSurface> {
    TempFolder folder;
    Keeper keeper{{.folder = folder.path("kept")}};

    explicit KeepingEditor(bool keeping) {
        if (keeping) editor.wayBack = &keeper;
        open(largeModel().path());
        selectAll(editor.store);
    }
    KeepingEditor(const KeepingEditor&) = delete;
    KeepingEditor& operator=(const KeepingEditor&) = delete;
    ~KeepingEditor() { closeModel(editor); }

    void edit() {
        moveSelection(editor, {1, 2, 3});
        editor.undo = {};
    }
};

// Waits for what goes on behind, not counted: nobody waits for it.
void settle(benchmark::State& state, Keeper& keeper) {
    state.PauseTiming();
    keeper.finish();
    state.ResumeTiming();
}

void SaveEdits(benchmark::State& state, bool keeping) {
    KeepingEditor bench(keeping);
    for (auto _ : state) {
        state.PauseTiming();
        bench.edit();
        state.ResumeTiming();
        bench.save();
        settle(state, bench.keeper);
    }
}
BENCHMARK_CAPTURE(SaveEdits, Without, false)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(SaveEdits, Keeping, true)->Unit(benchmark::kMillisecond)->UseRealTime();

void OpenOverEdits(benchmark::State& state, bool keeping) {
    KeepingEditor bench(keeping);
    for (auto _ : state) {
        state.PauseTiming();
        selectAll(bench.editor.store);
        bench.edit();
        state.ResumeTiming();
        bench.open(largeModel().path());
        settle(state, bench.keeper);
    }
}
BENCHMARK_CAPTURE(OpenOverEdits, Without, false)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(OpenOverEdits, Keeping, true)->Unit(benchmark::kMillisecond)->UseRealTime();

// An edit, while the one before it is composed and written behind.
void Edit(benchmark::State& state, bool keeping) {
    KeepingEditor bench(keeping);
    double slowest = 0;
    for (auto _ : state) {
        state.PauseTiming();
        if (keeping) bench.keeper.keep(snapshotOf(bench.editor.store), KeptBecause::Editing);
        state.ResumeTiming();
        const auto start = std::chrono::steady_clock::now();
        bench.edit();
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        slowest = std::max(slowest, took.count());
    }
    state.counters["slowest_ms"] = slowest;
}
BENCHMARK_CAPTURE(Edit, Without, false)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Edit, Keeping, true)->Unit(benchmark::kMillisecond)->UseRealTime();

// What the window waits for when edits are handed over.
void HandOver(benchmark::State& state) {
    KeepingEditor bench(true);
    double slowest = 0;
    for (auto _ : state) {
        state.PauseTiming();
        bench.edit();
        state.ResumeTiming();
        const auto start = std::chrono::steady_clock::now();
        bench.keeper.keep(snapshotOf(bench.editor.store), KeptBecause::Editing);
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        slowest = std::max(slowest, took.count());
    }
    state.counters["slowest_ms"] = slowest;
}
BENCHMARK(HandOver)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace corvane
