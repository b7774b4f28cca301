#include "viewer/RangeMarker.h"

#include "viewer/PlotOverlay.h"

#include <QPainter>
#include <QtMath>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

namespace {

constexpr int bandAlpha = 70;
constexpr int restAlpha = 110;

/// From one end of a range to the other in pixels, within first..last.
QPair<int, int> pixelRange(const QwtScaleMap& map, const AxisLimits& range, int first, int last)
{
    const double a = map.transform(range.lower);
    const double b = map.transform(range.upper);
    return {qRound(qBound<double>(first, qMin(a, b), last + 1)),
            qRound(qBound<double>(first, qMax(a, b), last + 1))};
}

} // namespace

RangeMarker::RangeMarker(Qt::Orientation orientation, Mark mark, QwtPlot& plot)
    : m_orientation(orientation), m_mark(mark), m_colour(Qt::gray)
{
    setZ(mark == Mark::Rest ? 60.0 : 70.0); // above the curves, below the cursors
    PlotOverlay::of(plot);
    attach(&plot);
}

void RangeMarker::setRange(double from, double to, double limit)
{
    m_range = {qMax(qMin(from, to), 0.0), qMin(qMax(from, to), limit)};
    m_limit = limit;
    refresh();
}

void RangeMarker::clear()
{
    m_range = {};
    refresh();
}

void RangeMarker::setColour(const QColor& colour)
{
    m_colour = colour;
    refresh();
}

void RangeMarker::refresh()
{
    if (plot())
        PlotOverlay::of(*plot()).refresh();
}

void RangeMarker::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                       const QRectF& canvasRect) const
{
    if (!PlotOverlay::draws(plot()))
        drawOver(painter, xMap, yMap, canvasRect);
}

void RangeMarker::drawOver(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                           const QRectF& canvasRect) const
{
    QColor colour = m_colour;
    colour.setAlpha(m_mark == Mark::Range ? bandAlpha : restAlpha);
    for (const QRect& rect : pixels(xMap, yMap, canvasRect))
        painter->fillRect(rect, colour);
}

QRegion RangeMarker::pixels(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect) const
{
    if (!m_range.isValid())
        return {};
    const QRect canvas = canvasRect.toAlignedRect();
    if (m_mark == Mark::Range)
        return band(xMap, yMap, canvas);
    if (m_range.lower <= 0.0 && m_range.upper >= m_limit)
        return {};
    return QRegion(canvas) - band(xMap, yMap, canvas);
}

/// At least one pixel wide, so that a short range does not vanish.
QRect RangeMarker::band(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRect& canvas) const
{
    if (m_orientation == Qt::Horizontal) {
        const auto [first, end] = pixelRange(xMap, m_range, canvas.left(), canvas.right());
        return QRect(first, canvas.top(), qMax(end - first, 1), canvas.height()) & canvas;
    }
    const auto [first, end] = pixelRange(yMap, m_range, canvas.top(), canvas.bottom());
    return QRect(canvas.left(), first, canvas.width(), qMax(end - first, 1)) & canvas;
}
