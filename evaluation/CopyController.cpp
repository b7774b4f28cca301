#include "evaluation/CopyController.h"

#include "base/SettingsStore.h"
#include "evaluation/CopyFilesDialog.h"
#include "evaluation/core/CopyFilesThread.h"
#include "evaluation/core/CopyPlan.h"
#include "recordings/RecordingSession.h"
#include "viewer/core/FolderListing.h"

#include <QFileDialog>

using Answer = UserPrompts::Answer;

CopyController::CopyController(QWidget& window, const ListedRows& rows, const RecordingSession& session,
                               SettingsStore& settings, UserPrompts& prompts)
    : QObject(&window),
      m_window(window),
      m_rows(rows),
      m_session(session),
      m_settings(settings),
      m_prompts(prompts),
      m_run(new FileRun(window, prompts))
{
    connect(m_run, &FileRun::rowsInUseChanged, this, &CopyController::runningChanged);
}

void CopyController::copyFilesToOtherFolder()
{
    if (!m_rows.list() || isRunning())
        return;
    const FileRun::RowsInUse rowsInUse(*m_run);
    const QString folder = QFileDialog::getExistingDirectory(
        &m_window, QStringLiteral("Copy Files to Folder"), m_settings.value(SettingKeys::copyFilesPath),
        QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (folder.isEmpty())
        return;
    CopyFilesDialog dialog(&m_window, m_rows.classText(ListedRows::Choice()));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString newDirectory = folderPath(folder);
    const QStringList names = CopyPlan::names(m_rows.all(), dialog.checkedClasses());
    const std::optional<bool> overwrite = chooseOverwrite(newDirectory, names);
    if (!overwrite)
        return;
    m_settings.setValue(SettingKeys::copyFilesPath, folder);
    start(newDirectory, names, *overwrite);
}

std::optional<bool> CopyController::chooseOverwrite(const QString& folder, const QStringList& names)
{
    if (!CopyPlan::anyExists(folder, names))
        return false;
    switch (m_prompts.ask({UserPrompts::Icon::Warning,
                           QStringLiteral("Warning"),
                           QStringLiteral("At least on file already exists in selected folder.\n"
                                          "Do you want to overwrite existing file(s)?"),
                           {},
                           {Answer::Yes, Answer::No, Answer::Cancel},
                           Answer::No})) {
    case Answer::Yes:
        return true;
    case Answer::No:
        return false;
    default:
        return std::nullopt;
    }
}

void CopyController::start(const QString& newDirectory, const QStringList& names, bool overwrite)
{
    FileRun::Setup setup;
    setup.label = QStringLiteral("Copying...");
    setup.count = names.size();
    setup.askAboutError = [this, names](int index) { return askAboutError(names.at(index)); };
    setup.ended = [this](bool) { emit copyingEnded(); };
    m_run->start(std::move(setup),
                 [this, newDirectory, oldDirectory = m_session.folder, names, overwrite](int index) {
                     emit copyFiles(index, newDirectory, oldDirectory, names, overwrite);
                 });
}

void CopyController::copyingFinished(int index, const QString& /*newDirectory*/,
                                     const QString& /*oldDirectory*/, const QStringList& fileNames,
                                     bool /*overwrite*/)
{
    m_run->answered(index, fileNames.isEmpty() || fileNames.last() != CopyFilesThread::errorMark());
}

FileChain::ErrorChoice CopyController::askAboutError(const QString& name)
{
    const Answer answer = m_prompts.ask({UserPrompts::Icon::Warning,
                                         QStringLiteral("Warning"),
                                         QStringLiteral("Error on copying file ") + name +
                                             QStringLiteral(".\nPlease check available disc space and "
                                                            "permissions.\n\nContinue copying?"),
                                         {},
                                         {Answer::Ok, Answer::Cancel},
                                         Answer::Cancel});
    return answer == Answer::Ok ? FileChain::ErrorChoice::Skip : FileChain::ErrorChoice::Cancel;
}
