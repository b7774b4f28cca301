#ifndef SONAVIA_EVALUATION_CORE_CLASSEVENTS_H
#define SONAVIA_EVALUATION_CORE_CLASSEVENTS_H

#include "evaluation/core/TimeZoneChoice.h"
#include "recordings/RecordingRow.h"

#include <QDate>
#include <QStringList>
#include <QVector>

#include <vector>

/// Which recordings open an event of bat activity: a recording of a class opens one when it does not belong
/// to the event of an earlier recording of the same class. Each class has events of its own, and a recording
/// with several classes may open several.
///
/// Building costs one sort of all recordings, each interval one walk over those of each class. Recordings
/// whose date or time is unknown open no event. Not for changing rows: it describes the ones it was made
/// from.
class ClassEvents
{
public:
    enum class Mode {
        Dynamic, ///< an event takes in all recordings up to an interval's length after its first
        Static   ///< an event is an interval of the clock: of 10 minutes, 21:00:00 to 21:09:59
    };

    /// `classes` in the order in which their names are to appear.
    ClassEvents(const QVector<RecordingRow>& rows, QStringList classes, const TimeZoneChoice& time);

    /// For each row, in their order, the classes of which it opens an event of `minutes`, joined by ",". Of
    /// several recordings of the same second all do.
    QVector<QString> openedBy(int minutes, Mode mode) const;

private:
    struct Recording
    {
        int row = 0;
        qint64 second = 0; // UTC
        QDate day;         // what the clock showed
        int minuteOfDay = 0;
    };

    static bool belongs(const Recording& recording, const Recording& opener, int minutes, Mode mode);

    QStringList m_classes;
    int m_rowCount;
    std::vector<Recording> m_recordings;      // in order of time
    std::vector<std::vector<int>> m_carriers; // per class, indexes into m_recordings, ascending
};

#endif
