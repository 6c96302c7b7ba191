// A whole redraw of the three views: what the core draws, painted into pictures.
#include <QGuiApplication>
#include <QImage>
#include <array>

#include "app/picture_box.h"
#include "app/picture_painter.h"
#include "editor/run_edit.h"
#include "redraw_shapes.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

struct Pixels {
    Pixels() : image(209, 201, QImage::Format_RGB32) {}

    void paint(const RecordingSurface& surface) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), Qt::white);
        paintPrimitives(painter, surface.primitives(), kTwipsPerPixel, QPalette());
    }

    QImage image;
};

void RedrawAndPaint(benchmark::State& state) {
    BenchEditor<RecordingSurface> bench;
    showSphere(bench, state);
    std::array<Pixels, 3> pictures;
    for (auto _ : state) {
        redrawAll(bench.editor);
        pictures[0].paint(bench.front);
        pictures[1].paint(bench.top);
        pictures[2].paint(bench.left);
    }
}
BENCHMARK(RedrawAndPaint)->Apply(redrawArguments);

}  // namespace

}  // namespace corvane

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
}
