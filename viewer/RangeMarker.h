#ifndef SONAVIA_VIEWER_RANGEMARKER_H
#define SONAVIA_VIEWER_RANGEMARKER_H

#include "viewer/OverlayItem.h"
#include "viewer/core/AxisLimits.h"

#include <QColor>
#include <qwt_plot_item.h>

/// Marks a range of one axis on an axis plot, across its whole canvas: a selected range by a tinted band, or
/// the range that the spectrogram shows by dimming everything else.
///
/// Drawn by the PlotOverlay of its plot, so that moving it does not draw the curves again; the setters see to
/// the repainting. Attached to the plot, which owns it.
class RangeMarker : public QwtPlotItem, public OverlayItem
{
public:
    enum class Mark { Range, Rest };

    /// A horizontal marker marks a range of the plot's bottom axis, a vertical one of its left axis. Without
    /// a range it draws nothing.
    RangeMarker(Qt::Orientation orientation, Mark mark, QwtPlot& plot);

    /// The range in the unit of the axis, cut to 0..`limit`. With Mark::Rest the whole of it leaves nothing
    /// to mark.
    void setRange(double from, double to, double limit);
    void clear();
    /// Not valid when there is none.
    const AxisLimits& range() const { return m_range; }

    void setColour(const QColor& colour);

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;
    void drawOver(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                  const QRectF& canvasRect) const override;
    QRegion pixels(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect) const override;

private:
    QRect band(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRect& canvas) const;
    void refresh();

    Qt::Orientation m_orientation;
    Mark m_mark;
    AxisLimits m_range;
    double m_limit = 0;
    QColor m_colour;
};

#endif
