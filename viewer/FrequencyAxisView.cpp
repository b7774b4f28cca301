#include "viewer/FrequencyAxisView.h"

#include "viewer/AxisPlotStyle.h"
#include "viewer/OverlayMarker.h"
#include "viewer/PlotStyle.h"
#include "viewer/RangeMarker.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>

namespace {

constexpr double gridDepth = 10;
constexpr double curveDepth = 20;

constexpr int mostLevelLabels = 3; // the plot is narrow

constexpr AxisLimits levelsWithoutResult{-100.0, -30.0};

} // namespace

FrequencyAxisView::FrequencyAxisView(QWidget* parent)
    : QwtPlot(parent),
      m_curve(new QwtPlotCurve),
      m_grid(new QwtPlotGrid),
      m_marker(new OverlayMarker(QStringLiteral("frequencyPlotMarker"), QwtPlotMarker::HLine, *this)),
      m_visibleRange(new RangeMarker(Qt::Vertical, RangeMarker::Mark::Rest, *this))
{
    PlotStyle::apply(*this);
    setCanvasBackground(AxisPlotStyle::canvas);
    PlotStyle::setAxisTitle(*this, yLeft, tr("Frequency in kHz"));
    setAxisMaxMajor(xBottom, mostLevelLabels);

    m_curve->setOrientation(Qt::Horizontal);
    m_curve->setPen(AxisPlotStyle::curve);
    m_curve->setBrush(AxisPlotStyle::curve);
    m_curve->setZ(curveDepth);
    m_curve->attach(this);
    m_grid->setPen(AxisPlotStyle::grid);
    m_grid->setZ(gridDepth);
    m_grid->attach(this);
    setGridVisible(false);
    m_marker->setLinePen(AxisPlotStyle::baseline);
    m_visibleRange->setColour(AxisPlotStyle::outside);

    setFrequencyLimits(AxisLimits::emptyFrequency());
    setLevelLimits(levelsWithoutResult);
}

void FrequencyAxisView::setLevelTitle(const QString& title)
{
    PlotStyle::setAxisTitle(*this, xBottom, title);
    AxisPlotStyle::wrapTitle(*this, xBottom);
}

void FrequencyAxisView::setFrequencyLimits(const AxisLimits& limits)
{
    if (!limits.isValid())
        return;
    setAxisScale(yLeft, limits.lower, limits.upper);
    updateAxes(); // the curve is fitted to it
}

void FrequencyAxisView::setLevelLimits(const AxisLimits& limits)
{
    if (!limits.isValid())
        return;
    setAxisScale(xBottom, limits.upper, limits.lower);
    m_curve->setBaseline(limits.lower);
}

void FrequencyAxisView::showCurve(const QVector<QPointF>& curve)
{
    QVector<QPointF> points = curve;
    const double lowest = axisInterval(yLeft).minValue();
    if (!points.isEmpty() && points.constFirst().y() > lowest)
        points.prepend(QPointF(points.constFirst().x(), lowest));
    m_curve->setSamples(points);
}

void FrequencyAxisView::setGridVisible(bool on)
{
    m_grid->enableX(on);
    m_grid->enableY(on);
}

QSize FrequencyAxisView::sizeHint() const
{
    return {200, 400};
}

QSize FrequencyAxisView::minimumSizeHint() const
{
    return {120, 160};
}
