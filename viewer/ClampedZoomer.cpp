#include "viewer/ClampedZoomer.h"

#include "viewer/ClampedPoint.h"

#include <QApplication>
#include <QMouseEvent>

namespace {

constexpr int zoomSteps = 4;

} // namespace

ClampedZoomer::ClampedZoomer(int xAxis, int yAxis, QWidget* canvas, Formatter formatter)
    : QwtPlotZoomer(xAxis, yAxis, canvas, false), m_formatter(formatter)
{
    setMaxStackDepth(zoomSteps);
    setTrackerMode(AlwaysOn);
    setMousePattern(MouseSelect2, Qt::RightButton, Qt::ControlModifier); // to the base
    setMousePattern(MouseSelect3, Qt::RightButton);                      // one step back
    // Escape aborts and does nothing else. The other keys belong to the lists and the player.
    for (const KeyPatternCode code :
         {KeySelect1, KeySelect2, KeyLeft, KeyRight, KeyUp, KeyDown, KeyRedo, KeyUndo, KeyHome})
        setKeyPattern(code, Qt::Key_unknown);
}

void ClampedZoomer::setDragModifiers(Qt::KeyboardModifiers modifiers)
{
    setMousePattern(MouseSelect1, Qt::LeftButton, modifiers);
}

void ClampedZoomer::setColours(const QColor& rubberBand, const QColor& tracker)
{
    setRubberBandPen(QPen(rubberBand));
    setTrackerPen(QPen(tracker));
}

void ClampedZoomer::zoom(const QRectF& rect)
{
    const QRectF inside = rect.normalized() & zoomBase();
    if (!inside.isEmpty())
        QwtPlotZoomer::zoom(inside);
}

QwtText ClampedZoomer::trackerTextF(const QPointF& position) const
{
    return m_formatter(position);
}

/// A click with an unsteady hand is no drag.
bool ClampedZoomer::accept(QPolygon& polygon) const
{
    if (polygon.count() < 2 ||
        (polygon.last() - polygon.first()).manhattanLength() < QApplication::startDragDistance())
        return false;
    return QwtPlotZoomer::accept(polygon);
}

void ClampedZoomer::widgetMouseMoveEvent(QMouseEvent* event)
{
    if (!isActive()) {
        QwtPlotZoomer::widgetMouseMoveEvent(event);
        return;
    }
    // The coordinates stay in sight while the pointer is dragged outside.
    QMouseEvent inside(event->type(), clampedToContents(*canvas(), event->pos()), event->button(),
                       event->buttons(), event->modifiers());
    QwtPlotZoomer::widgetMouseMoveEvent(&inside);
}

void ClampedZoomer::move(const QPoint& position)
{
    QwtPlotZoomer::move(clampedToContents(*canvas(), position));
}
