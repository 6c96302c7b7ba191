// The texture editor with the sphere at the format's limits: its edits without drawing, and redraws
// that are painted, without a picture and over one.
#include <QApplication>
#include <QImage>
#include <cmath>

#include "app/picture_box.h"
#include "app/picture_painter.h"
#include "bench_editor.h"
#include "redraw_shapes.h"
#include "uveditor/commands/exchange.h"
#include "uveditor/commands/texture_commands.h"
#include "uveditor/uv_tools.h"
#include "uveditor/uv_view.h"

namespace corvane {

namespace {

class IdleUVWindow : public UVWindow {
public:
    void showNotice(const std::string& /*text*/) override {}
    void updateButtons() override {}
    std::string loadPicture(const std::string&) override { return {}; }
};

// The view's side when the window first shows, pixels.
constexpr int kViewSide = 592;

// The sphere handed over to a texture editor that draws on a surface. All of it is selected. The
// texture coordinates are all over the unit square.
class UVBench {
public:
    explicit UVBench(DrawingSurface& surface) : uv{{.picture = surface}, uvWindow_, bench.dialogs} {
        bench.loadSphere();
        for (VertexRecord& vertex : bench.editor.store.Vertices) {
            vertex.tu = 0.5 + vertex.pos[0] / (2 * kFittingRadius);
            vertex.tv = 0.5 + vertex.pos[1] / (2 * kFittingRadius);
        }
        takeHandOver(uv, bench.editor, uvDataOf(bench.editor.store));
        uvSelectAll(uv);
    }

    BenchEditor<IdleSurface> bench;
    UVEditor uv;

private:
    IdleUVWindow uvWindow_;
};

template <class Edit>
void timeEdit(benchmark::State& state, Edit edit) {
    IdleSurface surface(kViewSide, kViewSide);
    UVBench uvBench(surface);
    // Nothing is drawn: what is measured is the edit.
    uvBench.uv.dataReceived = false;
    for (auto _ : state) edit(uvBench);
}

void drag(UVBench& uvBench, TransformMode mode, int distance) {
    uvBench.uv.transformMode = mode;
    uvMouseDown(uvBench.uv, 300, 300);
    uvMouseUp(uvBench.uv, MouseButton::Other, 300 + distance, 300 + distance);
}

void handOver(UVBench& b) { takeHandOver(b.uv, b.bench.editor, uvDataOf(b.bench.editor.store)); }
void boxSelect(UVBench& b) {
    uvMouseDown(b.uv, 100, 100);
    uvMouseUp(b.uv, MouseButton::Left, 500, 500);
}
// There and back, so that coordinates stay what they are.
void move(UVBench& b) {
    static int distance = 20;
    drag(b, TransformMode::Move, distance);
    distance = -distance;
}
void rotate(UVBench& b) { drag(b, TransformMode::Rotate, 20); }
void scale(UVBench& b) {
    static int distance = 20;
    drag(b, TransformMode::Scale, distance);
    distance = -distance;
}
void remapFromFront(UVBench& b) { remapSelection(b.uv, b.bench.editor, RemapPlane::Front); }
// Every coordinate is another one than in the geoset.
void save(UVBench& b) {
    for (double& u : b.uv.data.u) u = -u;
    saveChanges(b.uv, b.bench.editor);
}

BENCHMARK_CAPTURE(timeEdit, HandOver, handOver)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeEdit, BoxSelect, boxSelect)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeEdit, SelectAll, [](UVBench& b) {
    uvSelectAll(b.uv);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeEdit, Invert, [](UVBench& b) {
    uvInvertSelection(b.uv);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeEdit, Move, move)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeEdit, Rotate, rotate)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeEdit, Scale, scale)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeEdit, Remap, remapFromFront)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timeEdit, SaveChanges, save)->Unit(benchmark::kMillisecond);

// A picture in which neighbours differ, as wide as high.
QImage pictureOf(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < side; ++x) row[x] = qRgb(x & 255, y & 255, (x + y) >> 6 & 255);
    }
    return image;
}

// Arguments: the picture's side (0 for none), ten times the zoom, whether every other vertex is
// selected, so that colours take turns.
void redrawAndPaint(benchmark::State& state) {
    PictureBox box(nullptr, 1);
    box.resize(kViewSide, kViewSide);
    UVBench uvBench(box.surface());
    UVEditor& uv = uvBench.uv;
    const int side = static_cast<int>(state.range(0));
    if (side > 0) {
        box.setImage(pictureOf(side));
        uv.imageLoaded = true;
    }
    uv.zoom = static_cast<double>(state.range(1)) / 10;
    if (state.range(2) != 0) {
        for (std::size_t i = 0; i < uv.data.selected.size(); i += 2) uv.data.selected[i] = false;
    }
    QImage shown(kViewSide, kViewSide, QImage::Format_ARGB32_Premultiplied);
    int step = kUVPanStep;
    for (auto _ : state) {
        uvPan(uv, step, 0);
        box.render(&shown);
        step = -step;
    }
}
BENCHMARK(redrawAndPaint)
    ->ArgNames({"picture", "zoom10", "mixed"})
    ->ArgsProduct({{0, 2048, 8192}, {5, 10, 40}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvane

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
}
