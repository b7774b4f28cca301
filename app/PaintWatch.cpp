#include "app/PaintWatch.h"

#include <QEvent>
#include <QWidget>

PaintWatch::PaintWatch(QWidget* widget) : QObject(widget)
{
    widget->installEventFilter(this);
}

void PaintWatch::arm()
{
    m_armed = true;
    static_cast<QWidget*>(parent())->update();
}

bool PaintWatch::eventFilter(QObject* object, QEvent* event)
{
    if (m_armed && event->type() == QEvent::Paint) {
        m_armed = false;
        // Seen before the widget paints; the queued call comes when it has painted.
        QMetaObject::invokeMethod(this, &PaintWatch::painted, Qt::QueuedConnection);
    }
    return QObject::eventFilter(object, event);
}
