#include "evaluation/CopyController.h"
#include "evaluation/CopyFilesDialog.h"
#include "evaluation/core/CopyFilesThread.h"
#include "tests/evaluation/DialogScript.h"
#include "tests/evaluation/EvaluationWindow.h"
#include "tests/evaluation/exampleRow.h"
#include "tests/evaluation/folderContents.h"

#include <QCheckBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>

using Answer = UserPrompts::Answer;

namespace {

const QStringList overwriteQuestion{"warning|Warning|At least on file already exists in selected folder.\n"
                                    "Do you want to overwrite existing file(s)?"};

QStringList errorQuestion(const QString& name)
{
    return {"warning|Warning|Error on copying file " + name +
            ".\nPlease check available disc space and permissions.\n\nContinue copying?"};
}

} // namespace

/// The whole way from the menu to the files, with the worker on a thread of its own.
class tst_CopyController : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void copiesChosenClasses();
    void asksBeforeOverwriting();
    void asksAboutErrors();
    void neverLosesFilesOfItsOwnFolder();
    void stopsOnCancel();
    void copiesNothingWithoutChoice();

private:
    void copyTo(const QString& folder, const QStringList& unchecked = {});
    QStringList copied() const { return folderContents(m_to->path()).keys(); }

    std::unique_ptr<EvaluationWindow> m_window;
    std::unique_ptr<QTemporaryDir> m_from;
    std::unique_ptr<QTemporaryDir> m_to;
    std::unique_ptr<DialogScript> m_dialogs;
    std::unique_ptr<CopyFilesThread> m_worker;
    std::unique_ptr<QThread> m_thread;
    CopyController* m_copy = nullptr;
};

void tst_CopyController::init()
{
    m_window = std::make_unique<EvaluationWindow>();
    m_from = std::make_unique<QTemporaryDir>();
    m_to = std::make_unique<QTemporaryDir>();
    m_dialogs = std::make_unique<DialogScript>();
    m_window->session.viewMode = 2;
    m_window->session.folder = m_from->path();
    for (const QString record : {"a.wav=Pip + Nyc|", "b.wav=Pip|", "c.wav=|No call|0|", "d.wav=Nyc|"}) {
        const QString name = record.section('=', 0, 0);
        m_window->add(m_window->evaluationList, exampleRow(name, "", "", record.section('=', 1)));
        QVERIFY(writeBytes(m_from->filePath(name), "sound of " + name.toUtf8()));
    }
    m_copy = new CopyController(m_window->window, m_window->rows(), m_window->session, m_window->settings,
                                m_window->prompts);
    m_worker = std::make_unique<CopyFilesThread>();
    connect(m_copy, &CopyController::copyFiles, m_worker.get(), &CopyFilesThread::copyFiles);
    connect(m_copy, &CopyController::copyingEnded, m_worker.get(), &CopyFilesThread::endRun);
    connect(m_worker.get(), &CopyFilesThread::signalCopyFinished, m_copy, &CopyController::copyingFinished);
    m_thread = std::make_unique<QThread>();
    m_worker->moveToThread(m_thread.get());
    m_thread->start();
}

void tst_CopyController::cleanup()
{
    m_thread->quit();
    QVERIFY(m_thread->wait(5000));
    QVERIFY(m_dialogs->isDone());
    QCOMPARE(m_window->prompts.takeAsked(), QStringList());
}

void tst_CopyController::copyTo(const QString& folder, const QStringList& unchecked)
{
    m_dialogs->choosePath(folder);
    m_dialogs->on<CopyFilesDialog>([unchecked](CopyFilesDialog& dialog) {
        auto* tree = dialog.findChild<QTreeWidget*>("treeWidget");
        for (const QString& name : unchecked)
            qobject_cast<QCheckBox*>(tree->itemWidget(tree->findItems(name, Qt::MatchExactly).first(), 2))
                ->click();
        dialog.accept();
    });
    m_copy->copyFilesToOtherFolder();
    QTRY_VERIFY(!m_copy->isRunning());
    // The worker has done what it was told last.
    QMetaObject::invokeMethod(
        m_worker.get(), [] {}, Qt::BlockingQueuedConnection);
}

void tst_CopyController::copiesChosenClasses()
{
    m_window->settings.setValue(SettingKeys::copyFilesPath, m_to->path());
    const QSignalSpy running(m_copy, &CopyController::runningChanged);
    copyTo(m_to->path(), {"Pip", "Unassigned"});
    QCOMPARE(QList<QVariantList>(running), QList<QVariantList>({{true}, {false}}));
    QCOMPARE(m_dialogs->asked.value(0).section('|', 0, 1), "Copy Files to Folder|" + m_to->path());
    QCOMPARE(copied(), QStringList({"a.wav", "d.wav"}));
    QCOMPARE(folderContents(m_from->path()).size(), 4);
}

void tst_CopyController::asksBeforeOverwriting()
{
    QVERIFY(writeBytes(m_to->filePath("b.wav"), "older"));
    for (const Answer answer : {Answer::Cancel, Answer::No, Answer::Yes}) {
        m_window->prompts.willAnswer(answer);
        copyTo(m_to->path());
        QCOMPARE(m_window->prompts.takeAsked(), overwriteQuestion);
        QCOMPARE(copied().join(' '), answer == Answer::Cancel ? "b.wav" : "a.wav b.wav c.wav d.wav");
        QCOMPARE(bytesOf(m_to->filePath("b.wav")),
                 QByteArray(answer == Answer::Yes ? "sound of b.wav" : "older"));
    }
}

void tst_CopyController::asksAboutErrors()
{
    QVERIFY(QFile::remove(m_from->filePath("b.wav")));
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
        if (answer == Answer::Ok)
            m_window->prompts.willAnswer(Answer::No); // a.wav is there from the first time
        m_window->prompts.willAnswer(answer);
        copyTo(m_to->path());
        QStringList asked = m_window->prompts.takeAsked();
        QCOMPARE(asked.takeLast(), errorQuestion("b.wav").first());
        QCOMPARE(copied().join(' '), answer == Answer::Ok ? "a.wav c.wav d.wav" : "a.wav");
    }
}

void tst_CopyController::neverLosesFilesOfItsOwnFolder()
{
    const auto before = folderContents(m_from->path());
    m_window->prompts.willAnswer(Answer::Yes);
    copyTo(m_from->path()); // the question about the error is answered with its default, cancel
    QCOMPARE(m_window->prompts.takeAsked(), overwriteQuestion + errorQuestion("a.wav"));
    QCOMPARE(folderContents(m_from->path()), before);
}

void tst_CopyController::stopsOnCancel()
{
    connect(m_worker.get(), &CopyFilesThread::signalCopyFinished, m_copy, [this](int index) {
        auto* progress = m_window->window.findChild<QProgressDialog*>();
        QCOMPARE(QStringLiteral("%1|%2|%3")
                     .arg(progress->labelText(), progress->windowTitle())
                     .arg(progress->maximum()),
                 QStringLiteral("Copying...|Please wait|3"));
        if (index == 0) // the next request is on its way, and its answer ends the run
            progress->findChild<QPushButton*>()->click();
    });
    copyTo(m_to->path());
    QCOMPARE(copied(), QStringList({"a.wav", "b.wav"}));
}

void tst_CopyController::copiesNothingWithoutChoice()
{
    m_dialogs->cancel<QFileDialog>();
    m_copy->copyFilesToOtherFolder();
    m_dialogs->choosePath(m_to->path());
    m_dialogs->cancel<CopyFilesDialog>();
    m_copy->copyFilesToOtherFolder();
    QCOMPARE(m_window->settings.value(SettingKeys::copyFilesPath), QStringLiteral("C:/"));
    copyTo(m_to->path(), {"Pip", "Nyc", "Unassigned"});
    m_window->session.viewMode = 0; // nothing is listed
    m_copy->copyFilesToOtherFolder();
    QCOMPARE(copied(), QStringList());
}

QTEST_MAIN(tst_CopyController)

#include "tst_CopyController.moc"
