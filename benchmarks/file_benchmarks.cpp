// Opening and saving the large model, beside copying its file, and what they are made of.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include "bench_editor.h"
#include "model/geoset_reader.h"
#include "model/model_files.h"
#include "model/model_writer.h"

namespace corvane {

namespace {

const LargeModelFile& largeModel() {
    static const LargeModelFile file;
    return file;
}

void countBytes(benchmark::State& state, double bytesPerIteration) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytesPerIteration));
}

void copyFile() {
    std::filesystem::copy_file(largeModel().path(), largeModel().copyPath(),
                               std::filesystem::copy_options::overwrite_existing);
}

void CopyFile(benchmark::State& state) {
    for (auto _ : state) copyFile();
    countBytes(state, largeModel().size());
}
BENCHMARK(CopyFile)->Unit(benchmark::kMillisecond)->UseRealTime();

// A save waits until the disk has the model.
void CopyFileAndFlush(benchmark::State& state) {
    for (auto _ : state) {
        copyFile();
        const int fd = ::open(largeModel().copyPath().c_str(), O_RDONLY | O_CLOEXEC);
        if (::fsync(fd) != 0) state.SkipWithError("fsync failed");
        ::close(fd);
    }
    countBytes(state, largeModel().size());
}
BENCHMARK(CopyFileAndFlush)->Unit(benchmark::kMillisecond)->UseRealTime();

void OpenModel(benchmark::State& state) {
    BenchEditor<IdleSurface> bench;
    for (auto _ : state) bench.open(largeModel().path());
    closeModel(bench.editor);
    countBytes(state, largeModel().size());
}
BENCHMARK(OpenModel)->Unit(benchmark::kMillisecond)->UseRealTime();

void SaveModel(benchmark::State& state) {
    BenchEditor<IdleSurface> bench;
    bench.open(largeModel().path());
    for (auto _ : state) bench.save();
    closeModel(bench.editor);
    countBytes(state, largeModel().size());
}
BENCHMARK(SaveModel)->Unit(benchmark::kMillisecond)->UseRealTime();

void ReadFile(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(readModelFile(largeModel().path()));
    countBytes(state, largeModel().size());
}
BENCHMARK(ReadFile)->Unit(benchmark::kMillisecond);

void ScanModel(benchmark::State& state) {
    const ModelText text = readModelFile(largeModel().path());
    for (auto _ : state) benchmark::DoNotOptimize(scanGeosets(text.view()));
    countBytes(state, largeModel().size());
}
BENCHMARK(ScanModel)->Unit(benchmark::kMillisecond);

// The edited geoset's text; bytes are those of its block.
struct GeosetText {
    ModelText text = readModelFile(largeModel().path());
    std::vector<GeosetBlock> geosets = scanGeosets(text.view());

    double size() const {
        const GeosetBlock& block = geosets.at(kEditedGeoset - 1);
        return static_cast<double>(block.end - block.begin);
    }
};

void ParseGeoset(benchmark::State& state) {
    const GeosetText model;
    for (auto _ : state) {
        benchmark::DoNotOptimize(parseGeoset(model.text, model.geosets, kEditedGeoset));
    }
    countBytes(state, model.size());
}
BENCHMARK(ParseGeoset)->Unit(benchmark::kMillisecond);

void ComposeModel(benchmark::State& state) {
    const GeosetText model;
    const Geoset geoset = parseGeoset(model.text, model.geosets, kEditedGeoset);
    for (auto _ : state) {
        benchmark::DoNotOptimize(composeModel(model.text, model.geosets, kEditedGeoset, geoset));
    }
    countBytes(state, model.size());
}
BENCHMARK(ComposeModel)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvane
