#include "viewer/TimeAxisView.h"

#include "viewer/AxisPlotStyle.h"
#include "viewer/MyQwtZoomer2.h"
#include "viewer/OverlayMarker.h"
#include "viewer/PlotStyle.h"
#include "viewer/RangeMarker.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_scaleitem.h>

namespace {

/// Later items are drawn over earlier ones.
constexpr double baselineDepth = 5;
constexpr double gridDepth = 10;
constexpr double curveDepth = 20;
constexpr double scaleDepth = 30;

constexpr int mostAmplitudeLabels = 5;

} // namespace

TimeAxisView::TimeAxisView(QWidget* parent)
    : QwtPlot(parent),
      m_grid(new QwtPlotGrid),
      m_scaleItem(new QwtPlotScaleItem(QwtScaleDraw::RightScale)),
      m_baseline(new QwtPlotMarker(QStringLiteral("baselineMarkerPlot"))),
      m_cursor(new OverlayMarker(QStringLiteral("amplitudePlotMarker"), QwtPlotMarker::VLine, *this)),
      m_selectedRange(new RangeMarker(Qt::Horizontal, RangeMarker::Mark::Range, *this)),
      m_visibleRange(new RangeMarker(Qt::Horizontal, RangeMarker::Mark::Rest, *this)),
      m_zoomer(new MyQwtZoomer2(canvas()))
{
    PlotStyle::apply(*this);
    setCanvasBackground(AxisPlotStyle::canvas);
    createAxes();
    createCurves();
    createItems();
    setView(AxisLimits::emptyTime(), {-1.0, 1.0});
}

void TimeAxisView::createAxes()
{
    PlotStyle::setAxisTitle(*this, xBottom, tr("Time in s"));
    setAxisMaxMajor(yLeft, mostAmplitudeLabels);
    m_zoomer->setColours(Qt::black, Qt::black);
    canvas()->setFocusPolicy(Qt::ClickFocus); // for the keys of the zoomer
}

void TimeAxisView::createCurves()
{
    for (std::size_t i = 0; i < m_curves.size(); ++i) {
        const QColor& colour = i < 2 ? AxisPlotStyle::curve : AxisPlotStyle::rms;
        m_curves[i] = new QwtPlotCurve;
        m_curves[i]->setPen(colour);
        m_curves[i]->setBrush(colour);
        m_curves[i]->setZ(curveDepth + static_cast<double>(i));
        m_curves[i]->attach(this);
    }
}

void TimeAxisView::createItems()
{
    m_grid->setPen(AxisPlotStyle::grid);
    m_grid->setZ(gridDepth);
    m_grid->attach(this);
    setGridVisible(false);
    m_baseline->setLineStyle(QwtPlotMarker::HLine);
    m_baseline->setLinePen(AxisPlotStyle::baseline);
    m_baseline->setZ(baselineDepth);
    m_baseline->attach(this);
    // The outer axis has the numbers; on the canvas a row of ticks is enough.
    m_scaleItem->scaleDraw()->enableComponent(QwtAbstractScaleDraw::Labels, false);
    m_scaleItem->setZ(scaleDepth);
    m_scaleItem->setPosition(0.0);
    m_scaleItem->attach(this);
    m_cursor->setLinePen(AxisPlotStyle::cursor);
    m_selectedRange->setColour(AxisPlotStyle::selection);
    m_visibleRange->setColour(AxisPlotStyle::outside);
}

void TimeAxisView::setAmplitudeTitle(const QString& title)
{
    PlotStyle::setAxisTitle(*this, yLeft, title);
    AxisPlotStyle::wrapTitle(*this, yLeft);
}

void TimeAxisView::setView(const AxisLimits& time, const AxisLimits& amplitude)
{
    setAxisScale(xBottom, time.lower, time.upper);
    setAxisScale(yLeft, amplitude.lower, amplitude.upper);
    updateAxes();
    m_zoomer->setZoomBase(false);
}

AxisLimits TimeAxisView::timeLimits() const
{
    const QwtInterval interval = axisInterval(xBottom);
    return {interval.minValue(), interval.maxValue()};
}

void TimeAxisView::showCurve(const TimeCurve& curve, double baseline)
{
    const QVector<QPointF>* series[] = {&curve.maximum, &curve.minimum, &curve.positiveRms,
                                        &curve.negativeRms};
    for (std::size_t i = 0; i < m_curves.size(); ++i) {
        m_curves[i]->setBaseline(baseline);
        m_curves[i]->setSamples(*series[i]);
        m_curves[i]->setVisible(!series[i]->isEmpty());
    }
    m_baseline->setYValue(baseline);
}

void TimeAxisView::setGridVisible(bool on)
{
    m_grid->enableX(on);
    m_grid->enableY(on);
}

void TimeAxisView::setScaleItemPosition(double seconds)
{
    m_scaleItem->setPosition(seconds);
}

double TimeAxisView::scaleItemPosition() const
{
    return m_scaleItem->position();
}

QSize TimeAxisView::sizeHint() const
{
    return {800, 150};
}

QSize TimeAxisView::minimumSizeHint() const
{
    return {240, 130};
}
