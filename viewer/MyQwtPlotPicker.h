#ifndef SONAVIA_VIEWER_MYQWTPLOTPICKER_H
#define SONAVIA_VIEWER_MYQWTPLOTPICKER_H

#include <qwt_plot_picker.h>

/// Follows the pointer on a spectrogram or drags something there. What is dragged stays on the canvas; Escape
/// aborts. Which buttons and rubber band it uses is set from outside, as for its base class. Belongs to the
/// canvas.
class MyQwtPlotPicker : public QwtPlotPicker
{
    Q_OBJECT

public:
    /// What a drag with the left button makes: nothing (it only tells moves), the positions of one point, or
    /// a rectangle shown as a rubber band.
    enum class Drag { Nothing, Point, Rectangle };

    MyQwtPlotPicker(Drag drag, QWidget* canvas);

    void setColours(const QColor& rubberBand, const QColor& tracker);

    /// Like setEnabled(); a drag under way is aborted, not taken up again later.
    void setReady(bool ready);

signals:
    /// The pointer moved over the canvas with no button held down. In pixels of the canvas.
    void mouseMoved(const QPointF& point);
    /// A drag that began ended without a result.
    void aborted();

protected:
    QwtText trackerTextF(const QPointF& position) const override;
    void widgetMouseMoveEvent(QMouseEvent* event) override;
    void move(const QPoint& position) override;
    bool end(bool ok) override;
    bool accept(QPolygon& polygon) const override;

private:
    Drag m_drag;
};

#endif
