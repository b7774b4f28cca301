#include "evaluation/FolderEvaluationController.h"
#include "evaluation/ReviewFolderDialog.h"
#include "tests/evaluation/DialogScript.h"
#include "tests/evaluation/EvaluationWindow.h"
#include "tests/evaluation/folderContents.h"

#include <QAbstractButton>
#include <QTemporaryDir>
#include <QTest>

class tst_FolderEvaluationController : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_wanted.clear(); }
    void starts_data()
    {
        QTest::addColumn<QString>("choice"); // Vantor when the question gets an answer, else the class tree
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("wanted");
        QTest::addColumn<QStringList>("told");
        const QStringList all{"a.WAV", "b.wav", "c.raw", "calls_ch1_files.txt"};
        const QString vantor =
            "warning|Warning|Vantor Evaluation allows only Vantor compatible\nclassifications."
            "\n\nAll preassigned non-Vantor classifications will be discarded.";
        const QString noResult =
            "warning|Warning|The selected folder does not contain the resulting file 'calls_ch1_files.txt' "
            "of a RECORDER WEA Offline Analysis.\n\n"
            "Please run the WEA Offline Analysis with the software RECORDER first.";
        const QString review =
            "tree from Pip, mode 4, classes 0, review %1, result calls_ch1_files.txt: a.WAV b.wav";
        const QString simple = "radioButton_simpleTree";
        const auto row = [](const char* title, const QString& choice, const QStringList& files,
                            const QString& wanted, const QStringList& told) {
            QTest::newRow(title) << choice << files << wanted << told;
        };
        row("Vantor, called off", "Vantor", all, "", {vantor});
        row("Vantor, empty", "Vantor, OK", {"x.mp3"}, "",
            {vantor, "warning|Warning|No Bat Call Files in Folder"});
        row("Vantor", "Vantor, OK", all,
            "tree from Nyc, mode 3, classes 1, review 3, result : a.WAV b.wav c.raw",
            {vantor, "information|Information|" + FolderTask::rawFilesNote()});
        row("review, called off", "", all, "", {});
        row("review, no result", simple, {"a.wav"}, "", {noResult});
        row("review, empty", simple, all.mid(2), "", {"warning|Warning|No Bat Call WAV Files in Folder"});
        row("review, simple", simple, all, review.arg(0), {});
        row("review, advanced", "radioButton_advancedTree", all, review.arg(1), {});
    }

    void starts()
    {
        QFETCH(QString, choice);
        QFETCH(QStringList, files);
        EvaluationWindow window;
        FolderEvaluationController evaluation(window.window, window.session, window.settings, window.prompts);
        watch(evaluation);
        const QTemporaryDir folder;
        for (const QString& name : files)
            QVERIFY(writeBytes(folder.filePath(name), "bytes"));
        const bool isVantor = choice.startsWith("Vantor");
        DialogScript dialogs;
        if (choice != "Vantor") // then the question's default answers
            dialogs.choosePath(folder.path());
        if (isVantor) {
            if (choice != "Vantor")
                window.prompts.willAnswer(UserPrompts::Answer::Ok);
            evaluation.startVantorEvaluation();
        } else {
            dialogs.on<ReviewFolderDialog>([choice](ReviewFolderDialog& dialog) {
                if (auto* button = dialog.findChild<QAbstractButton*>(choice))
                    button->click();
                dialog.done(choice.isEmpty() ? QDialog::Rejected : QDialog::Accepted);
            });
            evaluation.startReview();
        }
        QTEST(m_wanted, "wanted");
        const QStringList told = window.prompts.takeAsked();
        QTEST(told, "told");
        const bool isStored = isVantor ? !m_wanted.isEmpty() : !choice.isEmpty();
        QCOMPARE(
            window.settings.value(isVantor ? SettingKeys::vantorFolderPath : SettingKeys::vantorReviewPath),
            isStored ? folder.path() : QStringLiteral("/home"));
        QVERIFY(dialogs.isDone());
    }

    void waitsForComputation()
    {
        EvaluationWindow window;
        FolderEvaluationController evaluation(window.window, window.session, window.settings, window.prompts);
        DialogScript dialogs;
        dialogs.cancel<QDialog>();
        window.session.busy = true;
        evaluation.startVantorEvaluation();
        evaluation.startReview();
        QVERIFY(window.prompts.takeAsked().isEmpty() && !dialogs.isDone());
    }

private:
    void watch(const FolderEvaluationController& evaluation)
    {
        connect(&evaluation, &FolderEvaluationController::classTreeWanted, this,
                [this](const ClassTree& classes) { m_wanted += "tree from " + classes.names().value(0); });
        connect(&evaluation, &FolderEvaluationController::folderWanted, this, [this](const FolderTask& task) {
            m_wanted += QStringLiteral(", mode %1, classes %2, review %3, result %4: %5")
                            .arg(task.viewMode)
                            .arg(task.calcClasses)
                            .arg(task.reviewMode)
                            .arg(task.recorderResultFileName.section('/', -1), task.names.join(' '));
        });
    }

    QString m_wanted; // what was asked for, in order
};

QTEST_MAIN(tst_FolderEvaluationController)

#include "tst_FolderEvaluationController.moc"
