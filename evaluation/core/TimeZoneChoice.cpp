#include "evaluation/core/TimeZoneChoice.h"

#include <QHash>
#include <QLocale>

#include <algorithm>

namespace {

/// No zone is further than this from UTC.
constexpr int widestOffset = 15 * 3600; // s

int offsetWithDaylightSaving(const QTimeZone& zone, const QDateTime& wallClock)
{
    const int before = zone.offsetFromUtc(wallClock.addSecs(-widestOffset));
    const int after = zone.offsetFromUtc(wallClock.addSecs(widestOffset));
    if (before == after)
        return before;
    const QDateTime ifBefore = wallClock.addSecs(-before);
    const bool fitsBefore = zone.offsetFromUtc(ifBefore) == before;
    const bool fitsAfter = zone.offsetFromUtc(wallClock.addSecs(-after)) == after;
    if (fitsBefore && fitsAfter)
        return zone.daylightTimeOffset(ifBefore) == 0 ? before : after;
    return fitsAfter ? after : before;
}

/// The number in two decimal digits at `from`, or -1. By hand: QDate and QTime take longer to parse a text
/// than everything else that an export does with a row.
int twoDigits(const QString& text, int from)
{
    const int tens = text.at(from).unicode() - u'0';
    const int ones = text.at(from + 1).unicode() - u'0';
    return tens >= 0 && tens <= 9 && ones >= 0 && ones <= 9 ? 10 * tens + ones : -1;
}

bool hasForm(const QString& text, char separator)
{
    return text.size() == 8 && text.at(2) == QLatin1Char(separator) && text.at(5) == QLatin1Char(separator);
}

/// The C locale would leave the language to the computer.
QLocale namesLocale()
{
    return QLocale(QLocale::English, QLocale::UnitedStates);
}

QString longName(const QTimeZone& zone)
{
    return zone.displayName(QTimeZone::GenericTime, QTimeZone::LongName, namesLocale());
}

/// Whether the clocks of the zone run on, ten minutes after a summer's day of 2017 at 17:00.
bool isUsable(const QTimeZone& zone)
{
    const QDateTime start(QDate(2017, 8, 1), QTime(17, 0), zone);
    const QTime end = start.addSecs(600).time();
    return start.isValid() && end.hour() + end.minute() == 17 + 10;
}

/// How well a zone stands for all of its name.
int rank(const QByteArray& id, const QTimeZone& zone, const QString& name)
{
    const auto at = [](int year, int month) { return QDateTime(QDate(year, month, 1), QTime(), Qt::UTC); };
    const bool steady = zone.standardTimeOffset(at(2017, 8)) == zone.standardTimeOffset(at(2024, 8));
    const bool changesClocks =
        zone.daylightTimeOffset(at(2017, 1)) > 0 || zone.daylightTimeOffset(at(2017, 7)) > 0;
    const bool sameContinent = name.contains(QString::fromLatin1(id.left(id.indexOf('/'))));
    const bool bestKnown = QTimeZone::windowsIdToDefaultIanaId(QTimeZone::ianaIdToWindowsId(id)) == id;
    return 8 * int(steady) + 4 * int(changesClocks) + 2 * int(sameContinent) + int(bestKnown);
}

QList<QByteArray> knownIds()
{
    QList<QByteArray> ids = QTimeZone::availableTimeZoneIds();
    // The computer's own may be one that is known without being listed, like "Etc/UTC".
    const QByteArray own = QTimeZone::systemTimeZoneId();
    if (!ids.contains(own))
        ids.append(own);
    return ids;
}

QVector<TimeZoneChoice::Entry> makeEntries()
{
    QVector<TimeZoneChoice::Entry> entries;
    QVector<int> ranks;
    QHash<QString, int> indexOfName;
    const QList<QByteArray> ids = knownIds();
    for (const QByteArray& id : ids) {
        const QTimeZone zone(id);
        const QString name = longName(zone);
        if (name.startsWith(QLatin1String("UTC")) || !isUsable(zone))
            continue;
        const int zoneRank = rank(id, zone, name);
        const auto known = indexOfName.constFind(name);
        if (known == indexOfName.constEnd()) {
            indexOfName.insert(name, entries.size());
            entries.append({name, zone});
            ranks.append(zoneRank);
        } else if (zoneRank > ranks.at(*known)) {
            entries[*known].zone = zone;
            ranks[*known] = zoneRank;
        }
    }
    const QDateTime summer(QDate(2017, 8, 1), QTime(17, 0), Qt::UTC);
    std::stable_sort(entries.begin(), entries.end(), [&summer](const auto& a, const auto& b) {
        return a.zone.standardTimeOffset(summer) < b.zone.standardTimeOffset(summer);
    });
    return entries;
}

} // namespace

int TimeZoneChoice::offsetAt(const QDateTime& wallClock) const
{
    if (!zone.isValid() || !wallClock.isValid())
        return 0;
    const int offset = offsetWithDaylightSaving(zone, wallClock);
    return daylightSaving ? offset : zone.standardTimeOffset(wallClock.addSecs(-offset));
}

QDateTime TimeZoneChoice::utc(const QDateTime& wallClock) const
{
    return wallClock.addSecs(-offsetAt(wallClock));
}

QString TimeZoneChoice::label() const
{
    const QTimeZone shown = zone.isValid() ? zone : QTimeZone::utc();
    return shown.displayName(QTimeZone::GenericTime,
                             daylightSaving ? QTimeZone::ShortName : QTimeZone::OffsetName, namesLocale());
}

QDateTime TimeZoneChoice::wallClock(const QString& date, const QString& time)
{
    if (!hasForm(date, '/') || !hasForm(time, ':'))
        return {};
    const int year = twoDigits(date, 6);
    const QDate day = year < 0 ? QDate() : QDate(2000 + year, twoDigits(date, 3), twoDigits(date, 0));
    const QTime clock(twoDigits(time, 0), twoDigits(time, 3), twoDigits(time, 6));
    return day.isValid() && clock.isValid() ? QDateTime(day, clock, Qt::UTC) : QDateTime();
}

const QVector<TimeZoneChoice::Entry>& TimeZoneChoice::entries()
{
    static const QVector<Entry> entries = makeEntries();
    return entries;
}

int TimeZoneChoice::indexOf(const QTimeZone& zone)
{
    const QVector<Entry>& all = entries();
    if (all.isEmpty())
        return -1;
    const QString name = longName(zone);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    int sameOffset = 0;
    for (int i = all.size() - 1; i >= 0; --i) {
        if (all.at(i).name == name)
            return i;
        if (all.at(i).zone.standardTimeOffset(now) == zone.standardTimeOffset(now))
            sameOffset = i;
    }
    return sameOffset;
}
