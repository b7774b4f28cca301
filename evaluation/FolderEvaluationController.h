#ifndef SONAVIA_EVALUATION_FOLDEREVALUATIONCONTROLLER_H
#define SONAVIA_EVALUATION_FOLDEREVALUATIONCONTROLLER_H

#include "classes/core/ClassTree.h"
#include "viewer/core/FolderTask.h"

#include <QObject>

class QWidget;
class SettingsStore;
class UserPrompts;
struct RecordingSession;
template <typename T>
struct SettingKey;

/// Starts the evaluations of a folder that have a class tree of their own: that for the Vantor tool, and the
/// review of a recorder's results. It asks and checks; list and class tree are others' business. Ignored
/// while a spectrogram is computed. GUI thread.
class FolderEvaluationController : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing; becomes a child of `window`, which gets the dialogs.
    FolderEvaluationController(QWidget& window, const RecordingSession& session, SettingsStore& settings,
                               UserPrompts& prompts);

    void startVantorEvaluation();
    void startReview();

signals:
    /// The class tree is to be replaced. Comes before folderWanted().
    void classTreeWanted(const ClassTree& classes);
    /// The evaluation list is to be filled.
    void folderWanted(const FolderTask& task);

private:
    QString askForFolder(const QString& title, const SettingKey<QString>& key);
    bool confirmsVantorClasses();
    void warn(const QString& text);

    QWidget& m_window;
    const RecordingSession& m_session;
    SettingsStore& m_settings;
    UserPrompts& m_prompts;
};

#endif
