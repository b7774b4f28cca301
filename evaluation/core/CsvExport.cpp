#include "evaluation/core/CsvExport.h"

namespace {

constexpr int usualLineLength = 100; // characters

/// The fields from name to comment, without the events, which stand between the two parts.
void appendFields(QString& text, const RecordingRow& row, bool detectedNoCall)
{
    text += row.name + QLatin1Char(';') + row.date + QLatin1Char(';') + row.time + QLatin1Char(';') +
            row.length + QLatin1Char(';');
    if (detectedNoCall) {
        text += ClassChoice::detectedNoCall() + QLatin1String(";;;;");
        return;
    }
    for (const QString& name : row.record.classes)
        text += name + QLatin1Char(';');
}

} // namespace

QString CsvExport::text(const QVector<RecordingRow>& rows) const
{
    QVector<QVector<QString>> events; // per interval, per row
    if (!intervals.isEmpty()) {
        const ClassEvents classEvents(rows, classes, time);
        for (const int minutes : intervals)
            events.append(classEvents.openedBy(minutes, mode));
    }
    const QSet<QString> chosen(classes.cbegin(), classes.cend());
    const bool withNoCalls = chosen.contains(ClassChoice::detectedNoCall());

    QString text = header();
    text.reserve(text.size() + rows.size() * usualLineLength);
    for (int i = 0; i < rows.size(); ++i) {
        const RecordingRow& row = rows.at(i);
        const bool detectedNoCall = ClassChoice::isDetectedNoCall(row.record, unassigned);
        if (!(detectedNoCall ? withNoCalls : ClassChoice::isChosen(row.record, chosen)))
            continue;
        appendFields(text, row, detectedNoCall);
        for (const QVector<QString>& ofInterval : std::as_const(events))
            text += ofInterval.at(i) + QLatin1Char(';');
        text += row.record.comment + QLatin1String("\r\n");
    }
    return text;
}

QString CsvExport::header() const
{
    QString header = QStringLiteral("FileName;Date;Time [") + time.label() +
                     QStringLiteral("];Length [s];Class1;Class2;Class3;Class4;");
    for (const int minutes : intervals)
        header += QString::number(minutes) + QStringLiteral("min class event (") + modeText(mode) +
                  QStringLiteral(");");
    return header + QStringLiteral("Comment\r\n");
}

QString CsvExport::modeText(ClassEvents::Mode mode)
{
    return mode == ClassEvents::Mode::Dynamic ? QStringLiteral("dynamic") : QStringLiteral("static");
}
