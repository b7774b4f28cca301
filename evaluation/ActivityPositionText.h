#ifndef SONAVIA_EVALUATION_ACTIVITYPOSITIONTEXT_H
#define SONAVIA_EVALUATION_ACTIVITYPOSITIONTEXT_H

#include <QPointF>
#include <QString>

/// The coordinates of a place on an activity plot, as they stand beside the pointer. The position is in the
/// units of the axes, see ActivityRules.
namespace ActivityPositionText {

QString timeOfDay(const QPointF& position);
QString days(const QPointF& position);
QString months(const QPointF& position);
QString night(const QPointF& position);
QString temperature(const QPointF& position);
QString precipitation(const QPointF& position);
QString windSpeed(const QPointF& position);

} // namespace ActivityPositionText

#endif
