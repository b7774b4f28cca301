#ifndef SONAVIA_VIEWER_CLAMPEDZOOMER_H
#define SONAVIA_VIEWER_CLAMPEDZOOMER_H

#include <qwt_plot_zoomer.h>

/// The zoomer of which all others are made. Dragging with the left button zooms in, up to four times; a right
/// click goes back one step, Escape aborts a drag. The rubber band stays on the canvas and the view within
/// the zoom base, however it is zoomed. The coordinates beside the pointer are worded by a function.
///
/// zoomed() tells every new view. Belongs to the canvas.
class ClampedZoomer : public QwtPlotZoomer
{
    Q_OBJECT

public:
    /// Words a position given in the units of the two axes.
    using Formatter = QString (*)(const QPointF& position);

    ClampedZoomer(int xAxis, int yAxis, QWidget* canvas, Formatter formatter);

    /// The modifiers that have to be held down for a zooming drag; none at first.
    void setDragModifiers(Qt::KeyboardModifiers modifiers);

    void setColours(const QColor& rubberBand, const QColor& tracker);

    using QwtPlotZoomer::zoom;
    /// Only the part of `rect` within the zoom base; nothing where they do not meet.
    void zoom(const QRectF& rect) override;

protected:
    QwtText trackerTextF(const QPointF& position) const override;
    bool accept(QPolygon& polygon) const override;
    void widgetMouseMoveEvent(QMouseEvent* event) override;
    void move(const QPoint& position) override;

private:
    Formatter m_formatter;
};

#endif
