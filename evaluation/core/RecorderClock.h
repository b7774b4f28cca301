#ifndef SONAVIA_EVALUATION_CORE_RECORDERCLOCK_H
#define SONAVIA_EVALUATION_CORE_RECORDERCLOCK_H

#include "evaluation/core/TimeSpans.h"

#include <QDate>
#include <QTime>
#include <QTimeZone>

/// The clock that a recorder or a weather station was set to: from what it showed to UTC and back.
///
/// What a clock shows is a "wall" time: seconds from 1970-01-01 00:00 on that same clock. UTC seconds are
/// those since the epoch, so differences of them are true lengths of time, also over a change of clocks. The
/// changes are looked up in the time zone once; a conversion costs a binary search. The computer's own zone
/// plays no part. A value, usable on any thread.
class RecorderClock
{
public:
    /// Shows UTC.
    RecorderClock() : RecorderClock(0) {}

    /// Follows all changes of `zone` in the given years and the year before and after. An invalid zone is
    /// UTC.
    static RecorderClock inZone(const QTimeZone& zone, int firstYear, int lastYear);

    /// Stays at the standard time that `zone` has on 1 January of `year`.
    static RecorderClock atStandardTime(const QTimeZone& zone, int year);

    static qint64 wall(const QDate& date, const QTime& time = QTime(0, 0));
    static QDate dateOfWall(qint64 wall);
    static QTime timeOfWall(qint64 wall);

    /// In the hour that exists twice the second one is meant; in the hour that is left out, the clock as it
    /// was before the change.
    qint64 toUtc(qint64 wall) const;
    qint64 toWall(qint64 utc) const;

    /// Every moment at which the clock shows a time in `wall`, appended to `spans` in UTC: nothing in the
    /// hour that is left out, two spans in the hour that exists twice.
    void appendUtc(const TimeSpan& wall, std::vector<TimeSpan>& spans) const;

    /// Seconds by which the clock is ahead of UTC at noon of `date`, and the whole hours of daylight saving
    /// in it.
    int offsetAtNoon(const QDate& date) const;
    int daylightHoursAtNoon(const QDate& date) const;

private:
    struct Section
    {
        qint64 start; ///< UTC
        int offset;   ///< s ahead of UTC
        int daylight; ///< s of it for daylight saving
    };

    explicit RecorderClock(int offset);
    const Section& sectionOfWall(qint64 wall) const;

    std::vector<Section> m_sections; ///< never empty, the first one begins before all times
};

#endif
