// Redrawing the spectrogram of a very long recording: MatrixSpectrogram against the plotting library's own
// item on the same matrix, one thread each. Arguments: 0 nearest or 1 interpolated, 0 whole recording or 1
// zoomed in.
#include "viewer/ColorMap.h"
#include "viewer/MatrixSpectrogram.h"

#include <QPainter>
#include <qwt_scale_map.h>

#include <benchmark/benchmark.h>
#include <random>

namespace {

constexpr int rows = 511;
constexpr int columns = 156555; // 8e7 cells
constexpr double duration = 20.0;
constexpr double nyquist = 250.0;
const QSize pixels(1600, 800);

/// Noise with some structure. Shared by all benchmarks, since 640 MB take a while to fill.
const QVector<double>& matrix()
{
    static const QVector<double> values = [] {
        QVector<double> result(rows * columns);
        std::minstd_rand random(7);
        for (double& value : result)
            value = -100.0 + static_cast<double>(random() % 8192U) * (90.0 / 8192.0);
        return result;
    }();
    return values;
}

class OwnItem : public MatrixSpectrogram
{
public:
    explicit OwnItem(bool smooth)
    {
        setColorMap(new ColorMap);
        setMatrix(matrix(), columns, duration, nyquist);
        setAmplitudeLimits({-95.0, -20.0});
        setSmoothing(smooth);
    }
    void forget() { setAmplitudeLimits({-95.0, -20.0}); }
    using MatrixSpectrogram::renderImage;
};

class LibraryItem : public QwtPlotSpectrogram
{
public:
    explicit LibraryItem(bool smooth)
    {
        auto* raster = new QwtMatrixRasterData;
        raster->setValueMatrix(matrix(), columns);
        raster->setInterval(Qt::XAxis, QwtInterval(0.0, duration));
        raster->setInterval(Qt::YAxis, QwtInterval(0.0, nyquist));
        raster->setInterval(Qt::ZAxis, QwtInterval(-95.0, -20.0));
        raster->setResampleMode(smooth ? QwtMatrixRasterData::BilinearInterpolation
                                       : QwtMatrixRasterData::NearestNeighbour);
        setData(raster);
        setColorMap(new ColorMap);
    }
    void forget() {} // it keeps nothing by default
    using QwtPlotSpectrogram::renderImage;
};

/// What is shown, in the maps of a canvas of `pixels`.
struct Scene
{
    explicit Scene(bool zoomed)
        : area(zoomed ? QRectF(7.0, 20.0, 0.05, 60.0) : QRectF(0.0, 0.0, duration, nyquist))
    {
        x.setScaleInterval(area.left(), area.right());
        x.setPaintInterval(0, pixels.width() - 1);
        y.setScaleInterval(area.bottom(), area.top());
        y.setPaintInterval(0, pixels.height() - 1);
    }

    QRectF area;
    QwtScaleMap x;
    QwtScaleMap y;
};

template <typename Item>
void render(benchmark::State& state)
{
    const Item item(state.range(0) != 0);
    const Scene scene(state.range(1) != 0);
    for (auto _ : state) {
        const QImage image = item.renderImage(scene.x, scene.y, scene.area, pixels);
        benchmark::DoNotOptimize(image.constBits());
    }
}

/// With `fresh` every repaint has to make the picture anew.
template <typename Item, bool fresh>
void redraw(benchmark::State& state)
{
    Item item(state.range(0) != 0);
    const Scene scene(state.range(1) != 0);
    QImage canvas(pixels, QImage::Format_RGB32);
    QPainter painter(&canvas);
    for (auto _ : state) {
        if (fresh)
            item.forget();
        item.draw(&painter, scene.x, scene.y, canvas.rect());
    }
}

void arguments(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgNames({"smooth", "zoomed"})->ArgsProduct({{0, 1}, {0, 1}})->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(render<LibraryItem>)->Name("Raster/render/library")->Apply(arguments);
BENCHMARK(render<OwnItem>)->Name("Raster/render/own")->Apply(arguments);
BENCHMARK((redraw<LibraryItem, true>))->Name("Raster/redraw/library")->Apply(arguments);
BENCHMARK((redraw<OwnItem, true>))->Name("Raster/redraw/own")->Apply(arguments);
BENCHMARK((redraw<OwnItem, false>))->Name("Raster/overlay/own")->Apply(arguments);

BENCHMARK_MAIN();
