#include "evaluation/core/RecorderClock.h"

#include <QDateTime>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 secondsOfDay = 86400;
constexpr qint64 julianDayOf1970 = 2440588;
/// Before all times, with room for an offset.
constexpr qint64 beforeAll = std::numeric_limits<qint64>::min() / 2;

QDateTime yearStart(int year)
{
    return QDateTime(QDate(year, 1, 1), QTime(0, 0), Qt::UTC);
}

qint64 dayOfWall(qint64 wall)
{
    return wall >= 0 ? wall / secondsOfDay : -((-wall + secondsOfDay - 1) / secondsOfDay);
}

} // namespace

RecorderClock::RecorderClock(int offset)
{
    m_sections.push_back({beforeAll, offset, 0});
}

RecorderClock RecorderClock::inZone(const QTimeZone& zone, int firstYear, int lastYear)
{
    if (!zone.isValid())
        return RecorderClock();
    const QDateTime from = yearStart(firstYear - 1);
    RecorderClock clock(zone.offsetFromUtc(from));
    clock.m_sections.front().daylight = zone.daylightTimeOffset(from);
    for (const QTimeZone::OffsetData& change : zone.transitions(from, yearStart(lastYear + 2)))
        clock.m_sections.push_back(
            {change.atUtc.toSecsSinceEpoch(), change.offsetFromUtc, change.daylightTimeOffset});
    return clock;
}

RecorderClock RecorderClock::atStandardTime(const QTimeZone& zone, int year)
{
    return RecorderClock(zone.isValid() ? zone.standardTimeOffset(yearStart(year)) : 0);
}

qint64 RecorderClock::wall(const QDate& date, const QTime& time)
{
    return (date.toJulianDay() - julianDayOf1970) * secondsOfDay + time.msecsSinceStartOfDay() / 1000;
}

QDate RecorderClock::dateOfWall(qint64 wall)
{
    return QDate::fromJulianDay(julianDayOf1970 + dayOfWall(wall));
}

QTime RecorderClock::timeOfWall(qint64 wall)
{
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>(wall - dayOfWall(wall) * secondsOfDay) * 1000);
}

/// The last one that had begun by what the clock shows.
const RecorderClock::Section& RecorderClock::sectionOfWall(qint64 wall) const
{
    const auto next =
        std::upper_bound(m_sections.begin() + 1, m_sections.end(), wall,
                         [](qint64 time, const Section& s) { return time < s.start + s.offset; });
    return *std::prev(next);
}

qint64 RecorderClock::toUtc(qint64 wall) const
{
    return wall - sectionOfWall(wall).offset;
}

qint64 RecorderClock::toWall(qint64 utc) const
{
    const auto next = std::upper_bound(m_sections.begin() + 1, m_sections.end(), utc,
                                       [](qint64 time, const Section& s) { return time < s.start; });
    return utc + std::prev(next)->offset;
}

void RecorderClock::appendUtc(const TimeSpan& wall, std::vector<TimeSpan>& spans) const
{
    auto index = static_cast<std::size_t>(&sectionOfWall(wall.start) - m_sections.data());
    if (index > 0)
        --index; // its last hour may be the first of an hour that exists twice
    for (; index < m_sections.size(); ++index) {
        const Section& section = m_sections[index];
        TimeSpan span{std::max(wall.start - section.offset, section.start), wall.stop - section.offset};
        if (index + 1 < m_sections.size())
            span.stop = std::min(span.stop, m_sections[index + 1].start);
        if (span.length() > 0)
            spans.push_back(span);
        if (section.start + section.offset > wall.stop)
            break;
    }
}

int RecorderClock::offsetAtNoon(const QDate& date) const
{
    return sectionOfWall(wall(date, QTime(12, 0))).offset;
}

int RecorderClock::daylightHoursAtNoon(const QDate& date) const
{
    return sectionOfWall(wall(date, QTime(12, 0))).daylight / 3600;
}
