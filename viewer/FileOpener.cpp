#include "viewer/FileOpener.h"

#include "base/SettingsStore.h"
#include "base/UserPrompts.h"
#include "viewer/core/DropPlan.h"
#include "viewer/core/FolderListing.h"

#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

FileOpener::FileOpener(QWidget& window, RecordingSession& session, SettingsStore& settings,
                       UserPrompts& prompts)
    : QObject(&window), m_window(window), m_session(session), m_settings(settings), m_prompts(prompts)
{}

void FileOpener::openFile()
{
    if (m_session.busy)
        return;
    const QString path = QFileDialog::getOpenFileName(&m_window, QStringLiteral("Open Bat Call File"),
                                                      m_settings.value(SettingKeys::filePath),
                                                      QStringLiteral("Bat call files (*.wav *.raw)"));
    if (!path.isEmpty())
        takeFile(path);
}

void FileOpener::openFolder()
{
    if (m_session.busy)
        return;
    const QString folder = QFileDialog::getExistingDirectory(
        &m_window, QStringLiteral("Open Directory"), m_settings.value(SettingKeys::folderPath),
        QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (!folder.isEmpty())
        takeFolder(folder);
}

void FileOpener::open(const QString& path)
{
    if (m_session.busy)
        return;
    if (QFileInfo(path).isDir())
        takeFolder(path);
    else
        takeFile(path);
}

void FileOpener::drop(const QList<QUrl>& urls)
{
    if (m_session.busy)
        return;
    const DropPlan plan = planDrop(urls);
    switch (plan.kind) {
    case DropPlan::Kind::Nothing:
        break;
    case DropPlan::Kind::Mixture:
        m_prompts.inform(QStringLiteral("Information"),
                         QStringLiteral("Do not load multiple folders or a mixture of files and folders."));
        break;
    case DropPlan::Kind::Unsupported:
        m_prompts.inform(QStringLiteral("Information"), QStringLiteral("File type not supported."));
        break;
    case DropPlan::Kind::OneFolder:
        takeFolder(plan.paths.first());
        break;
    case DropPlan::Kind::OneFile:
    case DropPlan::Kind::SeveralFiles:
        takeFile(plan.paths.first());
        break;
    }
}

void FileOpener::takeFile(const QString& path)
{
    m_settings.setValue(SettingKeys::filePath, path);
    m_session.viewMode = 0;
    emit listInvalidated();
    emit recordingWanted(path);
}

void FileOpener::takeFolder(const QString& folder)
{
    const QStringList names = recordingsInFolder(folder);
    if (names.isEmpty()) {
        m_prompts.warn(QStringLiteral("Warning"), QStringLiteral("No Bat Call Files in Folder"));
        return;
    }
    m_session.folder = folder;
    m_settings.setValue(SettingKeys::folderPath, folder);
    m_session.viewMode = 0;
    emit listInvalidated();
    emit recordingWanted(folder + QLatin1Char('/') + *std::min_element(names.cbegin(), names.cend()));
}
