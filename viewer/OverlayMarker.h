#ifndef SONAVIA_VIEWER_OVERLAYMARKER_H
#define SONAVIA_VIEWER_OVERLAYMARKER_H

#include "viewer/OverlayItem.h"

#include <qwt_plot_marker.h>

/// A marker line, with or without a label, that moves over its plot without the plot being drawn again. Call
/// PlotOverlay::refresh() after a change.
class OverlayMarker : public QwtPlotMarker, public OverlayItem
{
public:
    /// Attached to `plot`, which owns it, and hidden.
    OverlayMarker(const QString& title, LineStyle lineStyle, QwtPlot& plot);

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;
    void drawOver(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                  const QRectF& canvasRect) const override;
    QRegion pixels(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect) const override;

protected:
    void drawLabel(QPainter* painter, const QRectF& canvasRect, const QPointF& pos) const override;
};

#endif
