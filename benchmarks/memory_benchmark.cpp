// The most memory that work on the large model takes: open, save, and as many steps with a
// copy of the vertices as the history holds. Fails where that is more than the target.
#include <cstdio>

#include "bench_editor.h"
#include "edit/commands/tools.h"
#include "test_commands.h"
#include "views/recording_surface.h"

namespace corvane {

namespace {

constexpr double kMegabyte = 1e6;
constexpr double kMostFileSizes = 3;

// The peak of the resident set so far, bytes.
double peakResidentSet() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        double kibibytes = 0;
        if (word == "VmHWM:" && status >> kibibytes) return kibibytes * 1024;
    }
    throw std::runtime_error("/proc/self/status names no VmHWM");
}

bool isWithinTarget() {
    const LargeModelFile file;
    const double made = peakResidentSet();
    BenchEditor<RecordingSurface> bench;
    bench.open(file.path());
    const double opened = peakResidentSet();
    bench.save();
    const double saved = peakResidentSet();
    // Nothing is selected, so nothing is snapped: only the copies are kept.
    for (std::size_t i = 0; i < kUndoSlots; ++i) snapSelection(bench.editor);
    const double edited = peakResidentSet();
    closeModel(bench.editor);

    const double copies =
        static_cast<double>(kUndoSlots * sizeof(VertexRecord) * bench.editor.store.Vertices.size());
    const double limit = kMostFileSizes * file.size() + copies;
    std::printf("the model's file: %.1f MB, %zu copies of the vertices: %.1f MB\n",
                file.size() / kMegabyte, kUndoSlots, copies / kMegabyte);
    std::printf(
        "peak after making the file: %.1f MB, open: %.1f MB, save: %.1f MB, edits: %.1f MB\n",
        made / kMegabyte, opened / kMegabyte, saved / kMegabyte, edited / kMegabyte);
    std::printf("target: at most %.1f MB\n", limit / kMegabyte);
    return edited <= limit;
}

}  // namespace

}  // namespace corvane

int main() { return corvane::isWithinTarget() ? 0 : 1; }
