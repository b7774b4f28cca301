#ifndef SONAVIA_EVALUATION_CORE_TIMEZONECHOICE_H
#define SONAVIA_EVALUATION_CORE_TIMEZONECHOICE_H

#include <QDateTime>
#include <QString>
#include <QTimeZone>
#include <QVector>

/// How the clock of a recorder was set, as the export and plot dialogs ask for it: a time zone, and whether
/// it was put forward in summer.
///
/// The times of recordings are what that clock showed. They are kept as date and time in a QDateTime of
/// Qt::UTC, here called a wall-clock time, and never in the computer's own zone; what they mean depends
/// on this choice alone, neither on the computer's zone nor on its locale. A plain value; thread-safe.
struct TimeZoneChoice
{
    QTimeZone zone; ///< an invalid one (a computer without zone data) counts as UTC
    bool daylightSaving = false;

    /// Seconds east of UTC of the clock when it showed `wallClock`: the zone's standard-time offset, or with
    /// daylight saving its offset at that time. An hour that the clock skips has the offset before the
    /// change, an hour that it shows twice the standard one.
    int offsetAt(const QDateTime& wallClock) const;

    /// The moment at which the clock showed `wallClock`, as Qt::UTC; invalid for an invalid time.
    QDateTime utc(const QDateTime& wallClock) const;

    /// The zone in a table's header: its short name, or with a clock on standard time its offset,
    /// "UTC+01:00".
    QString label() const;

    /// The wall-clock time of a row's texts "dd/MM/yy" and "hh:mm:ss" in the years 2000 to 2099; invalid when
    /// one of them is anything else.
    static QDateTime wallClock(const QString& date, const QString& time);

    // The list of zones that the dialogs offer, in its order: by standard-time offset, westmost first.

    struct Entry
    {
        QString name;
        QTimeZone zone;
    };

    /// Made on the first call, which takes some 100 ms; the same list ever after. Empty on a computer without
    /// zone data. Names are English on every computer.
    ///
    /// Many zones share a name, and each name is there once. It stands for one that has had the same standard
    /// time in the last years and puts its clocks forward, where there is such a zone: it serves both answers
    /// to the question of daylight saving. (The first by its id would give Central European Time the
    /// clocks of Algiers, which never change.)
    static const QVector<Entry>& entries();

    /// The index of the entry that has the name of `zone`, else of the first one with its present
    /// standard-time offset, else 0; -1 when there are no entries.
    static int indexOf(const QTimeZone& zone);
};

#endif
