#include "evaluation/FolderEvaluationController.h"
#include "evaluation/ReviewFolderDialog.h"
#include "tests/evaluation/DialogScript.h"
#include "tests/evaluation/EvaluationWindow.h"
#include "tests/evaluation/folderContents.h"

#include <QAbstractButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class tst_FolderEvaluationController : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsVantorEvaluation_data();
    void startsVantorEvaluation();
    void startsReview_data();
    void startsReview();
    void waitsForComputation();

private:
    std::unique_ptr<EvaluationWindow> m_window;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DialogScript> m_dialogs;
    FolderEvaluationController* m_evaluation = nullptr;
    QStringList m_wanted; // what was asked for, in order
};

void tst_FolderEvaluationController::init()
{
    m_wanted.clear();
    m_window = std::make_unique<EvaluationWindow>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_dialogs = std::make_unique<DialogScript>();
    m_evaluation = new FolderEvaluationController(m_window->window, m_window->session, m_window->settings,
                                                  m_window->prompts);
    connect(m_evaluation, &FolderEvaluationController::classTreeWanted, this,
            [this](const ClassTree& classes) { m_wanted.append(classes.names().join(' ')); });
    connect(m_evaluation, &FolderEvaluationController::folderWanted, this, [this](const FolderTask& task) {
        m_wanted.append(QStringLiteral("mode %1, classes %2, review %3, result %4: %5")
                            .arg(task.viewMode)
                            .arg(task.calcClasses)
                            .arg(task.reviewMode)
                            .arg(task.recorderResultFileName.section('/', -1), task.names.join(' ')));
    });
}

void tst_FolderEvaluationController::startsVantorEvaluation_data()
{
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("wanted");
    QTest::addColumn<QString>("told");
    const QStringList none;
    QTest::newRow("called off") << false << none << none << "";
    QTest::newRow("empty folder") << true << none << none << "warning|Warning|No Bat Call Files in Folder";
    QTest::newRow("raw files")
        << true << QStringList{"b.wav", "a.WAV", "c.raw"}
        << QStringList{"Nyc NycLow NycNoc NycMid Enil Pip PipNat PipPn PipPip PipPp PipPyg "
                       "No Call",
                       "mode 3, classes 1, review 3, result : a.WAV b.wav c.raw"}
        << "information|Information|" + FolderTask::rawFilesNote();
}

void tst_FolderEvaluationController::startsVantorEvaluation()
{
    QFETCH(bool, goesOn);
    QFETCH(QStringList, files);
    QFETCH(QStringList, wanted);
    QFETCH(QString, told);
    for (const QString& name : files)
        QVERIFY(writeBytes(m_folder->filePath(name), "sound"));
    if (goesOn) { // else the question's default answers
        m_window->prompts.willAnswer(UserPrompts::Answer::Ok);
        m_dialogs->choosePath(m_folder->path());
    }
    m_evaluation->startVantorEvaluation();
    QCOMPARE(m_wanted, wanted);
    QCOMPARE(m_window->prompts.takeAsked().join('#'),
             "warning|Warning|Vantor Evaluation allows only Vantor compatible\nclassifications.\n\nAll "
             "preassigned non-Vantor classifications will be discarded." +
                 (told.isEmpty() ? told : '#' + told));
    QCOMPARE(m_window->settings.value(SettingKeys::vantorFolderPath),
             wanted.isEmpty() ? QStringLiteral("/home") : m_folder->path());
}

void tst_FolderEvaluationController::startsReview_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("button"); // empty: called off
    QTest::addColumn<QStringList>("wanted");
    QTest::addColumn<QStringList>("told");
    const QString simple = "radioButton_simpleTree";
    const QString advanced = "radioButton_advancedTree";
    const QStringList all{"a.wav", "b.raw", "calls_ch1_files.txt"};
    const QString task = "mode 4, classes 0, review %1, result calls_ch1_files.txt: a.wav";
    const QStringList none;
    QTest::newRow("simple") << all << simple << QStringList{"Pip Pnat Nyc No Call", task.arg(0)} << none;
    QTest::newRow("advanced") << all << advanced
                              << QStringList{"Pip Pnat PpPn Ppip PpPp Ppyg Nyc Nlow Nnoc Nycmi Enil No Call",
                                             task.arg(1)}
                              << none;
    QTest::newRow("called off") << all << "" << none << none;
    QTest::newRow("no result file")
        << QStringList(all.mid(0, 2)) << simple << none
        << QStringList{
               "warning|Warning|The selected folder does not contain the resulting file "
               "'calls_ch1_files.txt' of a RECORDER WEA Offline Analysis.\n\nPlease run the WEA Offline "
               "Analysis with the software RECORDER first."};
    QTest::newRow("no recordings") << QStringList(all.mid(1)) << simple << none
                                   << QStringList{"warning|Warning|No Bat Call WAV Files in Folder"};
}

void tst_FolderEvaluationController::startsReview()
{
    QFETCH(QStringList, files);
    QFETCH(QString, button);
    for (const QString& name : files)
        QVERIFY(writeBytes(m_folder->filePath(name), "bytes"));
    m_dialogs->choosePath(m_folder->path());
    m_dialogs->on<ReviewFolderDialog>([button](ReviewFolderDialog& dialog) {
        if (auto* choice = dialog.findChild<QAbstractButton*>(button))
            choice->click();
        dialog.done(button.isEmpty() ? QDialog::Rejected : QDialog::Accepted);
    });
    m_evaluation->startReview();
    QTEST(m_wanted, "wanted");
    const QStringList told = m_window->prompts.takeAsked();
    QTEST(told, "told");
    QCOMPARE(m_window->settings.value(SettingKeys::vantorReviewPath),
             button.isEmpty() ? QStringLiteral("/home") : m_folder->path());
}

void tst_FolderEvaluationController::waitsForComputation()
{
    m_window->session.busy = true;
    m_evaluation->startVantorEvaluation();
    m_evaluation->startReview();
    QCOMPARE(m_dialogs->asked + m_window->prompts.takeAsked(), QStringList());
}

QTEST_MAIN(tst_FolderEvaluationController)

#include "tst_FolderEvaluationController.moc"
