#include "viewer/OverlayMarker.h"

#include "viewer/PlotOverlay.h"

#include <QPainter>
#include <QtMath>
#include <qwt_plot.h>
#include <qwt_scale_map.h>
#include <qwt_text.h>

namespace {

constexpr double aboveEverything = 100.0;

/// Pixel positions far outside the canvas need not be exact, but must fit into an int.
int pixel(double position)
{
    return qFloor(qBound(-1e6, position, 1e6));
}

} // namespace

OverlayMarker::OverlayMarker(const QString& title, LineStyle lineStyle, QwtPlot& plot) : QwtPlotMarker(title)
{
    setLineStyle(lineStyle);
    setZ(aboveEverything);
    setVisible(false);
    PlotOverlay::of(plot);
    attach(&plot);
}

void OverlayMarker::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                         const QRectF& canvasRect) const
{
    if (!PlotOverlay::draws(plot()))
        drawOver(painter, xMap, yMap, canvasRect);
}

void OverlayMarker::drawOver(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                             const QRectF& canvasRect) const
{
    QwtPlotMarker::draw(painter, xMap, yMap, canvasRect);
}

/// The label of a horizontal line at the upper edge of the canvas moves down into it.
void OverlayMarker::drawLabel(QPainter* painter, const QRectF& canvasRect, const QPointF& pos) const
{
    const double height = label().textSize(painter->font()).height() + spacing() + linePen().widthF();
    const bool isLineInView = lineStyle() == HLine && pos.y() >= canvasRect.top() - 1;
    const double lowered = qMax(pos.y(), canvasRect.top() + height);
    QwtPlotMarker::drawLabel(painter, canvasRect, {pos.x(), isLineInView ? lowered : pos.y()});
}

QRegion OverlayMarker::pixels(const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                              const QRectF& canvasRect) const
{
    const QRect canvas = canvasRect.toAlignedRect();
    QSize reach(qCeil(linePen().widthF()) + 2, qCeil(linePen().widthF()) + 2);
    if (!label().isEmpty())
        reach += label().textSize().toSize() + QSize(spacing(), spacing());
    QRegion region;
    if (lineStyle() == VLine || lineStyle() == Cross)
        region |= QRect(pixel(xMap.transform(xValue())) - reach.width(), canvas.top(), 2 * reach.width(),
                        canvas.height());
    if (lineStyle() == HLine || lineStyle() == Cross)
        region |= QRect(canvas.left(), pixel(yMap.transform(yValue())) - reach.height(), canvas.width(),
                        2 * reach.height());
    return region & canvas;
}
