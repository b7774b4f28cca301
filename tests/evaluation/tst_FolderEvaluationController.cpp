#include "evaluation/FolderEvaluationController.h"
#include "evaluation/ReviewFolderDialog.h"
#include "tests/evaluation/DialogScript.h"
#include "tests/evaluation/EvaluationWindow.h"
#include "tests/evaluation/folderContents.h"

#include <QAbstractButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Answer = UserPrompts::Answer;

namespace {

const char* const vantorWarning = "warning|Warning|Vantor Evaluation allows only Vantor compatible\n"
                                  "classifications.\n\nAll preassigned non-Vantor classifications will be "
                                  "discarded.";

} // namespace

class tst_FolderEvaluationController : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsVantorEvaluation();
    void warnsBeforeVantorEvaluation_data();
    void warnsBeforeVantorEvaluation();
    void startsReview_data();
    void startsReview();
    void refusesReview_data();
    void refusesReview();
    void waitsForComputation();

private:
    void chooseTree(bool advanced);

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

void tst_FolderEvaluationController::cleanup()
{
    QVERIFY(m_dialogs->isDone());
    QCOMPARE(m_window->prompts.takeAsked(), QStringList());
}

void tst_FolderEvaluationController::chooseTree(bool advanced)
{
    m_dialogs->on<ReviewFolderDialog>([advanced](ReviewFolderDialog& dialog) {
        dialog.findChild<QAbstractButton*>(advanced ? "radioButton_advancedTree" : "radioButton_simpleTree")
            ->click();
        dialog.accept();
    });
}

void tst_FolderEvaluationController::startsVantorEvaluation()
{
    for (const char* name : {"b.wav", "a.WAV", "c.raw"})
        QVERIFY(writeBytes(m_folder->filePath(name), "sound"));
    m_window->prompts.willAnswer(Answer::Ok);
    m_dialogs->choosePath(m_folder->path());
    m_evaluation->startVantorEvaluation();
    QCOMPARE(m_wanted,
             QStringList({"Nyc NycLow NycNoc NycMid Enil Pip PipNat PipPn PipPip PipPp PipPyg No Call",
                          "mode 3, classes 1, review 3, result : a.WAV b.wav c.raw"}));
    QCOMPARE(m_window->settings.value(SettingKeys::vantorFolderPath), m_folder->path());
    QCOMPARE(m_window->prompts.takeAsked(),
             QStringList({vantorWarning, "information|Information|" + FolderTask::rawFilesNote()}));
}

void tst_FolderEvaluationController::warnsBeforeVantorEvaluation_data()
{
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<QStringList>("asked");
    QTest::newRow("called off") << false << QStringList(vantorWarning);
    QTest::newRow("empty folder") << true
                                  << QStringList(
                                         {vantorWarning, "warning|Warning|No Bat Call Files in Folder"});
}

void tst_FolderEvaluationController::warnsBeforeVantorEvaluation()
{
    QFETCH(bool, goesOn);
    if (goesOn) {
        m_window->prompts.willAnswer(Answer::Ok);
        m_dialogs->choosePath(m_folder->path());
    }
    m_evaluation->startVantorEvaluation();
    QTEST(m_window->prompts.takeAsked(), "asked");
    QCOMPARE(m_wanted, QStringList());
    QCOMPARE(m_window->settings.value(SettingKeys::vantorFolderPath), QStringLiteral("/home"));
}

void tst_FolderEvaluationController::startsReview_data()
{
    QTest::addColumn<bool>("advanced");
    QTest::addColumn<QStringList>("wanted");
    QTest::newRow("simple") << false
                            << QStringList(
                                   {"Pip Pnat Nyc No Call",
                                    "mode 4, classes 0, review 0, result calls_ch1_files.txt: a.wav"});
    QTest::newRow("advanced") << true
                              << QStringList(
                                     {"Pip Pnat PpPn Ppip PpPp Ppyg Nyc Nlow Nnoc Nycmi Enil No Call",
                                      "mode 4, classes 0, review 1, result calls_ch1_files.txt: a.wav"});
}

void tst_FolderEvaluationController::startsReview()
{
    QFETCH(bool, advanced);
    for (const char* name : {"a.wav", "b.raw", "calls_ch1_files.txt"})
        QVERIFY(writeBytes(m_folder->filePath(name), "bytes"));
    m_dialogs->choosePath(m_folder->path());
    chooseTree(advanced);
    m_evaluation->startReview();
    QTEST(m_wanted, "wanted");
    QCOMPARE(m_window->settings.value(SettingKeys::vantorReviewPath), m_folder->path());
}

void tst_FolderEvaluationController::refusesReview_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("warning");
    QTest::newRow("no result file")
        << "a.wav"
        << "The selected folder does not contain the resulting file 'calls_ch1_files.txt' of a RECORDER WEA "
           "Offline Analysis.\n\nPlease run the WEA Offline Analysis with the software RECORDER first.";
    QTest::newRow("no recordings") << "calls_ch1_files.txt"
                                   << "No Bat Call WAV Files in Folder";
}

void tst_FolderEvaluationController::refusesReview()
{
    QFETCH(QString, file);
    QFETCH(QString, warning);
    QVERIFY(writeBytes(m_folder->filePath(file), "bytes"));
    m_dialogs->choosePath(m_folder->path());
    m_dialogs->cancel<ReviewFolderDialog>();
    m_evaluation->startReview();
    QCOMPARE(m_window->settings.value(SettingKeys::vantorReviewPath), QStringLiteral("/home"));

    m_dialogs->choosePath(m_folder->path());
    chooseTree(true);
    m_evaluation->startReview();
    QCOMPARE(m_window->prompts.takeAsked(), QStringList("warning|Warning|" + warning));
    QCOMPARE(m_wanted, QStringList());
    QCOMPARE(m_window->settings.value(SettingKeys::vantorReviewPath), m_folder->path());
}

void tst_FolderEvaluationController::waitsForComputation()
{
    m_window->session.busy = true;
    m_evaluation->startVantorEvaluation();
    m_evaluation->startReview();
    QCOMPARE(m_dialogs->asked, QStringList());
}

QTEST_MAIN(tst_FolderEvaluationController)

#include "tst_FolderEvaluationController.moc"
