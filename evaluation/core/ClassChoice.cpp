#include "evaluation/core/ClassChoice.h"

#include "classes/core/ClassTree.h"

#include <QHash>

#include <algorithm>

namespace ClassChoice {

QString detectedNoCall()
{
    return QStringLiteral("Detected No Call");
}

bool isDetectedNoCall(const ClassRecord& record, Unassigned unassigned)
{
    return unassigned == Unassigned::ByDetection && record.isUnassigned() && record.proposesNoCall();
}

QStringList namesOf(const ClassRecord& record, Unassigned unassigned)
{
    if (isDetectedNoCall(record, unassigned))
        return {detectedNoCall()};
    QStringList names;
    if (record.isUnassigned())
        names.append(ClassTree::unassigned());
    for (const QString& name : record.classes)
        if (!name.isEmpty() && !names.contains(name))
            names.append(name);
    return names;
}

QString text(const QVector<RecordingRow>& rows, Unassigned unassigned)
{
    QHash<QString, int> indexOf;
    QVector<Line> found;
    for (const RecordingRow& row : rows) {
        const QStringList names = namesOf(row.record, unassigned);
        for (const QString& name : names) {
            auto index = indexOf.constFind(name);
            if (index == indexOf.constEnd()) {
                index = indexOf.insert(name, found.size());
                found.append({name, 0});
            }
            ++found[*index].count;
        }
    }
    QString text;
    for (const Line& line : std::as_const(found))
        text += line.name + QLatin1Char('\t') + QString::number(line.count) + QLatin1Char('\n');
    return text;
}

QVector<Line> lines(const QString& text)
{
    QVector<Line> lines;
    const QVector<QStringRef> parts = text.splitRef(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QStringRef part : parts) {
        const bool marked = part.startsWith(QLatin1Char('\t'));
        if (marked)
            part = part.mid(1);
        const int tab = part.lastIndexOf(QLatin1Char('\t'));
        lines.append({part.left(tab).toString(), part.mid(tab + 1).toInt(), marked && !lines.isEmpty()});
    }
    return lines;
}

bool isChosen(const ClassRecord& record, const QSet<QString>& chosen)
{
    if (record.isUnassigned() && chosen.contains(ClassTree::unassigned()))
        return true;
    return std::any_of(record.classes.cbegin(), record.classes.cend(),
                       [&chosen](const QString& name) { return !name.isEmpty() && chosen.contains(name); });
}

} // namespace ClassChoice
