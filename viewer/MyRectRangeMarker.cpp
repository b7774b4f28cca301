#include "viewer/MyRectRangeMarker.h"

#include "viewer/PlotOverlay.h"

#include <QPainter>
#include <QtMath>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

namespace {

constexpr int handleSize = 6;

/// The frame in pixels; sides far outside the canvas are brought close to it, where they stay out of sight.
QRectF frameOf(const QRectF& rect, const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect)
{
    const QRectF frame = QRectF(QPointF(xMap.transform(rect.left()), yMap.transform(rect.top())),
                                QPointF(xMap.transform(rect.right()), yMap.transform(rect.bottom())))
                             .normalized();
    const QRectF near = canvasRect.adjusted(-100, -100, 100, 100);
    return {QPointF(qBound(near.left(), frame.left(), near.right()),
                    qBound(near.top(), frame.top(), near.bottom())),
            QPointF(qBound(near.left(), frame.right(), near.right()),
                    qBound(near.top(), frame.bottom(), near.bottom()))};
}

} // namespace

MyRectRangeMarker::MyRectRangeMarker(QwtPlot& plot)
{
    setZ(70.0);
    PlotOverlay::of(plot);
    attach(&plot);
}

void MyRectRangeMarker::setRect(const QRectF& rect)
{
    m_rect = rect;
    refresh();
}

void MyRectRangeMarker::setPen(const QPen& pen)
{
    m_pen = pen;
    refresh();
}

void MyRectRangeMarker::refresh()
{
    if (plot())
        PlotOverlay::of(*plot()).refresh();
}

void MyRectRangeMarker::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                             const QRectF& canvasRect) const
{
    if (!PlotOverlay::draws(plot()))
        drawOver(painter, xMap, yMap, canvasRect);
}

void MyRectRangeMarker::drawOver(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                                 const QRectF& canvasRect) const
{
    if (m_rect.isNull())
        return;
    const QRectF frame = frameOf(m_rect, xMap, yMap, canvasRect);
    painter->setPen(m_pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(frame);
    // What can be dragged: a handle on each side.
    const QSizeF size(handleSize, handleSize);
    const QPointF offset(handleSize / 2.0, handleSize / 2.0);
    for (const QPointF& middle :
         {QPointF(frame.left(), frame.center().y()), QPointF(frame.right(), frame.center().y()),
          QPointF(frame.center().x(), frame.top()), QPointF(frame.center().x(), frame.bottom())})
        painter->fillRect(QRectF(middle - offset, size), m_pen.color());
}

QRegion MyRectRangeMarker::pixels(const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                                  const QRectF& canvasRect) const
{
    if (m_rect.isNull())
        return {};
    const int reach = handleSize / 2 + qCeil(m_pen.widthF()) + 1;
    const QRect outer =
        frameOf(m_rect, xMap, yMap, canvasRect).toAlignedRect().adjusted(-reach, -reach, reach, reach);
    const QRect inner = outer.adjusted(2 * reach, 2 * reach, -2 * reach, -2 * reach);
    return (QRegion(outer) - inner) & canvasRect.toAlignedRect();
}
