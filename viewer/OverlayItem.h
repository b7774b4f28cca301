#ifndef SONAVIA_VIEWER_OVERLAYITEM_H
#define SONAVIA_VIEWER_OVERLAYITEM_H

#include <QRegion>

class QPainter;
class QRectF;
class QwtScaleMap;

/// What a plot item offers, beside being one, to be drawn by the PlotOverlay of its plot. Its draw() of
/// QwtPlotItem does nothing while PlotOverlay::draws(plot()), and else the same as drawOver().
class OverlayItem
{
public:
    /// Draws as QwtPlotItem::draw() would.
    virtual void drawOver(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                          const QRectF& canvasRect) const = 0;

    /// All pixels of the canvas that drawOver() may touch; more is allowed.
    virtual QRegion pixels(const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                           const QRectF& canvasRect) const = 0;

protected:
    ~OverlayItem() = default;
};

#endif
