#include "evaluation/core/MonitoringCalendar.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace {

constexpr qint64 dayLength = 86400;

RecorderClock clockOf(const MonitoringPlan& plan)
{
    if (!plan.daylightSaving)
        return RecorderClock::atStandardTime(plan.zone, plan.year);
    const int last = std::max(plan.end.year(), plan.begin.year());
    return RecorderClock::inZone(plan.zone, plan.begin.year(), last);
}

TimeSpans invalidSpans(const QString& text, const RecorderClock& clock)
{
    std::vector<TimeSpan> spans;
    for (const InvalidPeriod& period : invalidPeriods(text))
        spans.push_back(
            {clock.toUtc(period.begin.toSecsSinceEpoch()), clock.toUtc(period.end.toSecsSinceEpoch())});
    return united(std::move(spans));
}

QString periodFormat()
{
    return QStringLiteral("dd.MM.yyyy hh:mm");
}

QDateTime periodEnd(const QString& text)
{
    const QDateTime local = QLocale::c().toDateTime(text.trimmed(), periodFormat());
    return {local.date(), local.time(), Qt::UTC};
}

} // namespace

MonitoringCalendar::MonitoringCalendar(const MonitoringPlan& plan) : m_plan(plan), m_clock(clockOf(plan))
{
    const TimeSpans invalid = invalidSpans(plan.invalidTimes, m_clock);
    std::vector<TimeSpan> all;
    for (QDate date = plan.begin; date.isValid() && date <= plan.end; date = date.addDays(1)) {
        m_days.push_back({date, united(windowOf(date))});
        TimeSpans& window = m_days.back().window;
        if (!window.empty()) {
            const auto reaching =
                std::partition_point(invalid.begin(), invalid.end(), [&](const TimeSpan& period) {
                    return period.stop <= window.front().start;
                });
            const auto beyond = std::partition_point(reaching, invalid.end(), [&](const TimeSpan& period) {
                return period.start < window.back().stop;
            });
            window = difference(window, TimeSpans(reaching, beyond));
        }
        all.insert(all.end(), window.begin(), window.end());
    }
    m_monitored = united(std::move(all));
}

std::vector<TimeSpan> MonitoringCalendar::windowOf(const QDate& date) const
{
    if (m_plan.relative) {
        std::vector<TimeSpan> window;
        for (const Night& night : nightsBetween(date, date, SunTimes::altitudeOf(m_plan.twilight)))
            window.push_back({night.sunset + qint64(60) * m_plan.startMinutes,
                              night.sunrise + qint64(60) * m_plan.stopMinutes});
        return window;
    }
    const qint64 start = RecorderClock::wall(date, m_plan.dailyStart);
    qint64 stop = RecorderClock::wall(date, m_plan.dailyStop);
    if (stop <= start)
        stop += dayLength;
    return {{m_clock.toUtc(start), m_clock.toUtc(stop)}};
}

SunTimes::Day MonitoringCalendar::sunOf(const QDate& date, double altitude) const
{
    const int daylightHours = m_clock.daylightHoursAtNoon(date);
    const double offsetHours = m_clock.offsetAtNoon(date) / 3600.0 - daylightHours;
    return SunTimes::day(date, m_plan.position, altitude, offsetHours, daylightHours);
}

std::vector<MonitoringCalendar::Night> MonitoringCalendar::nights(double altitude) const
{
    if (m_days.empty())
        return {};
    return nightsBetween(m_plan.begin.addDays(-2), m_plan.end.addDays(2), altitude);
}

std::vector<MonitoringCalendar::Night>
MonitoringCalendar::nightsBetween(const QDate& first, const QDate& last, double altitude) const
{
    // Sun times are those of a clock set as at noon of the day.
    const auto utc = [this](const QDate& date, qint64 seconds) {
        return RecorderClock::wall(date) + seconds - m_clock.offsetAtNoon(date);
    };
    std::vector<Night> result;
    SunTimes::Day today = sunOf(first, altitude);
    for (QDate date = first; date <= last; date = date.addDays(1)) {
        const QDate tomorrow = date.addDays(1);
        const SunTimes::Day next = sunOf(tomorrow, altitude);
        if (today.sunset && next.sunrise) {
            const Night night{date, utc(date, *today.sunset), utc(tomorrow, *next.sunrise)};
            if (night.sunset < night.sunrise)
                result.push_back(night);
        }
        today = next;
    }
    return result;
}

std::vector<InvalidPeriod> invalidPeriods(const QString& text)
{
    std::vector<InvalidPeriod> periods;
    const QStringList parts = text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        const InvalidPeriod period{periodEnd(part.section(QLatin1Char('-'), 0, 0)),
                                   periodEnd(part.section(QLatin1Char('-'), 1))};
        if (period.begin.isValid() && period.end.isValid())
            periods.push_back(period);
    }
    return periods;
}

QString invalidPeriodsText(const std::vector<InvalidPeriod>& periods)
{
    QStringList parts;
    for (const InvalidPeriod& period : periods)
        parts << QLocale::c().toString(period.begin, periodFormat()) + QLatin1Char('-') +
                     QLocale::c().toString(period.end, periodFormat());
    return parts.join(QLatin1Char(';'));
}
