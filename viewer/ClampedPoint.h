#ifndef SONAVIA_VIEWER_CLAMPEDPOINT_H
#define SONAVIA_VIEWER_CLAMPEDPOINT_H

#include <QWidget>

/// The point of the widget's contents rectangle (pixels) that is nearest to `point`.
inline QPoint clampedToContents(const QWidget& widget, const QPoint& point)
{
    const QRect contents = widget.contentsRect();
    return {qBound(contents.left(), point.x(), contents.right()),
            qBound(contents.top(), point.y(), contents.bottom())};
}

#endif
