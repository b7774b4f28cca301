#include "evaluation/core/ActivityCounter.h"

#include "evaluation/core/TimeZoneChoice.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <set>

ActivityRecordings::ActivityRecordings(const std::vector<RecordingRow>& rows)
{
    constexpr int unassigned = std::numeric_limits<int>::max();
    QHash<QString, int> indices;
    std::set<int, std::greater<>> years;
    m_curveNames << QStringLiteral("All Classes");
    m_entries.reserve(rows.size());
    for (const RecordingRow& row : rows) {
        Entry entry{0, {unassigned, -1, -1, -1}};
        for (std::size_t i = 0; i < entry.curves.size() && !row.record.classes[i].isEmpty(); ++i) {
            const QString& name = row.record.classes[i];
            auto known = indices.constFind(name);
            if (known == indices.constEnd()) {
                known = indices.insert(name, m_curveNames.size());
                m_curveNames << name;
            }
            entry.curves[i] = known.value();
        }
        const QDateTime shown = TimeZoneChoice::wallClock(row.date, row.time);
        if (!shown.isValid())
            continue;
        entry.wall = shown.toSecsSinceEpoch();
        m_entries.push_back(entry);
        years.insert(RecorderClock::dateOfWall(entry.wall).year());
    }
    for (Entry& entry : m_entries)
        if (entry.curves[0] == unassigned)
            entry.curves[0] = m_curveNames.size();
    m_curveNames << QStringLiteral("Unassigned");
    m_years.assign(years.begin(), years.end());
}

const std::vector<ActivityQuantity>& ActivityQuantity::choices()
{
    static const std::vector<ActivityQuantity> all = [] {
        std::vector<ActivityQuantity> result{{Kind::RecordingsPerHour, 0}, {Kind::Files, 0}};
        for (const Kind mode : {Kind::DynamicEvents, Kind::StaticEvents})
            for (const int interval : {1, 5, 10})
                result.push_back({mode, interval});
        return result;
    }();
    return all;
}

QString ActivityQuantity::text() const
{
    if (kind == Kind::RecordingsPerHour)
        return QStringLiteral("Activity in Recordings per Hour");
    if (kind == Kind::Files)
        return QStringLiteral("Number of Files per Day");
    const QString mode = kind == Kind::DynamicEvents ? QStringLiteral("Dynamic") : QStringLiteral("Static");
    return QStringLiteral("Number of Events per Day with %1 %2 Minute Time Interval").arg(mode).arg(minutes);
}

ActivityCounter::ActivityCounter(const ActivityRecordings& recordings, const RecorderClock& clock)

    : m_curveCount(recordings.curveNames().size())
{
    m_instants.reserve(recordings.entries().size());
    for (const ActivityRecordings::Entry& entry : recordings.entries())
        m_instants.push_back({clock.toUtc(entry.wall), &entry});
    std::stable_sort(m_instants.begin(), m_instants.end(),
                     [](const Instant& a, const Instant& b) { return a.utc < b.utc; });
}

/// Calls `visit` with every recording in the bin, in order of time.
template <typename Visit>
void ActivityCounter::visit(const ActivityBin& bin, const Visit& visit) const
{
    auto next = m_instants.begin();
    for (const TimeSpan& span : bin.spans) {
        next = std::lower_bound(next, m_instants.end(), span.start,
                                [](const Instant& instant, qint64 start) { return instant.utc < start; });
        for (; next != m_instants.end() && next->utc <= span.stop; ++next)
            visit(*next);
    }
}

std::vector<int> ActivityCounter::recordingsIn(const ActivityBin& bin) const
{
    std::vector<int> counts(static_cast<std::size_t>(m_curveCount), 0);
    visit(bin, [&](const Instant& instant) {
        ++counts[0];
        for (const int curve : instant.entry->curves) {
            if (curve < 0)
                break;
            ++counts[curve];
        }
    });
    return counts;
}

/// An event begins with a recording that follows the begin of the one before by more than the interval, or
/// that lies in another interval of the clock's hour.
std::vector<int> ActivityCounter::eventsIn(const ActivityBin& bin, const ActivityQuantity& quantity) const
{
    const bool dynamic = quantity.kind == ActivityQuantity::Kind::DynamicEvents;
    const qint64 seconds = qint64(60) * quantity.minutes;
    std::vector<int> counts(static_cast<std::size_t>(m_curveCount), 0);
    std::vector<qint64> begins(counts.size(), 0);
    const auto meet = [&](int curve, const Instant& instant) {
        const qint64 time = dynamic ? instant.utc : instant.entry->wall / seconds;
        const bool opens =
            counts[curve] == 0 || (dynamic ? time > begins[curve] + seconds : time != begins[curve]);
        if (!opens)
            return;
        begins[curve] = time;
        ++counts[curve];
    };
    visit(bin, [&](const Instant& instant) {
        meet(0, instant);
        for (const int curve : instant.entry->curves)
            if (curve > 0)
                meet(curve, instant);
    });
    return counts;
}

ActivityCurves ActivityCounter::curves(const ActivityBins& bins, const ActivityQuantity& quantity,
                                       const Progress& progress) const
{
    ActivityCurves result;
    result.validHours.reserve(bins.size());
    result.values.assign(static_cast<std::size_t>(m_curveCount),
                         std::vector<double>(bins.size(), std::numeric_limits<double>::quiet_NaN()));
    const bool perHour = quantity.kind == ActivityQuantity::Kind::RecordingsPerHour;
    for (std::size_t bin = 0; bin < bins.size(); ++bin) {
        if (progress)
            progress(static_cast<double>(bin) / static_cast<double>(bins.size()));
        const double hours = static_cast<double>(totalLength(bins[bin].spans)) / 3600.0;
        result.validHours.push_back(hours);
        if (hours <= 0.0)
            continue;
        const std::vector<int> counts =
            quantity.minutes > 0 ? eventsIn(bins[bin], quantity) : recordingsIn(bins[bin]);
        for (std::size_t curve = 0; curve < counts.size(); ++curve)
            result.values[curve][bin] = perHour ? counts[curve] / hours : counts[curve];
    }
    return result;
}
