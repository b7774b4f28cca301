#include "tests/support/Table.h"
#include "viewer/ColorMap.h"
#include "viewer/MatrixSpectrogram.h"

#include <QPainter>
#include <QtTest>
#include <qwt_plot.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_map.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace {

/// A matrix and what of it is to be seen on which canvas.
struct Scene
{
    QVector<double> matrix;
    int columns = 1;
    double duration = 1.0;
    double nyquist = 100.0;
    AxisLimits amplitude{-100.0, -30.0};
    bool smooth = false;
    int scheme = 2;
    QRectF canvas;
    QwtScaleMap x;
    QwtScaleMap y;
};

class OwnItem : public MatrixSpectrogram
{
public:
    explicit OwnItem(const Scene& scene)
    {
        setColorMap(new ColorMap(ColourScheme::forIndex(scene.scheme)->ramp));
        setMatrix(scene.matrix, scene.columns, scene.duration, scene.nyquist);
        setAmplitudeLimits(scene.amplitude);
        setSmoothing(scene.smooth);
    }
    using MatrixSpectrogram::renderImage;
};

class LibraryItem : public QwtPlotSpectrogram
{
public:
    explicit LibraryItem(const Scene& scene)
    {
        auto* raster = new QwtMatrixRasterData;
        raster->setValueMatrix(scene.matrix, scene.columns);
        raster->setInterval(Qt::XAxis, QwtInterval(0.0, scene.duration));
        raster->setInterval(Qt::YAxis, QwtInterval(0.0, scene.nyquist));
        raster->setInterval(Qt::ZAxis, QwtInterval(scene.amplitude.lower, scene.amplitude.upper));
        raster->setResampleMode(scene.smooth ? QwtMatrixRasterData::BilinearInterpolation
                                             : QwtMatrixRasterData::NearestNeighbour);
        setData(raster);
        setColorMap(new ColorMap(ColourScheme::forIndex(scene.scheme)->ramp));
    }
    using QwtPlotSpectrogram::renderImage;
};

class Dice
{
public:
    explicit Dice(unsigned seed) : m_random(seed) {}
    double real(double from, double to) { return std::uniform_real_distribution<double>(from, to)(m_random); }
    int whole(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_random); }
    bool oneIn(int times) { return whole(1, times) == 1; }

private:
    std::mt19937 m_random;
};

QVector<double> randomMatrix(Dice& dice, int cells)
{
    QVector<double> matrix;
    for (int i = 0; i < cells; ++i) {
        const int kind = dice.whole(0, 30);
        matrix.append(kind == 0   ? -std::numeric_limits<double>::infinity()
                      : kind == 1 ? std::numeric_limits<double>::quiet_NaN()
                      : kind == 2 ? std::numeric_limits<double>::infinity()
                                  : dice.real(-120.0, 5.0));
    }
    return matrix;
}

/// A window of 0..whole, mostly inside, sometimes reaching out, sometimes upside down.
void randomAxis(Dice& dice, QwtScaleMap& map, double whole, double paintFrom, double paintTo)
{
    const double width = whole * std::pow(10.0, dice.real(-2.0, 0.3));
    const double from = dice.oneIn(4) ? 0.0 : dice.real(-0.2 * whole, whole);
    const double to = dice.oneIn(4) ? whole : from + width;
    if (dice.oneIn(4))
        map.setScaleInterval(to, from);
    else
        map.setScaleInterval(from, to);
    map.setPaintInterval(paintFrom, paintTo);
}

/// The library reads outside the matrix where only one pixel of it is in view, so it cannot say what is
/// right.
bool isFitToCompare(const Scene& scene)
{
    const QRectF whole(0.0, 0.0, scene.duration, scene.nyquist);
    const QRectF visible = scene.canvas & QwtScaleMap::transform(scene.x, scene.y, whole).normalized();
    return visible.isEmpty() || (visible.width() > 2.0 && visible.height() > 2.0);
}

Scene randomScene(Dice& dice)
{
    Scene scene;
    do {
        const int rows = dice.oneIn(8) ? 1 : dice.whole(1, 90);
        scene.columns = dice.oneIn(8) ? 1 : dice.whole(1, 200);
        scene.matrix = randomMatrix(dice, rows * scene.columns);
        scene.duration = dice.real(0.01, 9.0);
        scene.nyquist = dice.whole(4, 250);
        scene.amplitude = {dice.real(-110.0, -60.0), dice.real(-59.0, 0.0)};
        const QPointF corner = dice.oneIn(3) ? QPointF(dice.whole(0, 9), dice.whole(0, 9)) : QPointF();
        scene.canvas = QRectF(corner, QSizeF(dice.whole(2, 180), dice.whole(2, 120)));
        const double end = dice.whole(0, 1); // plots differ in whether the last pixel belongs to the scale
        randomAxis(dice, scene.x, scene.duration, scene.canvas.left(), scene.canvas.right() - end);
        randomAxis(dice, scene.y, scene.nyquist, scene.canvas.bottom() - end, scene.canvas.top());
    } while (!isFitToCompare(scene));
    return scene;
}

/// The drawn canvas in device pixels, opaque.
QImage drawn(const QwtPlotSpectrogram& item, const Scene& scene, double pixelRatio = 1.0)
{
    QImage canvas((scene.canvas.bottomRight() * pixelRatio).toPoint().x(),
                  (scene.canvas.bottomRight() * pixelRatio).toPoint().y(), QImage::Format_RGB32);
    canvas.fill(Qt::gray);
    canvas.setDevicePixelRatio(pixelRatio);
    QPainter painter(&canvas);
    item.draw(&painter, scene.x, scene.y, scene.canvas);
    painter.end();
    canvas.setDevicePixelRatio(1.0);
    return canvas;
}

Scene magnified(Scene scene, double ratio)
{
    scene.canvas = QRectF(scene.canvas.topLeft() * ratio, scene.canvas.size() * ratio);
    scene.x.setPaintInterval(scene.x.p1() * ratio, scene.x.p2() * ratio);
    scene.y.setPaintInterval(scene.y.p1() * ratio, scene.y.p2() * ratio);
    return scene;
}

/// Where two images of one size differ; empty if they do not.
QString difference(const QImage& actual, const QImage& expected)
{
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            if (actual.pixel(x, y) != expected.pixel(x, y))
                return QStringLiteral("pixel %1, %2 of %3x%4")
                    .arg(x)
                    .arg(y)
                    .arg(actual.width())
                    .arg(actual.height());
        }
    }
    return {};
}

Scene simpleScene()
{
    Scene scene;
    scene.columns = 40;
    for (int i = 0; i < 40 * 30; ++i)
        scene.matrix.append(-100.0 + i * 0.05);
    scene.canvas = QRectF(0, 0, 120, 90);
    scene.x.setScaleInterval(0.0, scene.duration);
    scene.x.setPaintInterval(0.0, 120.0);
    scene.y.setScaleInterval(0.0, scene.nyquist);
    scene.y.setPaintInterval(90.0, 0.0);
    return scene;
}

} // namespace

/// Something done to an item, and to the scene that the item should show afterwards.
using Change = std::function<void(OwnItem&, Scene&)>;

class tst_MatrixSpectrogram : public QObject
{
    Q_OBJECT

    using ChangeRow = Table<Change>;

private slots:
    void equalsTheLibrary()
    {
        for (unsigned seed = 0; seed < 900; ++seed) {
            Dice dice(seed / 6);
            Scene scene = randomScene(dice);
            scene.scheme = static_cast<int>(seed % 3);
            scene.smooth = seed % 2 == 0;
            const OwnItem own(scene);
            const LibraryItem library(scene);
            const QString onCanvas = difference(drawn(own, scene), drawn(library, scene));
            QVERIFY2(onCanvas.isEmpty(), qPrintable(QString::asprintf("canvas, seed %u, ", seed) + onCanvas));

            const QSize size = scene.canvas.size().toSize();
            const QRectF area = QwtScaleMap::invTransform(scene.x, scene.y, scene.canvas);
            const QString image = difference(own.renderImage(scene.x, scene.y, area, size),
                                             library.renderImage(scene.x, scene.y, area, size));
            QVERIFY2(image.isEmpty(), qPrintable(QString::asprintf("image, seed %u, ", seed) + image));
        }
    }

    void drawsInDevicePixels()
    {
        for (unsigned seed = 0; seed < 150; ++seed) {
            Dice dice(seed / 3);
            Scene scene = randomScene(dice);
            scene.smooth = seed % 3 == 0;
            const double pixelRatio = seed % 3 == 1 ? 3.0 : 2.0;
            const QImage fine = drawn(LibraryItem(scene), magnified(scene, pixelRatio));
            const QString wrong = difference(drawn(OwnItem(scene), scene, pixelRatio), fine);
            QVERIFY2(wrong.isEmpty(), qPrintable(QString::asprintf("seed %u, ", seed) + wrong));
        }
    }

    // The picture is only made anew when the matrix is read: change it behind the item's back and nothing may
    // change.
    void keepsThePicture()
    {
        const Scene scene = simpleScene();
        QwtPlot plot;
        plot.resize(400, 300);
        auto* item = new OwnItem(scene);
        item->attach(&plot);
        auto* marker = new QwtPlotMarker;
        marker->setLineStyle(QwtPlotMarker::VLine);
        marker->attach(&plot);
        plot.setAxisScale(QwtPlot::xBottom, 0.0, scene.duration);
        plot.setAxisScale(QwtPlot::yLeft, 0.0, scene.nyquist);
        plot.replot();
        const QImage before = plot.grab().toImage();

        static_cast<QwtMatrixRasterData*>(item->data())->setValueMatrix(QVector<double>(40 * 30, -30.0), 40);
        plot.replot();
        QCOMPARE(plot.grab().toImage(), before);
        marker->setXValue(0.5 * scene.duration);
        plot.replot();
        QVERIFY(plot.grab().toImage() != before);
        marker->setXValue(0.0);
        plot.replot();
        QCOMPARE(plot.grab().toImage(), before);

        plot.setAxisScale(QwtPlot::xBottom, 0.0, 0.5 * scene.duration);
        plot.replot();
        plot.grab();
        plot.setAxisScale(QwtPlot::xBottom, 0.0, scene.duration);
        plot.replot();
        QVERIFY(plot.grab().toImage() != before);
    }

    void changesRenewThePicture_data()
    {
        ChangeRow row;
        row("another matrix of the same size", [](OwnItem& item, Scene& scene) {
            std::reverse(scene.matrix.begin(), scene.matrix.end());
            item.setMatrix(scene.matrix, scene.columns, scene.duration, scene.nyquist);
        });
        row("limits", [](OwnItem& item, Scene& scene) {
            scene.amplitude = {-90.0, -70.0};
            item.setAmplitudeLimits(scene.amplitude);
        });
        row("smoothing", [](OwnItem& item, Scene& scene) {
            scene.smooth = true;
            item.setSmoothing(true);
        });
        row("colours", [](OwnItem& item, Scene& scene) {
            scene.scheme = 0;
            static_cast<QwtPlotSpectrogram&>(item).setColorMap(new ColorMap(ColourScheme::forIndex(0)->ramp));
        });
        row("axes", [](OwnItem&, Scene& scene) { scene.x.setScaleInterval(0.2, 0.4); });
        row("size", [](OwnItem&, Scene& scene) { scene = magnified(scene, 1.5); });
    }
    void changesRenewThePicture()
    {
        const auto& [change] = ChangeRow::row();
        Scene scene = simpleScene();
        OwnItem item(scene);
        const QImage before = drawn(item, scene);
        change(item, scene);
        QVERIFY(drawn(item, scene) != before);
        QCOMPARE(difference(drawn(item, scene), drawn(LibraryItem(scene), scene)), QString());
    }

    void drawsNothingWithout_data()
    {
        ChangeRow row;
        row("a matrix", [](OwnItem& item, Scene&) { item.clear(); });
        row("values", [](OwnItem& item, Scene&) { item.setMatrix({}, 0, 0.001, 250.0); });
        row("columns", [](OwnItem& item, Scene&) { item.setMatrix({1.0, 2.0}, 0, 1.0, 250.0); });
        row("a whole row", [](OwnItem& item, Scene&) { item.setMatrix({1.0, 2.0}, 3, 1.0, 250.0); });
        row("a duration",
            [](OwnItem& item, Scene& scene) { item.setMatrix(scene.matrix, scene.columns, 0.0, 250.0); });
        row("frequencies",
            [](OwnItem& item, Scene& scene) { item.setMatrix(scene.matrix, scene.columns, 1.0, 0.0); });
        row("levels in order", [](OwnItem& item, Scene&) { item.setAmplitudeLimits({0.0, -5000.0}); });
        row("anything in view", [](OwnItem&, Scene& scene) { scene.x.setScaleInterval(3.0, 4.0); });
    }
    void drawsNothingWithout()
    {
        const auto& [change] = ChangeRow::row();
        for (const bool smooth : {false, true}) {
            Scene scene = simpleScene();
            OwnItem item(scene);
            item.setSmoothing(smooth);
            change(item, scene);
            const QImage canvas = drawn(item, scene);
            QImage untouched(canvas.size(), canvas.format());
            untouched.fill(Qt::gray);
            QCOMPARE(difference(canvas, untouched), QString());
        }
    }

    void otherMapsAreDrawnByTheLibrary()
    {
        const Scene scene = simpleScene();
        OwnItem own(scene);
        own.setColorMap(new QwtAlphaColorMap(Qt::red));
        LibraryItem library(scene);
        library.setColorMap(new QwtAlphaColorMap(Qt::red));
        QCOMPARE(difference(drawn(own, scene), drawn(library, scene)), QString());
    }
};

QTEST_MAIN(tst_MatrixSpectrogram)
#include "tst_MatrixSpectrogram.moc"
