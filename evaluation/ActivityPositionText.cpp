#include "evaluation/ActivityPositionText.h"

#include "evaluation/core/RecorderClock.h"

#include <QLocale>

#include <cmath>

namespace {

QString text(const QString& place, double value)
{
    return place + QStringLiteral(", ") + QString::number(value, 'f', 3);
}

QString number(double value, int decimals, const char* unit)
{
    return QString::number(value, 'f', decimals) + QString::fromUtf8(unit);
}

} // namespace

QString ActivityPositionText::timeOfDay(const QPointF& position)
{
    const QTime time = RecorderClock::timeOfWall(std::llround(position.x()));
    return text(QLocale::c().toString(time, QStringLiteral("hh:mm")), position.y());
}

QString ActivityPositionText::days(const QPointF& position)
{
    const QDate date = RecorderClock::dateOfWall(static_cast<qint64>(std::floor(position.x() / 1000.0)));
    return text(QLocale::c().toString(date, QStringLiteral("dd/MM/yy")), position.y());
}

QString ActivityPositionText::months(const QPointF& position)
{
    const int month = static_cast<int>(std::lround(position.x()));
    const QDate date(month / 12, month % 12 + 1, 1);
    return text(QLocale::c().toString(date, QStringLiteral("MMMM yyyy")), position.y());
}

QString ActivityPositionText::night(const QPointF& position)
{
    return text(number(position.x(), 2, ""), position.y());
}

QString ActivityPositionText::temperature(const QPointF& position)
{
    return text(number(position.x(), 1, " °C"), position.y());
}

/// The first bin, left of 0, is that of no precipitation at all.
QString ActivityPositionText::precipitation(const QPointF& position)
{
    return text(number(qMax(0.0, position.x()), 1, " mm/min"), position.y());
}

QString ActivityPositionText::windSpeed(const QPointF& position)
{
    return text(number(position.x(), 1, " m/s"), position.y());
}
