#include "app/MessageBoxPrompts.h"
#include "tests/support/MessageBoxWatch.h"

#include <QMessageBox>
#include <QPointer>
#include <QThread>
#include <QtTest>

#include <memory>

class tst_MessageBoxPrompts : public QObject
{
    Q_OBJECT

private slots:
    void workerWaitsForTheAnswer();
    void shutDownFreesAWaitingWorker();
    void closingTheBoxDismisses();
};

namespace {

using Answer = UserPrompts::Answer;

const UserPrompts::Question question{UserPrompts::Icon::Warning,
                                     QStringLiteral("Error"),
                                     QStringLiteral("Error Writing File"),
                                     QString(),
                                     {Answer::Skip, Answer::SkipForAll, Answer::Cancel},
                                     Answer::SkipForAll};

struct AskingThread
{
    explicit AskingThread(MessageBoxPrompts& prompts)
        : thread(QThread::create([this, &prompts] { answer = prompts.ask(question); }))
    {
        thread->start();
    }
    ~AskingThread() { thread->wait(); }

    Answer answer = Answer::Ok;
    std::unique_ptr<QThread> thread;
};

} // namespace

void tst_MessageBoxPrompts::workerWaitsForTheAnswer()
{
    QWidget window;
    MessageBoxPrompts prompts(&window);
    MessageBoxWatch watch;
    AskingThread asking(prompts);
    QTRY_VERIFY(asking.thread->isFinished());
    QCOMPARE(asking.answer, Answer::SkipForAll);
    QCOMPARE(watch.takeShown(), QStringList{QStringLiteral("warning|Error|Error Writing File")});
}

void tst_MessageBoxPrompts::shutDownFreesAWaitingWorker()
{
    QWidget window;
    MessageBoxPrompts prompts(&window);
    AskingThread asking(prompts);
    QThread::yieldCurrentThread();
    prompts.shutDown(); // the event loop never runs: no box could have answered
    QVERIFY(asking.thread->wait(5000));
    QCOMPARE(asking.answer, Answer::Cancel);
    QCOMPARE(prompts.ask(question), Answer::Cancel);
}

void tst_MessageBoxPrompts::closingTheBoxDismisses()
{
    QWidget window;
    MessageBoxPrompts prompts(&window);
    QTimer::singleShot(50, qApp, [] { QApplication::activeModalWidget()->close(); });
    QCOMPARE(prompts.ask(question), Answer::Cancel);
}

QTEST_MAIN(tst_MessageBoxPrompts)
#include "tst_MessageBoxPrompts.moc"
