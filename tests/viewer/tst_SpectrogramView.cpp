#include "tests/support/Table.h"
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

    using LevelRow = Table<int, double, QColor>;          // scheme, position, colour
    using EmptyRow = Table<int, double, int>;             // columns, duration, nyquist
    using SchemeRow = Table<int, QColor, QColor, QColor>; // scheme; canvas, contrast, loudest

private slots:
    void coloursFollowTheLevel_data()
    {
        LevelRow row;
        row("quietest is black", 0, 0.0, QColor(0, 0, 0));
        row("half way to green", 0, 0.5, QColor(61, 92, 0));
        row("loudest is green", 0, 1.0, QColor(122, 184, 0));
        row("beyond the loudest", 0, 1.5, QColor(122, 184, 0));
        row("quietest is white", 1, -0.5, QColor(255, 255, 255));
        row("loudest is black", 1, 1.0, QColor(0, 0, 0));
        row("cold end", 2, 0.0, QColor(0, 0, 189));
        row("no stop at 11/13", 2, 11 / 13.0, QColor(255, 128, 0));
        row("last ramp, half way from (255, 66, 0)", 2, 25 / 26.0, QColor(222, 33, 0));
        row("hot end", 2, 1.0, QColor(189, 0, 0));
    }
    void coloursFollowTheLevel()
    {
        const auto& [scheme, position, colour] = LevelRow::row();
        SpectrogramView view;
        view.resize(600, 300);
        view.applyColourScheme(scheme);
        view.setAmplitudeLimits(amplitude);
        view.showResult(evenMatrix(amplitude.lower + position * (amplitude.upper - amplitude.lower)), 30, 2.0,
                        250);
        QCOMPARE(middleOf(view), colour);
    }

    void axesFollowTheResult()
    {
        SpectrogramView view;
        view.setAxisScale(QwtPlot::xBottom, 0.4, 0.5);
        view.setScaleItemPosition(0.4);
        const QVector<double> matrix = evenMatrix(-50.0);
        view.showResult(matrix, 30, 2.5, 250);
        view.setAmplitudeLimits(amplitude);

        QVERIFY(view.timeLimits().lower == 0.0 && view.timeLimits().upper == 2.5);
        QVERIFY(view.frequencyLimits().lower == 0.0 && view.frequencyLimits().upper == 250.0);
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

    void emptyResults_data()
    {
        EmptyRow row;
        row("shorter than one window", 0, 0.001, 250);
        row("no samples", 0, 0.0, 250);
        row("sample rate below 2 kHz", 30, 2.0, 0);
    }
    void emptyResults()
    {
        const auto& [columns, duration, nyquist] = EmptyRow::row();
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

    void clearEmptiesThePlot()
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

    void schemeReachesEverything_data()
    {
        SchemeRow row;
        row("black to green", 0, QColor(Qt::black), QColor(Qt::white), QColor(122, 184, 0));
        row("white to black", 1, QColor(Qt::white), QColor(Qt::black), QColor(Qt::black));
        row("rainbow", 2, QColor(Qt::black), QColor(Qt::white), QColor(189, 0, 0));
    }
    void schemeReachesEverything()
    {
        const auto& [scheme, canvas, contrast, loudest] = SchemeRow::row();
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
        QCOMPARE(reported.first(), canvas);
        QCOMPARE(view.canvasBackground().color(), canvas);
        const QwtInterval levels(amplitude.lower, amplitude.upper);
        QCOMPARE(view.axisWidget(QwtPlot::yRight)->colorMap()->color(levels, amplitude.upper), loudest);
        QCOMPARE(view.spectrogram().colorMap()->color(levels, amplitude.upper), loudest);
        const auto scales = view.itemList(QwtPlotItem::Rtti_PlotScale);
        QCOMPARE(scales.size(), 1);
        QCOMPARE(static_cast<QwtPlotScaleItem*>(scales.first())->palette().color(QPalette::WindowText),
                 contrast);
        QCOMPARE(markers(view),
                 QStringList({QStringLiteral("Blob:") + contrast.name(), "frequency:#00ffff"}));
    }
};

QTEST_MAIN(tst_SpectrogramView)
#include "tst_SpectrogramView.moc"
