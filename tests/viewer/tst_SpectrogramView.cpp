#include "viewer/MatrixSpectrogram.h"
#include "viewer/SpectrogramView.h"

#include <QtTest>
#include <qwt_plot_marker.h>
#include <qwt_plot_scaleitem.h>
#include <qwt_scale_widget.h>

namespace {

constexpr AxisLimits amplitude{-100.0, -35.0};

/// 20 frequencies x 30 frames of one level.
QVector<double> evenMatrix(double level)
{
    return QVector<double>(20 * 30, level);
}

QColor middleOf(SpectrogramView& view)
{
    const QRect canvas = view.canvas()->geometry();
    return view.grab().toImage().pixelColor(canvas.center());
}

void addMarker(SpectrogramView& view, const QString& title)
{
    auto* marker = new QwtPlotMarker(title);
    QwtText label(QStringLiteral("Pip"));
    label.setColor(Qt::cyan);
    marker->setLabel(label);
    marker->attach(&view);
}

/// "title:label colour" of each marker.
QStringList markers(const SpectrogramView& view)
{
    QStringList lines;
    for (const QwtPlotItem* item : view.itemList(QwtPlotItem::Rtti_PlotMarker)) {
        const auto* marker = static_cast<const QwtPlotMarker*>(item);
        lines += marker->title().text() + QLatin1Char(':') + marker->label().color().name();
    }
    lines.sort();
    return lines;
}

} // namespace

class tst_SpectrogramView : public QObject
{
    Q_OBJECT

private slots:
    void coloursFollowTheLevel_data();
    void coloursFollowTheLevel();
    void axesFollowTheResult();
    void emptyResults_data();
    void emptyResults();
    void clearEmptiesThePlot();
    void schemeReachesEverything_data();
    void schemeReachesEverything();
};

void tst_SpectrogramView::coloursFollowTheLevel_data()
{
    QTest::addColumn<int>("scheme");
    QTest::addColumn<double>("position");
    QTest::addColumn<QColor>("colour");

    QTest::newRow("quietest is black") << 0 << 0.0 << QColor(0, 0, 0);
    QTest::newRow("half way to green") << 0 << 0.5 << QColor(61, 92, 0);
    QTest::newRow("loudest is green") << 0 << 1.0 << QColor(122, 184, 0);
    QTest::newRow("beyond the loudest") << 0 << 1.5 << QColor(122, 184, 0);
    QTest::newRow("quietest is white") << 1 << -0.5 << QColor(255, 255, 255);
    QTest::newRow("loudest is black") << 1 << 1.0 << QColor(0, 0, 0);
    QTest::newRow("cold end") << 2 << 0.0 << QColor(0, 0, 189);
    QTest::newRow("no stop at 11/13") << 2 << 11 / 13.0 << QColor(255, 128, 0);
    QTest::newRow("last ramp, half way from (255, 66, 0)") << 2 << 25 / 26.0 << QColor(222, 33, 0);
    QTest::newRow("hot end") << 2 << 1.0 << QColor(189, 0, 0);
}

void tst_SpectrogramView::coloursFollowTheLevel()
{
    QFETCH(int, scheme);
    QFETCH(double, position);
    SpectrogramView view;
    view.resize(600, 300);
    view.applyColourScheme(scheme);
    view.setAmplitudeLimits(amplitude);
    view.showResult(evenMatrix(amplitude.lower + position * (amplitude.upper - amplitude.lower)), 30, 2.0,
                    250);
    QTEST(middleOf(view), "colour");
}

void tst_SpectrogramView::axesFollowTheResult()
{
    SpectrogramView view;
    view.setTimeLimits({0.4, 0.5});
    view.setScaleItemPosition(0.4);
    const QVector<double> matrix = evenMatrix(-50.0);
    view.showResult(matrix, 30, 2.5, 250);
    view.setAmplitudeLimits(amplitude);

    QCOMPARE(view.timeLimits().lower, 0.0);
    QCOMPARE(view.timeLimits().upper, 2.5);
    QCOMPARE(view.frequencyLimits().lower, 0.0);
    QCOMPARE(view.frequencyLimits().upper, 250.0);
    QCOMPARE(view.axisInterval(QwtPlot::yRight), QwtInterval(-100.0, -35.0));
    QCOMPARE(view.axisWidget(QwtPlot::yRight)->colorBarInterval(), QwtInterval(-100.0, -35.0));
    QCOMPARE(view.scaleItemPosition(), 0.0);
    QCOMPARE(view.spectrogram().raster().numRows(), 20);
    QCOMPARE(view.spectrogram().raster().valueMatrix().constData(), matrix.constData());

    view.setFrequencyLimits({10.0, 100.0});
    QCOMPARE(view.frequencyLimits().lower, 10.0);
    view.setFrequencyLimits({90.0, 0.0}); // leaves nothing to see
    QCOMPARE(view.frequencyLimits().upper, 250.0);
}

void tst_SpectrogramView::emptyResults_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<double>("duration");
    QTest::addColumn<int>("nyquist");
    QTest::newRow("shorter than one window") << 0 << 0.001 << 250;
    QTest::newRow("no samples") << 0 << 0.0 << 250;
    QTest::newRow("sample rate below 2 kHz") << 30 << 2.0 << 0;
}

void tst_SpectrogramView::emptyResults()
{
    QFETCH(int, columns);
    QFETCH(double, duration);
    QFETCH(int, nyquist);
    SpectrogramView view;
    view.resize(600, 300);
    view.applyColourScheme(1);
    view.setAmplitudeLimits(amplitude);
    view.showResult(evenMatrix(-35.0), 30, 2.5, 250);
    QCOMPARE(middleOf(view), QColor(Qt::black));
    view.setAmplitudeLimits({0.0, -5000.0});
    QCOMPARE(middleOf(view), QColor(Qt::white));
    QCOMPARE(view.axisInterval(QwtPlot::yRight), QwtInterval(-100.0, -35.0));
    view.setAmplitudeLimits(amplitude);
    view.showResult(columns == 0 ? QVector<double>() : evenMatrix(-35.0), columns, duration, nyquist);
    QCOMPARE(middleOf(view), QColor(Qt::white));
    QVERIFY(view.timeLimits().isValid());
    QVERIFY(view.frequencyLimits().isValid());
}

void tst_SpectrogramView::clearEmptiesThePlot()
{
    SpectrogramView view;
    view.resize(600, 300);
    view.showResult(evenMatrix(-35.0), 30, 2.5, 250);
    for (const char* title : {"Blob", "marker 1", "categorizeMarker", "Blob"})
        addMarker(view, QLatin1String(title));
    view.clear();
    QCOMPARE(view.timeLimits().upper, 1.0);
    QCOMPARE(view.frequencyLimits().upper, 150.0);
    QCOMPARE(middleOf(view), QColor(Qt::black));
    QCOMPARE(markers(view), QStringList("marker 1:#00ffff"));
    view.clear(AxisLimits::emptyRawFrequency());
    QCOMPARE(view.frequencyLimits().upper, 100000.0);
}

void tst_SpectrogramView::schemeReachesEverything_data()
{
    QTest::addColumn<int>("scheme");
    QTest::addColumn<QColor>("canvas");
    QTest::addColumn<QColor>("contrast");
    QTest::addColumn<QColor>("loudest");
    QTest::newRow("black to green") << 0 << QColor(Qt::black) << QColor(Qt::white) << QColor(122, 184, 0);
    QTest::newRow("white to black") << 1 << QColor(Qt::white) << QColor(Qt::black) << QColor(Qt::black);
    QTest::newRow("rainbow") << 2 << QColor(Qt::black) << QColor(Qt::white) << QColor(189, 0, 0);
}

void tst_SpectrogramView::schemeReachesEverything()
{
    QFETCH(int, scheme);
    QFETCH(QColor, contrast);
    SpectrogramView view;
    view.setAmplitudeLimits(amplitude);
    addMarker(view, QStringLiteral("Blob"));
    addMarker(view, QStringLiteral("frequency"));
    view.applyColourScheme(scheme == 0 ? 1 : 0);
    QVector<QColor> reported;
    connect(&view, &SpectrogramView::colourSchemeChanged, this,
            [&](const ColourScheme& colours) { reported += colours.canvas; });
    view.applyColourScheme(scheme);
    view.applyColourScheme(7);

    QCOMPARE(reported.size(), 1);
    QTEST(reported.first(), "canvas");
    QTEST(view.canvasBackground().color(), "canvas");
    const QwtInterval levels(amplitude.lower, amplitude.upper);
    QTEST(view.axisWidget(QwtPlot::yRight)->colorMap()->color(levels, amplitude.upper), "loudest");
    QTEST(view.spectrogram().colorMap()->color(levels, amplitude.upper), "loudest");
    const auto scales = view.itemList(QwtPlotItem::Rtti_PlotScale);
    QCOMPARE(scales.size(), 1);
    QCOMPARE(static_cast<QwtPlotScaleItem*>(scales.first())->palette().color(QPalette::WindowText), contrast);
    QCOMPARE(markers(view), QStringList({QStringLiteral("Blob:") + contrast.name(), "frequency:#00ffff"}));
}

QTEST_MAIN(tst_SpectrogramView)
#include "tst_SpectrogramView.moc"
