// Moving something over the spectrogram: what one step costs in the GUI thread, painting included, on a
// canvas of about 1600 x 800 pixels with two device pixels per pixel. The peer is a marker of the plotting
// library that is moved and replotted, over the same spectrogram with its picture kept.

#include "tests/support/CanvasMouse.h"
#include "tests/support/PlotScene.h"
#include "tests/support/TemporarySettings.h"

#include <qwt_plot_marker.h>

#include <benchmark/benchmark.h>

namespace {

constexpr double seconds = 5.0;

PlotScene& scene()
{
    static auto* scene = [] {
        auto* made = new PlotScene(seconds, 511, 2000, QSize(2060, 1120)); // stays until the process ends
        made->tool.connectPickers(&made->tool);
        made->markers.connectPickers(&made->markers);
        QObject::connect(&made->tool, &SelectionTool::pointerMoved, &made->presenter,
                         &AxisPlotsPresenter::setCursor);
        made->markers.setMarker1Shown(true);
        made->markers.setMarker2Shown(true);
        made->tool.plotSelectionRect(QPolygon() << QPoint(300, 200) << QPoint(900, 500));
        made->playCursor.setVisible(true);
        PlotScene::settle();
        return made;
    }();
    return *scene;
}

void paint()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// Runs step(i), with i from 0 to 999 again and again, and paints.
template <typename Step>
void run(benchmark::State& state, const Step& step)
{
    scene();
    int i = 0;
    for (auto _ : state) {
        step(i = (i + 7) % 1000);
        paint();
    }
    const QSize canvas = scene().spectrogram->canvas()->size() * scene().spectrogram->devicePixelRatioF();
    state.counters["device_px"] = static_cast<double>(canvas.width()) * canvas.height();
}

void playCursor(benchmark::State& state)
{
    run(state, [](int i) { scene().playCursor.moveTo(seconds * i / 1000.0); });
}

void frequencyMarker(benchmark::State& state)
{
    CanvasMouse mouse(scene().spectrogram->canvas());
    const double stored = scene().settings.value(SettingKeys::valueMarker1);
    const QPoint onMarker(100, qRound(scene().spectrogram->transform(QwtPlot::yLeft, stored)));
    mouse.move(onMarker);
    mouse.press(onMarker);
    run(state, [&mouse](int i) { mouse.move(QPoint(100, i * 3 / 4)); });
    mouse.release(onMarker);
}

void selectionEdge(benchmark::State& state)
{
    run(state, [](int i) { scene().tool.moveSelectorRight(QPoint(400 + i, 0)); });
}

void pointer(benchmark::State& state)
{
    CanvasMouse mouse(scene().spectrogram->canvas());
    run(state, [&mouse](int i) { mouse.move(QPoint(i, 300 + i / 10)); });
}

void pointerChoosesTheCurves(benchmark::State& state)
{
    scene().settings.setValue(SettingKeys::timePlotMode, 1);
    scene().settings.setValue(SettingKeys::frequencyPlotMode, 1);
    scene().presenter.slotTimePlotChanged();
    scene().presenter.slotFrequencyPlotChanged();
    pointer(state);
    scene().settings.setValue(SettingKeys::timePlotMode, 0);
    scene().settings.setValue(SettingKeys::frequencyPlotMode, 0);
    scene().presenter.slotTimePlotChanged();
    scene().presenter.slotFrequencyPlotChanged();
    paint();
}

void libraryMarker(benchmark::State& state)
{
    auto* marker = new QwtPlotMarker;
    marker->setLineStyle(QwtPlotMarker::VLine);
    marker->setLinePen(Qt::white);
    marker->attach(scene().spectrogram);
    run(state, [marker](int i) {
        marker->setXValue(seconds * i / 1000.0);
        scene().spectrogram->replot();
    });
    marker->detach();
    delete marker;
}

BENCHMARK(playCursor)->Unit(benchmark::kMillisecond);
BENCHMARK(frequencyMarker)->Unit(benchmark::kMillisecond);
BENCHMARK(selectionEdge)->Unit(benchmark::kMillisecond);
BENCHMARK(pointer)->Unit(benchmark::kMillisecond);
BENCHMARK(pointerChoosesTheCurves)->Unit(benchmark::kMillisecond);
BENCHMARK(libraryMarker)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication application(argc, argv);
    const TemporarySettings settings;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
