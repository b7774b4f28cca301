#include "viewer/FileOpener.h"

#include "base/SettingsStore.h"
#include "base/UserPrompts.h"

#include <QFileDialog>
#include <QFileInfo>

#include <utility>

FileOpener::FileOpener(QWidget& window, RecordingSession& session, SettingsStore& settings,
                       UserPrompts& prompts)
    : QObject(&window), m_window(window), m_session(session), m_settings(settings), m_prompts(prompts)
{}

void FileOpener::setLoadingCheck(std::function<bool()> isLoading)
{
    m_isLoading = std::move(isLoading);
}

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
    const QString folder =
        askForFolder(QStringLiteral("Open Directory"), m_settings.value(SettingKeys::folderPath));
    if (!folder.isEmpty())
        takeFolder(folder);
}

void FileOpener::openFolderForEvaluation(const std::function<bool()>& chooseClasses)
{
    if (m_session.busy)
        return;
    const QString folder = askForFolder(QStringLiteral("Open Evaluation Folder"),
                                        m_settings.value(SettingKeys::evaluationFolderPath));
    if (folder.isEmpty())
        return;
    const FolderTask task = FolderTask::folderEvaluation(folder);
    if (!hasFiles(task))
        return;
    m_settings.setValue(SettingKeys::evaluationFolderPath, folder);
    if (task.hasRawFiles())
        m_prompts.warn(QStringLiteral("Warning"), FolderTask::rawFilesNote());
    if (chooseClasses())
        emit folderWanted(task);
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
        if (mayAbort(plan.several))
            m_prompts.inform(QStringLiteral("Information"), QStringLiteral("File type not supported."));
        break;
    case DropPlan::Kind::OneFolder:
        if (mayAbort(true))
            takeFolder(plan.path);
        break;
    case DropPlan::Kind::OneFile:
        if (mayAbort(false))
            takeFile(plan.path);
        break;
    case DropPlan::Kind::SeveralFiles:
        if (mayAbort(true))
            takeFiles(plan);
        break;
    }
}

QString FileOpener::askForFolder(const QString& title, const QString& start)
{
    return QFileDialog::getExistingDirectory(&m_window, title, start,
                                             QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
}

bool FileOpener::hasFiles(const FolderTask& task)
{
    if (task.isEmpty())
        m_prompts.warn(QStringLiteral("Warning"), QStringLiteral("No Bat Call Files in Folder"));
    return !task.isEmpty();
}

bool FileOpener::mayAbort(bool several)
{
    using Answer = UserPrompts::Answer;
    if (!m_isLoading())
        return true;
    const QString text =
        several ? QStringLiteral("Do you really want to abort current evaluation and load new files?")
                : QStringLiteral("Do you really want to abort current evaluation and load new file?");
    return m_prompts.ask({UserPrompts::Icon::Warning,
                          QStringLiteral("Warning"),
                          text,
                          QString(),
                          {Answer::Yes, Answer::No},
                          Answer::No}) == Answer::Yes;
}

void FileOpener::takeFile(const QString& path)
{
    m_settings.setValue(SettingKeys::filePath, path);
    emit listInvalidated();
    emit recordingWanted(path);
}

void FileOpener::takeFolder(const QString& folder)
{
    const FolderTask task = FolderTask::openedFolder(folder);
    if (!hasFiles(task))
        return;
    m_settings.setValue(SettingKeys::folderPath, folder);
    emit folderWanted(task);
}

void FileOpener::takeFiles(const DropPlan& plan)
{
    if (plan.leftOut > 0)
        m_prompts.inform(QStringLiteral("Information"),
                         QStringLiteral("Only the recordings of the folder %1 are listed.").arg(plan.path));
    emit folderWanted(FolderTask::droppedFiles(plan.path, plan.names));
}
