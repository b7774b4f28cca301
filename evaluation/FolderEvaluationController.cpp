#include "evaluation/FolderEvaluationController.h"

#include "base/SettingsStore.h"
#include "base/UserPrompts.h"
#include "evaluation/ReviewFolderDialog.h"
#include "evaluation/core/VantorExport.h"
#include "recordings/RecordingSession.h"

#include <QFileDialog>
#include <QFileInfo>

FolderEvaluationController::FolderEvaluationController(QWidget& window, const RecordingSession& session,
                                                       SettingsStore& settings, UserPrompts& prompts)
    : QObject(&window), m_window(window), m_session(session), m_settings(settings), m_prompts(prompts)
{}

void FolderEvaluationController::startVantorEvaluation()
{
    if (m_session.busy || !confirmsVantorClasses())
        return;
    const QString folder =
        askForFolder(QStringLiteral("Open Evaluation Folder"), SettingKeys::vantorFolderPath);
    if (folder.isEmpty())
        return;
    const FolderTask task = FolderTask::vantorEvaluation(folder);
    if (task.isEmpty()) {
        warn(QStringLiteral("No Bat Call Files in Folder"));
        return;
    }
    m_settings.setValue(SettingKeys::vantorFolderPath, folder);
    if (task.hasRawFiles())
        m_prompts.inform(QStringLiteral("Information"), FolderTask::rawFilesNote());
    emit classTreeWanted(VantorExport::classTree());
    emit folderWanted(task);
}

void FolderEvaluationController::startReview()
{
    if (m_session.busy)
        return;
    const QString folder = askForFolder(QStringLiteral("Open Review Folder"), SettingKeys::vantorReviewPath);
    if (folder.isEmpty())
        return;
    ReviewFolderDialog dialog(&m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const bool simple = dialog.isSimpleTree();
    m_settings.setValue(SettingKeys::vantorReviewPath, folder);
    const FolderTask task = FolderTask::review(folder, simple ? 0 : 1);
    if (!QFileInfo(task.recorderResultFileName).isFile()) {
        warn(
            QStringLiteral("The selected folder does not contain the resulting file 'calls_ch1_files.txt' of "
                           "a RECORDER WEA Offline Analysis.\n\nPlease run the WEA Offline Analysis with "
                           "the software RECORDER first."));
        return;
    }
    if (task.isEmpty()) {
        warn(QStringLiteral("No Bat Call WAV Files in Folder"));
        return;
    }
    emit classTreeWanted(simple ? ClassTree::simpleReview() : ClassTree::advancedReview());
    emit folderWanted(task);
}

QString FolderEvaluationController::askForFolder(const QString& title, const SettingKey<QString>& key)
{
    return QFileDialog::getExistingDirectory(&m_window, title, m_settings.value(key),
                                             QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
}

bool FolderEvaluationController::confirmsVantorClasses()
{
    using Answer = UserPrompts::Answer;
    return m_prompts.ask(
               {UserPrompts::Icon::Warning,
                QStringLiteral("Warning"),
                QStringLiteral("Vantor Evaluation allows only Vantor compatible\nclassifications.\n\nAll "
                               "preassigned non-Vantor classifications will be discarded."),
                {},
                {Answer::Ok, Answer::Cancel},
                Answer::Cancel}) == Answer::Ok;
}

void FolderEvaluationController::warn(const QString& text)
{
    m_prompts.warn(QStringLiteral("Warning"), text);
}
