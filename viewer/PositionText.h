#ifndef SONAVIA_VIEWER_POSITIONTEXT_H
#define SONAVIA_VIEWER_POSITIONTEXT_H

#include <QPointF>
#include <QString>

/// The coordinates of a place on a plot, as they stand beside the pointer.
namespace PositionText {

/// s and kHz
inline QString timeAndFrequency(const QPointF& position)
{
    return QString::asprintf("%.4f s, %.3f kHz", position.x(), position.y());
}

/// s and the unit of the amplitude axis
inline QString timeAndAmplitude(const QPointF& position)
{
    return QString::asprintf("%.4f s, %.1f", position.x(), position.y());
}

} // namespace PositionText

#endif
