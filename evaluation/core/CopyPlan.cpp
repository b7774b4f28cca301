#include "evaluation/core/CopyPlan.h"

#include "evaluation/core/ClassChoice.h"

#include <QFile>

#include <algorithm>

namespace CopyPlan {

QStringList names(const QVector<RecordingRow>& rows, const QStringList& checked)
{
    const QSet<QString> chosen(checked.cbegin(), checked.cend());
    QStringList names;
    for (const RecordingRow& row : rows)
        if (ClassChoice::isChosen(row.record, chosen))
            names.append(row.name);
    return names;
}

bool anyExists(const QString& folder, const QStringList& names)
{
    return std::any_of(names.cbegin(), names.cend(), [&folder](const QString& name) {
        return QFile::exists(folder + QLatin1Char('/') + name);
    });
}

} // namespace CopyPlan
