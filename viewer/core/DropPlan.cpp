#include "viewer/core/DropPlan.h"

#include <QFileInfo>

#include <algorithm>

DropPlan planDrop(const QList<QUrl>& urls)
{
    QStringList paths;
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    if (paths.isEmpty())
        return {};

    const auto isFolder = [](const QString& path) { return QFileInfo(path).isDir(); };
    if (paths.size() > 1) {
        const bool mixed = std::any_of(paths.cbegin(), paths.cend(), isFolder);
        return {mixed ? DropPlan::Kind::Mixture : DropPlan::Kind::SeveralFiles, paths};
    }
    const QString& path = paths.first();
    if (isFolder(path))
        return {DropPlan::Kind::OneFolder, paths};
    const bool recording = path.endsWith(QLatin1String(".wav"), Qt::CaseInsensitive) ||
                           path.endsWith(QLatin1String(".raw"), Qt::CaseInsensitive);
    return {recording ? DropPlan::Kind::OneFile : DropPlan::Kind::Unsupported, paths};
}
