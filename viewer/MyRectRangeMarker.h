#ifndef SONAVIA_VIEWER_MYRECTRANGEMARKER_H
#define SONAVIA_VIEWER_MYRECTRANGEMARKER_H

#include "viewer/OverlayItem.h"

#include <QPen>
#include <QRectF>
#include <qwt_plot_item.h>

/// The frame of the selected rectangle of time and frequency on the spectrogram. Drawn by the PlotOverlay of
/// its plot; the setters see to the repainting. Attached to the plot, which owns it.
class MyRectRangeMarker : public QwtPlotItem, public OverlayItem
{
public:
    explicit MyRectRangeMarker(QwtPlot& plot); ///< without a rectangle, so that it draws nothing

    /// x in s, y in kHz, y growing with the frequency. A null rectangle takes the frame away.
    void setRect(const QRectF& rect);
    const QRectF& rect() const { return m_rect; }

    void setPen(const QPen& pen);

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;
    void drawOver(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                  const QRectF& canvasRect) const override;
    QRegion pixels(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect) const override;

private:
    void refresh();

    QRectF m_rect;
    QPen m_pen;
};

#endif
