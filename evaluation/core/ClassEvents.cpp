#include "evaluation/core/ClassEvents.h"

#include "evaluation/core/ClassChoice.h"

#include <QHash>

#include <algorithm>
#include <utility>

ClassEvents::ClassEvents(const QVector<RecordingRow>& rows, QStringList classes, const TimeZoneChoice& time)
    : m_classes(std::move(classes)),
      m_rowCount(rows.size()),
      m_carriers(static_cast<std::size_t>(m_classes.size()))
{
    for (int row = 0; row < rows.size(); ++row) {
        const QDateTime clock = TimeZoneChoice::wallClock(rows.at(row).date, rows.at(row).time);
        if (clock.isValid())
            m_recordings.push_back({row, time.utc(clock).toSecsSinceEpoch(), clock.date(),
                                    clock.time().hour() * 60 + clock.time().minute()});
    }
    std::stable_sort(m_recordings.begin(), m_recordings.end(),
                     [](const Recording& a, const Recording& b) { return a.second < b.second; });

    QHash<QString, int> indexOfClass;
    for (int i = 0; i < m_classes.size(); ++i)
        indexOfClass.insert(m_classes.at(i), i);
    for (std::size_t i = 0; i < m_recordings.size(); ++i) {
        QStringList names = ClassChoice::namesOf(rows.at(m_recordings[i].row).record);
        if (rows.at(m_recordings[i].row).record.isUnassigned())
            names.removeFirst(); // "Unassigned" is no class
        for (const QString& name : std::as_const(names)) {
            const auto index = indexOfClass.constFind(name);
            if (index != indexOfClass.constEnd())
                m_carriers[static_cast<std::size_t>(*index)].push_back(static_cast<int>(i));
        }
    }
}

QVector<QString> ClassEvents::openedBy(int minutes, Mode mode) const
{
    QVector<QString> texts(m_rowCount);
    for (std::size_t c = 0; c < m_carriers.size(); ++c) {
        const Recording* opener = nullptr;
        for (const int index : m_carriers[c]) {
            const Recording& recording = m_recordings[static_cast<std::size_t>(index)];
            if (!opener || !belongs(recording, *opener, minutes, mode))
                opener = &recording;
            if (recording.second != opener->second)
                continue;
            QString& text = texts[recording.row];
            if (!text.isEmpty())
                text += QLatin1Char(',');
            text += m_classes.at(static_cast<int>(c));
        }
    }
    return texts;
}

bool ClassEvents::belongs(const Recording& recording, const Recording& opener, int minutes, Mode mode)
{
    if (mode == Mode::Dynamic)
        return recording.second - opener.second <= 60LL * minutes;
    const auto slot = [minutes](const Recording& of) {
        // Minutes count from each full hour, whatever the interval.
        return std::make_pair(of.minuteOfDay / 60, of.minuteOfDay % 60 / minutes);
    };
    return recording.day == opener.day && slot(recording) == slot(opener);
}
