#include "classes/FileRun.h"
#include "tests/support/ScriptedPrompts.h"

#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <optional>

using Answer = UserPrompts::Answer;

/// Keeps what was asked, and whether the progress dialog was on the screen then.
class WatchingPrompts : public ScriptedPrompts
{
public:
    explicit WatchingPrompts(const QWidget& window) : m_window(window) {}

    Answer ask(const Question& question) override
    {
        const auto* progress = m_window.findChild<QProgressDialog*>();
        progressWasVisible = progress && progress->isVisible();
        answers = question.answers;
        return ScriptedPrompts::ask(question);
    }

    bool progressWasVisible = false;
    QVector<Answer> answers;

private:
    const QWidget& m_window;
};

class tst_FileRun : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void requestsFollowAnswers();
    void questionsStandAboveTheProgress();
    void progressComesAfterAWhile();
    void inputDoesNotReachTheWindow();
    void workDoneHereAsksOnlyWhatMatters();
    void workLetsTheEventLoopRun();

private:
    FileRun::Setup setup(int count, bool cancellable = true);
    FileRun& run() { return *m_run; }
    QProgressDialog* progress() const { return m_window->findChild<QProgressDialog*>(); }

    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<WatchingPrompts> m_prompts;
    FileRun* m_run = nullptr;
    std::optional<bool> m_completed; // none while the run goes on
    QVector<int> m_requests;
};

void tst_FileRun::init()
{
    m_window = std::make_unique<QWidget>();
    m_window->resize(300, 200);
    m_prompts = std::make_unique<WatchingPrompts>(*m_window);
    m_run = new FileRun(*m_window, *m_prompts);
    m_completed.reset();
    m_requests.clear();
}

FileRun::Setup tst_FileRun::setup(int count, bool cancellable)
{
    FileRun::Setup setup;
    setup.label = "Working...";
    setup.cancellable = cancellable;
    setup.count = count;
    setup.errorText = [](int index) { return QString("file %1 failed").arg(index); };
    setup.ended = [this](bool completed) { m_completed = completed; };
    return setup;
}

void tst_FileRun::requestsFollowAnswers()
{
    QSignalSpy active(m_run, &FileRun::rowsInUseChanged);
    run().start(setup(0), [this](int index) { m_requests.append(index); });
    QCOMPARE(m_completed, std::optional(true));
    QVERIFY(m_requests.isEmpty() && active.isEmpty() && !progress());
    m_completed.reset();
    {
        const FileRun::RowsInUse question(run());
        run().start(setup(3), [this](int index) { m_requests.append(index); });
    }
    run().answered(1, true); // nobody asked for it
    QCOMPARE(m_requests, QVector<int>({0}));
    run().answered(0, true);
    run().answered(1, true);
    QCOMPARE(m_requests, QVector<int>({0, 1, 2}));
    QVERIFY(run().isActive() && !m_completed);
    run().answered(2, true);
    QCOMPARE(m_completed, std::optional(true));
    QVERIFY(!run().isActive());
    QCOMPARE(active.size(), 2);
    QTRY_VERIFY(!progress());
}

void tst_FileRun::questionsStandAboveTheProgress()
{
    run().start(setup(3), [this](int index) { m_requests.append(index); });
    m_prompts->willAnswer(Answer::Skip);
    run().answered(0, false);
    QVERIFY(m_prompts->progressWasVisible);
    QCOMPARE(m_prompts->answers, QVector<Answer>({Answer::Skip, Answer::SkipForAll, Answer::Cancel}));
    QCOMPARE(m_prompts->takeAsked(), QStringList("critical|Error|file 0 failed"));
    m_prompts->willAnswer(Answer::Cancel);
    run().answered(1, false);
    QCOMPARE(m_completed, std::optional(false));
    QCOMPARE(m_requests, QVector<int>({0, 1}));
}

/// One file that takes its time, then the user tries to end the run.
void tst_FileRun::progressComesAfterAWhile()
{
    m_window->show();
    for (const bool cancellable : {false, true}) {
        m_completed.reset();
        run().start(setup(2, cancellable), [](int) {});
        QVERIFY(!progress()->isVisible());
        QCOMPARE(progress()->minimumDuration(), 500);
        QCOMPARE(progress()->labelText(), QStringLiteral("Working..."));
        QCOMPARE(progress()->maximum(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(progress()->isVisible(), 3000);
        QVERIFY(progress()->windowModality() == Qt::WindowModal);
        auto* button = progress()->findChild<QPushButton*>();
        QCOMPARE(button != nullptr, cancellable);
        if (cancellable)
            button->click();
        else {
            QTest::keyClick(progress(), Qt::Key_Escape);
            progress()->close();
            QVERIFY(progress()->isVisible());
        }
        QVERIFY(run().isActive()); // the file on its way is waited for
        run().answered(0, true);
        QCOMPARE(m_completed, cancellable ? std::optional(false) : std::nullopt);
        run().answered(1, true);
        QTRY_VERIFY(!progress());
    }
}

void tst_FileRun::inputDoesNotReachTheWindow()
{
    auto* edit = new QLineEdit(m_window.get());
    auto* button = new QPushButton(m_window.get());
    button->move(0, 100);
    QSignalSpy clicked(button, &QPushButton::clicked);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    const auto use = [&] {
        edit->setFocus();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_A);
        QTest::keyClick(edit, Qt::Key_B);
        QTest::mouseClick(button, Qt::LeftButton);
    };
    run().start(setup(1), [](int) {});
    use();
    QCOMPARE(edit->text(), QString());
    QCOMPARE(clicked.size(), 0);
    run().answered(0, true);
    use();
    QCOMPARE(edit->text(), QStringLiteral("ab"));
    QCOMPARE(clicked.size(), 1);
}

void tst_FileRun::workDoneHereAsksOnlyWhatMatters()
{
    run().startHere(setup(1), [](int) { return true; });
    QCOMPARE(m_completed, std::optional(true)); // one file is done at once
    m_completed.reset();
    run().startHere(setup(2), [](int) { return false; });
    QTRY_COMPARE(m_completed, std::optional(true));
    QCOMPARE(m_prompts->takeAsked(),
             QStringList({"critical|Error|file 0 failed", "critical|Error|file 1 failed"}));
    QCOMPARE(m_prompts->answers, QVector<Answer>({Answer::Ok})); // nothing follows the last file
    m_completed.reset();
    m_prompts->willAnswer(Answer::SkipForAll);
    run().startHere(setup(2), [](int) { return false; });
    QTRY_COMPARE(m_completed, std::optional(true));
    QCOMPARE(m_prompts->takeAsked(), QStringList("critical|Error|file 0 failed"));
    QCOMPARE(m_prompts->answers, QVector<Answer>({Answer::Ok, Answer::SkipForAll}));
}

/// Slow files, so that each has a turn of its own; a timer fires between them, and the progress dialog comes.
void tst_FileRun::workLetsTheEventLoopRun()
{
    m_window->show();
    int beats = 0;
    QTimer beat;
    connect(&beat, &QTimer::timeout, this, [&beats] { ++beats; });
    beat.start(0);
    bool shown = false;
    run().startHere(setup(40), [&](int index) {
        m_requests.append(index);
        QTest::qSleep(20);
        shown = shown || progress()->isVisible();
        return true;
    });
    QTRY_COMPARE(m_completed, std::optional(true));
    QCOMPARE(m_requests.size(), 40);
    QVERIFY2(beats >= 30, qPrintable(QString::number(beats)));
    QVERIFY(shown);
}

QTEST_MAIN(tst_FileRun)
#include "tst_FileRun.moc"
