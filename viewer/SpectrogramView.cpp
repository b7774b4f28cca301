#include "viewer/SpectrogramView.h"

#include "viewer/ColorMap.h"
#include "viewer/MatrixSpectrogram.h"
#include "viewer/PlotStyle.h"

#include <QDebug>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_scaleitem.h>
#include <qwt_scale_widget.h>

namespace {

const QString detectedTitle = QStringLiteral("Blob");
const QString categorizeTitle = QStringLiteral("categorizeMarker");

constexpr AxisLimits amplitudeWithoutResult{-100.0, -30.0};

/// Later items are drawn over earlier ones.
enum Depth { pictureDepth = 10, gridDepth = 20, scaleDepth = 30 };

} // namespace

SpectrogramView::SpectrogramView(QWidget* parent)
    : QwtPlot(parent),
      m_scheme(*ColourScheme::forIndex(0)),
      m_amplitude(amplitudeWithoutResult),
      m_spectrogram(new MatrixSpectrogram),
      m_grid(new QwtPlotGrid),
      m_scaleItem(new QwtPlotScaleItem(QwtScaleDraw::RightScale))
{
    PlotStyle::apply(*this);
    createAxes();
    createItems();
    setAmplitudeLimits(m_amplitude);
    useColours();
    clear();
}

void SpectrogramView::createAxes()
{
    PlotStyle::setAxisTitle(*this, xBottom, tr("Time in s"));
    PlotStyle::setAxisTitle(*this, yLeft, tr("Frequency in kHz"));
    PlotStyle::setAxisTitle(*this, yRight, tr("Amplitude in dBFS"));
    enableAxis(yRight);
    QwtScaleWidget* colourBar = axisWidget(yRight);
    colourBar->setColorBarEnabled(true);
    colourBar->setColorBarWidth(fontMetrics().height());
    colourBar->setMargin(fontMetrics().height() / 2);
}

void SpectrogramView::createItems()
{
    m_spectrogram->setZ(pictureDepth);
    m_spectrogram->attach(this);
    m_grid->setZ(gridDepth);
    m_grid->attach(this);
    setGridVisible(false);
    // The outer axis has the numbers; on the picture a row of ticks is enough.
    m_scaleItem->scaleDraw()->enableComponent(QwtAbstractScaleDraw::Labels, false);
    m_scaleItem->setZ(scaleDepth);
    m_scaleItem->setPosition(0.0);
    m_scaleItem->attach(this);
}

void SpectrogramView::showResult(const QVector<double>& matrix, int columns, double durationSeconds,
                                 int nyquist)
{
    m_wholeTime = {0.0, durationSeconds};
    m_wholeFrequency = {0.0, static_cast<double>(nyquist)};
    if (!m_wholeTime.isValid())
        m_wholeTime = AxisLimits::emptyTime();
    if (!m_wholeFrequency.isValid())
        m_wholeFrequency = AxisLimits::emptyFrequency();
    m_spectrogram->setMatrix(matrix, columns, durationSeconds, nyquist);
    setAxisScale(xBottom, m_wholeTime.lower, m_wholeTime.upper);
    setAxisScale(yLeft, m_wholeFrequency.lower, m_wholeFrequency.upper);
    setScaleItemPosition(0.0);
}

void SpectrogramView::clear(const AxisLimits& frequency)
{
    removeDetectionMarks();
    showResult({}, 0, AxisLimits::emptyTime().upper, 0);
    m_wholeFrequency = frequency;
    setFrequencyLimits(frequency);
}

void SpectrogramView::removePicture()
{
    m_spectrogram->setMatrix({}, 0, m_wholeTime.upper, m_wholeFrequency.upper);
    removeDetectionMarks();
}

void SpectrogramView::setFrequencyLimits(const AxisLimits& limits)
{
    const AxisLimits& shown = limits.isValid() ? limits : m_wholeFrequency;
    setAxisScale(yLeft, shown.lower, shown.upper);
    replot();
}

AxisLimits SpectrogramView::frequencyLimits() const
{
    const QwtInterval interval = axisInterval(yLeft);
    return {interval.minValue(), interval.maxValue()};
}

AxisLimits SpectrogramView::timeLimits() const
{
    const QwtInterval interval = axisInterval(xBottom);
    return {interval.minValue(), interval.maxValue()};
}

void SpectrogramView::setAmplitudeLimits(const AxisLimits& limits)
{
    m_spectrogram->setAmplitudeLimits(limits);
    if (limits.isValid()) {
        m_amplitude = limits;
        setAxisScale(yRight, limits.lower, limits.upper);
        showColourBar();
    }
    replot();
}

void SpectrogramView::setSmoothing(bool on)
{
    m_spectrogram->setSmoothing(on);
    replot();
}

void SpectrogramView::setGridVisible(bool on)
{
    m_grid->enableX(on);
    m_grid->enableY(on);
    replot();
}

void SpectrogramView::setScaleItemPosition(double seconds)
{
    m_scaleItem->setPosition(seconds);
    replot();
}

double SpectrogramView::scaleItemPosition() const
{
    return m_scaleItem->position();
}

void SpectrogramView::logPanned(int x, int y) const
{
    qDebug("panned to %d, %d; scale at %g s", x, y, scaleItemPosition());
}

void SpectrogramView::applyColourScheme(int index)
{
    const auto scheme = ColourScheme::forIndex(index);
    if (!scheme)
        return;
    m_scheme = *scheme;
    useColours();
    replot();
    emit colourSchemeChanged(m_scheme);
}

void SpectrogramView::useColours()
{
    setCanvasBackground(m_scheme.canvas);
    m_spectrogram->setColorMap(new ColorMap(m_scheme.ramp));
    showColourBar();
    // A palette made from one colour gets a foreground that can be read on it.
    m_scaleItem->setPalette(QPalette(m_scheme.canvas));
    m_grid->setPen(m_scheme.grid, 0.0, Qt::SolidLine);
    for (QwtPlotItem* item : itemList(QwtPlotItem::Rtti_PlotMarker)) {
        if (item->title().text() != detectedTitle)
            continue;
        auto* marker = static_cast<QwtPlotMarker*>(item);
        QwtText label = marker->label();
        label.setColor(m_scheme.detectedLabel);
        marker->setLabel(label);
    }
}

void SpectrogramView::showColourBar()
{
    axisWidget(yRight)->setColorMap(QwtInterval(m_amplitude.lower, m_amplitude.upper),
                                    new ColorMap(m_scheme.ramp));
}

void SpectrogramView::removeDetectionMarks()
{
    const QwtPlotItemList items = itemList(); // a copy, since detaching changes the list of the plot
    for (QwtPlotItem* item : items) {
        const QString title = item->title().text();
        if (title == detectedTitle || title == categorizeTitle) {
            item->detach();
            delete item;
        }
    }
    replot();
}

QSize SpectrogramView::sizeHint() const
{
    return {800, 400};
}

QSize SpectrogramView::minimumSizeHint() const
{
    return {240, 160};
}
