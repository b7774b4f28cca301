#include "viewer/MyQwtPlotPicker.h"

#include "viewer/ClampedPoint.h"
#include "viewer/PositionText.h"

#include <QApplication>
#include <QMouseEvent>
#include <qwt_picker_machine.h>
#include <qwt_plot.h>
#include <qwt_text.h>

MyQwtPlotPicker::MyQwtPlotPicker(Drag drag, QWidget* canvas)
    : QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, NoRubberBand,
                    drag == Drag::Nothing ? AlwaysOff : ActiveOnly, canvas),
      m_drag(drag)
{
    if (drag == Drag::Point) {
        setStateMachine(new QwtPickerDragPointMachine);
    } else if (drag == Drag::Rectangle) {
        setStateMachine(new QwtPickerDragRectMachine);
        setRubberBand(RectRubberBand);
    } else {
        canvas->setMouseTracking(true);
    }
    for (const KeyPatternCode code : {KeySelect1, KeySelect2, KeyLeft, KeyRight, KeyUp, KeyDown})
        setKeyPattern(code, Qt::Key_unknown);
}

void MyQwtPlotPicker::setColours(const QColor& rubberBand, const QColor& tracker)
{
    setRubberBandPen(QPen(rubberBand));
    setTrackerPen(QPen(tracker));
}

void MyQwtPlotPicker::setReady(bool ready)
{
    if (!ready && isActive())
        reset();
    setEnabled(ready);
}

/// While a rectangle is drawn its width and height are told, too.
QwtText MyQwtPlotPicker::trackerTextF(const QPointF& position) const
{
    QString text = PositionText::timeAndFrequency(position);
    const QPolygon points = pickedPoints();
    if (m_drag == Drag::Rectangle && points.count() == 2) {
        const QRectF drawn = invTransform(QRect(points[0], points[1]).normalized());
        text += QChar::LineFeed + PositionText::timeAndFrequency(QPointF(drawn.width(), drawn.height()));
    }
    return text;
}

void MyQwtPlotPicker::widgetMouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton && !isActive())
        emit mouseMoved(event->localPos());
    QMouseEvent inside(event->type(), isActive() ? clampedToContents(*canvas(), event->pos()) : event->pos(),
                       event->button(), event->buttons(), event->modifiers());
    QwtPlotPicker::widgetMouseMoveEvent(&inside);
}

void MyQwtPlotPicker::move(const QPoint& position)
{
    QwtPlotPicker::move(clampedToContents(*canvas(), position));
}

bool MyQwtPlotPicker::end(bool ok)
{
    const bool wasActive = isActive();
    const bool accepted = QwtPlotPicker::end(ok);
    if (wasActive && !accepted)
        emit aborted();
    return accepted;
}

/// A click with an unsteady hand is no rectangle.
bool MyQwtPlotPicker::accept(QPolygon& polygon) const
{
    if (m_drag == Drag::Rectangle &&
        (polygon.count() < 2 ||
         (polygon.last() - polygon.first()).manhattanLength() < QApplication::startDragDistance()))
        return false;
    return QwtPlotPicker::accept(polygon);
}
