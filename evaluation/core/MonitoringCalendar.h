#ifndef SONAVIA_EVALUATION_CORE_MONITORINGCALENDAR_H
#define SONAVIA_EVALUATION_CORE_MONITORINGCALENDAR_H

#include "evaluation/core/RecorderClock.h"
#include "evaluation/core/SunTimes.h"

#include <QString>

/// When and where a recorder listened, as the user states it. All times are those of the recorder's clock.
struct MonitoringPlan
{
    GeoPosition position;
    QTimeZone zone;
    bool daylightSaving = true; ///< the clock was put forward in summer
    int year = 2015;            ///< whose standard time a clock without daylight saving keeps
    QDate begin = QDate(2015, 1, 1);
    QDate end = QDate(2015, 12, 31);
    bool relative = false; ///< to sunset and sunrise, else by the clock
    QTime dailyStart = QTime(0, 0);
    QTime dailyStop = QTime(0, 0); ///< not later than the start: of the next day
    int startMinutes = 0;          ///< after sunset; may be negative
    int stopMinutes = 0;           ///< after the next sunrise; may be negative
    QString twilight;              ///< the name of the sunset and sunrise that are meant, see SunTimes
    QString invalidTimes;          ///< see invalidPeriods()
};

/// The times at which a recorder was really listening: one window for each day from begin to end, without the
/// invalid periods. All spans are in UTC seconds. Linear in the days; a value.
class MonitoringCalendar
{
public:
    struct Day
    {
        QDate date;
        TimeSpans
            window; ///< begins on the date and may run into the next day; in pieces where periods are cut
    };

    struct Night
    {
        QDate date; ///< of the evening
        qint64 sunset;
        qint64 sunrise; ///< the next one
    };

    explicit MonitoringCalendar(const MonitoringPlan& plan);

    const MonitoringPlan& plan() const { return m_plan; }
    const RecorderClock& clock() const { return m_clock; }

    /// In order; empty when the end is before the begin. A day without its sunset or sunrise has no window.
    const std::vector<Day>& days() const { return m_days; }

    /// All windows together; where two overlap, the time counts once.
    const TimeSpans& monitored() const { return m_monitored; }

    /// The nights that windows may reach into, also those before begin and after end, from the sunset at
    /// `altitude` to the next sunrise. Nights of polar days are missing.
    std::vector<Night> nights(double altitude = SunTimes::horizonAltitude) const;

private:
    std::vector<TimeSpan> windowOf(const QDate& date) const;
    SunTimes::Day sunOf(const QDate& date, double altitude) const;
    std::vector<Night> nightsBetween(const QDate& first, const QDate& last, double altitude) const;

    MonitoringPlan m_plan;
    RecorderClock m_clock;
    std::vector<Day> m_days;
    TimeSpans m_monitored;
};

/// A stretch in which a recorder did not work.
struct InvalidPeriod
{
    QDateTime begin; ///< what the recorder's clock shows, kept as Qt::UTC
    QDateTime end;
};

/// From "dd.MM.yyyy hh:mm-dd.MM.yyyy hh:mm", several joined by ";". What is none is left out.
std::vector<InvalidPeriod> invalidPeriods(const QString& text);
QString invalidPeriodsText(const std::vector<InvalidPeriod>& periods);

#endif
