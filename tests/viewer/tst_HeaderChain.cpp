#include "tests/support/ScriptedPrompts.h"
#include "tests/viewer/BareFileList.h"
#include "viewer/HeaderChain.h"

#include <QtTest>

#include <memory>

/// The chain with a worker that answers when the test says so.
class tst_HeaderChain : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void readsOneAfterTheOther();
    void asksAsTheTaskSays_data();
    void asksAsTheTaskSays();
    void reportsProgress();
    void anotherFolderWaitsForTheAnswer();
    void theLastFolderCounts();
    void aSingleFileEndsTheChain();
    void ignoresWhatNobodyAskedFor();
    void rowsMayGoMeanwhile_data();
    void rowsMayGoMeanwhile();
    void emptyAgain();
    void heldRowsStay();
    void evaluationClosesTheDoors();

private:
    struct Request
    {
        int index;
        QString path;
        bool calcClasses;
        QString resultFile;
        int mode;
    };

    void add(const char* name) const;
    FolderTask folder() const { return FolderTask::openedFolder(m_folder->path()); }
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    void answer(int index, const char* classes = "Pip");
    void answerAll();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedPrompts> m_prompts;
    std::unique_ptr<RecordingSession> m_session;
    std::unique_ptr<BareFileList> m_files;
    std::unique_ptr<BareFileList> m_evaluated;
    std::unique_ptr<HeaderChain> m_chain;
    QList<Request> m_requests;
    QStringList m_events;
};

void tst_HeaderChain::init()
{
    m_chain.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_prompts = std::make_unique<ScriptedPrompts>();
    m_session = std::make_unique<RecordingSession>();
    m_files = std::make_unique<BareFileList>(FileListPane::Purpose::Folder, *m_session);
    m_evaluated = std::make_unique<BareFileList>(FileListPane::Purpose::Assignment, *m_session);
    m_requests.clear();
    m_events.clear();
    m_chain =
        std::make_unique<HeaderChain>(*m_session, m_files->pane, m_evaluated->pane, *m_prompts,
                                      HeaderChain::Thread{[this] { m_events << QStringLiteral("start"); },
                                                          [this] { m_events << QStringLiteral("stop"); }});
    connect(m_chain.get(), &HeaderChain::signalGetFileHeaderInfo,
            [this](int index, const QString& file, bool calc, const QString& result, int mode) {
                m_requests.append({index, file, calc, result, mode});
            });
    connect(m_chain.get(), &HeaderChain::recordingWanted, [this](const QString& file) {
        m_events << QStringLiteral("show ") + QFileInfo(file).fileName();
    });
    connect(m_chain.get(), &HeaderChain::listCompleteChanged, [this](bool complete) {
        m_events << (complete ? QStringLiteral("complete") : QStringLiteral("incomplete"));
    });
    connect(m_chain.get(), &HeaderChain::openingAllowedChanged, [this](bool allowed) {
        m_events << (allowed ? QStringLiteral("open") : QStringLiteral("closed"));
    });
    connect(m_chain.get(), &HeaderChain::viewModeChanged,
            [this](int mode) { m_events << QStringLiteral("mode %1").arg(mode); });
}

void tst_HeaderChain::add(const char* name) const
{
    if (!QFile(path(name)).open(QIODevice::WriteOnly))
        qFatal("cannot write test data");
}

void tst_HeaderChain::answer(int index, const char* classes)
{
    const QString empty;
    m_chain->fileInfoHeaderFinished(index, QLatin1String(classes), empty, empty, empty, empty, empty,
                                    QStringLiteral("5.000"), QStringLiteral("14/05/24"),
                                    QStringLiteral("22:10:00"), QStringLiteral("note"));
}

void tst_HeaderChain::answerAll()
{
    while (m_chain->isLoading())
        answer(m_requests.last().index);
}

void tst_HeaderChain::readsOneAfterTheOther()
{
    add("b.wav");
    add("a.wav");
    m_chain->open(folder());
    QCOMPARE(m_events.join(QLatin1String(", ")), QStringLiteral("incomplete, mode 1, start, show a.wav"));
    QCOMPARE(m_session->folder, m_folder->path());
    QVERIFY(m_chain->isLoading());
    QCOMPARE(m_requests.size(), 1);
    QCOMPARE(m_requests.last().path, path("a.wav"));

    answer(0, "Pip");
    QCOMPARE(m_requests.size(), 2);
    QCOMPARE(m_requests.last().path, path("b.wav"));
    m_events.clear();
    answer(1, "Nyc");
    QCOMPARE(m_requests.size(), 2);
    QCOMPARE(m_events.join(QLatin1String(", ")), QStringLiteral("stop, complete, open"));
    QVERIFY(!m_chain->isLoading());
    QCOMPARE(m_files->texts(6).join(QLatin1Char(' ')), QStringLiteral("Pip Nyc"));
    QCOMPARE(m_files->texts(10).join(QLatin1Char(' ')), QStringLiteral("note note"));
    QVERIFY(m_files->list.isSortingEnabled());
    QVERIFY(!m_files->progress.isVisible());
}

void tst_HeaderChain::asksAsTheTaskSays_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<bool>("proposals");

    QTest::newRow("folder evaluation") << 2 << "false||2" << false;
    QTest::newRow("Vantor evaluation") << 3 << "true||3" << true;
    QTest::newRow("review") << 4 << "false|calls_ch1_files.txt|1" << true;
}

void tst_HeaderChain::asksAsTheTaskSays()
{
    QFETCH(int, mode);
    add("a.wav");
    add("b.wav");
    const QString folder = m_folder->path();
    m_chain->open(mode == 2   ? FolderTask::folderEvaluation(folder)
                  : mode == 3 ? FolderTask::vantorEvaluation(folder)
                              : FolderTask::review(folder, 1));
    answerAll();
    QCOMPARE(m_requests.size(), 2);
    for (const Request& request : m_requests)
        QTEST(QStringLiteral("%1|%2|%3")
                  .arg(request.calcClasses ? QStringLiteral("true") : QStringLiteral("false"),
                       QFileInfo(request.resultFile).fileName())
                  .arg(request.mode),
              "arguments");
    QCOMPARE(m_session->viewMode, mode);
    QCOMPARE(m_evaluated->texts(6).join(QLatin1Char(' ')), QStringLiteral("Pip Pip"));
    QTEST(!m_evaluated->list.isColumnHidden(5), "proposals");
    QCOMPARE(m_files->pane.rowCount(), 0);
}

void tst_HeaderChain::reportsProgress()
{
    for (const char* name : {"a.wav", "b.wav", "c.wav"})
        add(name);
    m_chain->open(folder());
    QCOMPARE(m_files->progress.value(), 1);
    answer(0);
    QCOMPARE(m_files->progress.value(), 33);
    answer(1);
    QCOMPARE(m_files->progress.value(), 66);
    answer(2);
    QCOMPARE(m_files->progress.value(), 100);
}

void tst_HeaderChain::anotherFolderWaitsForTheAnswer()
{
    add("a.wav");
    add("b.wav");
    m_chain->open(folder());
    answer(0);
    QTemporaryDir other;
    QVERIFY(QFile(other.filePath(QStringLiteral("z.wav"))).open(QIODevice::WriteOnly));
    m_chain->open(FolderTask::openedFolder(other.path()));
    QVERIFY(!m_chain->isLoading());
    QCOMPARE(m_files->pane.rowCount(), 2);
    m_events.clear();
    answer(1, "dropped");
    QCOMPARE(m_events.join(QLatin1String(", ")), QStringLiteral("stop, open, mode 1, start, show z.wav"));
    QCOMPARE(m_files->texts(6), QStringList{QString()});
    QCOMPARE(m_requests.last().path, other.filePath(QStringLiteral("z.wav")));
    answerAll();
    QCOMPARE(m_requests.size(), 3);
    QCOMPARE(m_files->texts(6), QStringList{QStringLiteral("Pip")});
}

void tst_HeaderChain::theLastFolderCounts()
{
    add("a.wav");
    m_chain->open(folder());
    m_chain->open(FolderTask::folderEvaluation(m_folder->path()));
    m_chain->openSingleFile();
    m_chain->open(FolderTask::review(m_folder->path(), 0));
    add("b.wav"); // came while the folder waited
    answer(0);
    QCOMPARE(m_session->viewMode, 4);
    QCOMPARE(m_evaluated->pane.rowCount(), 2);
    QCOMPARE(m_requests.size(), 2);
}

void tst_HeaderChain::aSingleFileEndsTheChain()
{
    add("a.wav");
    add("b.wav");
    m_chain->open(folder());
    m_chain->openSingleFile();
    QCOMPARE(m_session->viewMode, 0);
    QVERIFY(!m_chain->isLoading());
    answer(0);
    QCOMPARE(m_requests.size(), 1);
    QCOMPARE(m_events.count(QStringLiteral("stop")), 1);
    QVERIFY(!m_files->progress.isVisible());
    m_chain->restartFileHeaderLoading(); // there is no list to restart
    QCOMPARE(m_requests.size(), 1);
    m_chain->open(folder());
    answerAll();
    QCOMPARE(m_requests.size(), 3);
}

void tst_HeaderChain::ignoresWhatNobodyAskedFor()
{
    add("a.wav");
    add("b.wav");
    answer(0);
    m_chain->open(folder());
    answer(1, "wrong row");
    answer(0);
    answer(0, "twice");
    QCOMPARE(m_requests.size(), 2);
    answer(1);
    answer(1, "late");
    QCOMPARE(m_files->texts(6).join(QLatin1Char(' ')), QStringLiteral("Pip Pip"));
    QCOMPARE(m_events.count(QStringLiteral("complete")), 1);
}

void tst_HeaderChain::rowsMayGoMeanwhile_data()
{
    QTest::addColumn<QVector<int>>("deleted"); // while the third of five is read
    QTest::addColumn<QString>("rows");

    QTest::newRow("one that is read") << QVector<int>{0} << "b=b c=c d=d e=e";
    QTest::newRow("the one being read") << QVector<int>{2} << "a=a b=b d=d e=e";
    QTest::newRow("the next") << QVector<int>{3} << "a=a b=b c=c e=e";
    QTest::newRow("the last") << QVector<int>{4} << "a=a b=b c=c d=d";
    QTest::newRow("this one and those before") << QVector<int>{2, 1, 0} << "d=d e=e";
    QTest::newRow("this one and those behind") << QVector<int>{4, 3, 2} << "a=a b=b";
    QTest::newRow("all") << QVector<int>{4, 3, 2, 1, 0} << "";
}

void tst_HeaderChain::rowsMayGoMeanwhile()
{
    for (const char* name : {"a.wav", "b.wav", "c.wav", "d.wav", "e.wav"})
        add(name);
    // Each answer names its file, as a worker's would.
    const auto answerLast = [this] {
        answer(m_requests.last().index, QFileInfo(m_requests.last().path).baseName().toLatin1().constData());
    };
    m_chain->open(folder());
    answerLast();
    answerLast();
    QFETCH(QVector<int>, deleted);
    for (const int row : deleted)
        delete m_files->pane.row(row);
    for (int i = 0; i < 5 && m_chain->isLoading(); ++i)
        answerLast();
    QVERIFY(!m_chain->isLoading());
    QStringList rows;
    for (int i = 0; i < m_files->pane.rowCount(); ++i)
        rows << m_files->texts(0).at(i).left(1) + QLatin1Char('=') + m_files->texts(6).at(i);
    QTEST(rows.join(QLatin1Char(' ')), "rows");
}

void tst_HeaderChain::emptyAgain()
{
    add("a.wav");
    m_chain->open(folder());
    m_chain->open(folder());
    QVERIFY(m_folder->remove());
    answer(0);
    QVERIFY(!m_chain->isLoading());
    QCOMPARE(m_files->pane.rowCount(), 0);
    QCOMPARE(m_files->count.text(), QStringLiteral("\n0 items"));
    QVERIFY(!m_files->progress.isVisible());
    QCOMPARE(m_prompts->takeAsked(),
             QStringList{QStringLiteral("warning|Warning|No Bat Call Files in Folder")});
    QCOMPARE(m_requests.size(), 1);
}

void tst_HeaderChain::heldRowsStay()
{
    add("a.wav");
    m_chain->open(folder());
    QTreeWidgetItem* row = m_files->pane.row(0);
    m_chain->holdRows();
    m_chain->open(folder());
    answer(0);
    QCOMPARE(m_files->pane.row(0), row);
    m_chain->releaseRows();
    QVERIFY(m_chain->isLoading());
    answerAll();

    m_chain->holdRows();
    m_chain->open(folder());
    QVERIFY(!m_chain->isLoading());
    m_chain->releaseRows();
    QVERIFY(m_chain->isLoading());
}

void tst_HeaderChain::evaluationClosesTheDoors()
{
    add("a.wav");
    m_chain->open(FolderTask::folderEvaluation(m_folder->path()));
    QVERIFY(m_events.contains(QStringLiteral("closed")));
    answerAll();
    QCOMPARE(m_events.last(), QStringLiteral("open"));
}

QTEST_MAIN(tst_HeaderChain)
#include "tst_HeaderChain.moc"
