#include "viewer/core/DropPlan.h"

#include "recordings/RecordingFile.h"

#include <QFileInfo>

#include <algorithm>

namespace {

bool isFolder(const QString& path)
{
    return QFileInfo(path).isDir();
}

bool isRecording(const QString& path)
{
    return RecordingFile::kindOf(path) != RecordingFile::Kind::Unsupported;
}

DropPlan planFiles(const QStringList& paths)
{
    DropPlan plan;
    plan.several = true;
    for (const QString& path : paths) {
        const QFileInfo file(path);
        if (isRecording(path) && plan.names.isEmpty())
            plan.path = file.path();
        if (isRecording(path) && file.path() == plan.path)
            plan.names.append(file.fileName());
        else
            ++plan.leftOut;
    }
    plan.kind = plan.names.isEmpty() ? DropPlan::Kind::Unsupported : DropPlan::Kind::SeveralFiles;
    return plan;
}

} // namespace

DropPlan planDrop(const QList<QUrl>& urls)
{
    QStringList paths;
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            paths.append(url.toLocalFile());

    DropPlan plan;
    if (paths.isEmpty())
        return plan;
    if (paths.size() > 1) {
        if (std::none_of(paths.cbegin(), paths.cend(), isFolder))
            return planFiles(paths);
        plan.kind = DropPlan::Kind::Mixture;
        return plan;
    }
    plan.path = paths.first();
    if (isFolder(plan.path))
        plan.kind = DropPlan::Kind::OneFolder;
    else
        plan.kind = isRecording(plan.path) ? DropPlan::Kind::OneFile : DropPlan::Kind::Unsupported;
    return plan;
}
