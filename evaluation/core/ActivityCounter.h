#ifndef SONAVIA_EVALUATION_CORE_ACTIVITYCOUNTER_H
#define SONAVIA_EVALUATION_CORE_ACTIVITYCOUNTER_H

#include "evaluation/core/ActivityBins.h"
#include "recordings/RecordingRow.h"

#include <QStringList>

#include <array>
#include <functional>
#include <vector>

/// The recordings of a list as the counting needs them: made once, whatever the settings. Recordings whose
/// date or time is none are left out; their classes still give curves. A value.
class ActivityRecordings
{
public:
    struct Entry
    {
        qint64 wall; ///< what the recorder's clock showed, see RecorderClock
        std::array<int, ClassRecord::slotCount> curves; ///< for each of its classes; -1 behind the last
    };

    ActivityRecordings() = default;
    explicit ActivityRecordings(const std::vector<RecordingRow>& rows);

    const std::vector<Entry>& entries() const { return m_entries; }

    /// "All Classes", the classes in the order of first appearance, "Unassigned". Their index is that of the
    /// curve everywhere.
    const QStringList& curveNames() const { return m_curveNames; }

    /// The years that there are recordings of, the newest first.
    const std::vector<int>& years() const { return m_years; }

private:
    QStringList m_curveNames;
    std::vector<Entry> m_entries;
    std::vector<int> m_years;
};

/// What is shown of the recordings of a day; the plots of other bins know only the first one.
struct ActivityQuantity
{
    enum class Kind { RecordingsPerHour, Files, DynamicEvents, StaticEvents };

    Kind kind = Kind::RecordingsPerHour;
    int minutes = 0; ///< the interval of events: 1, 5 or 10

    /// The eight choices in the order in which they are offered.
    static const std::vector<ActivityQuantity>& choices();
    /// "Number of Events per Day with Dynamic 1 Minute Time Interval", for example.
    QString text() const;
};

/// The curves of one plot over its bins.
struct ActivityCurves
{
    std::vector<double> validHours; ///< index bin
    std::vector<std::vector<double>>
        values; ///< index curve, bin; not a number where there are no valid hours
};

/// Counts the recordings in bins. A recording is counted in each bin that has a span with it, ends included,
/// once a bin. n log n in the recordings, linear in the spans times log n.
class ActivityCounter
{
public:
    /// `recordings` has to live on.
    ActivityCounter(const ActivityRecordings& recordings, const RecorderClock& clock);

    /// Told the share of the bins that is counted, 0 to 1.
    using Progress = std::function<void(double)>;

    ActivityCurves curves(const ActivityBins& bins, const ActivityQuantity& quantity = {},
                          const Progress& progress = {}) const;

private:
    struct Instant
    {
        qint64 utc;
        const ActivityRecordings::Entry* entry;
    };

    template <typename Visit>
    void visit(const ActivityBin& bin, const Visit& visit) const;
    std::vector<int> recordingsIn(const ActivityBin& bin) const;
    std::vector<int> eventsIn(const ActivityBin& bin, const ActivityQuantity& quantity) const;

    int m_curveCount;
    std::vector<Instant> m_instants; ///< in order of time
};

#endif
