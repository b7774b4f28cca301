#include "recordings/GetFileInfoThread.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestFolder.h"
#include "tests/viewer/BareFileList.h"
#include "tools/WavBytes.h"
#include "viewer/HeaderChain.h"

#include <QThread>
#include <QtTest>

#include <memory>

/// The chain with a worker that answers when the test says so, and once with the real one.
class tst_HeaderChain : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readsOneAfterTheOther();
    void asksAsTheTaskSays_data();
    void asksAsTheTaskSays();
    void anotherFolderWaitsForTheAnswer();
    void aSingleFileEndsTheChain();
    void ignoresWhatNobodyAskedFor();
    void rowsMayGoMeanwhile_data();
    void rowsMayGoMeanwhile();
    void emptyAgain();
    void heldRowsStay();
    void aFolderThatVanishesEndsTheChain();

private:
    void add(const QString& names, const QByteArray& bytes = {}) const;
    FolderTask folder() const { return FolderTask::openedFolder(m_folder->path()); }
    void answer(int index, const QString& classes);
    void answerLast();
    void answerAll();
    QString takeEvents() { return std::exchange(m_events, {}).join(' '); }

    std::unique_ptr<TestFolder> m_folder;
    ScriptedPrompts m_prompts;
    RecordingSession m_session;
    std::unique_ptr<BareFileList> m_files;
    std::unique_ptr<BareFileList> m_evaluated;
    std::unique_ptr<HeaderChain> m_chain;
    QStringList m_requests; // "index name calcClasses resultFile mode"
    QStringList m_events;
};

void tst_HeaderChain::init()
{
    m_chain.reset();
    m_folder = std::make_unique<TestFolder>();
    m_files = std::make_unique<BareFileList>(FileListPane::Purpose::Folder, m_session);
    m_evaluated = std::make_unique<BareFileList>(FileListPane::Purpose::Assignment, m_session);
    m_requests.clear();
    m_events.clear();
    const HeaderChain::Thread thread{[this] { m_events << "start"; }, [this] { m_events << "stop"; }};
    m_chain = std::make_unique<HeaderChain>(m_session, m_files->pane, m_evaluated->pane, m_prompts, thread);
    HeaderChain* chain = m_chain.get();
    connect(chain, &HeaderChain::signalGetFileHeaderInfo,
            [this](int index, const QString& path, bool calc, const QString& result, int mode) {
                QCOMPARE(QFileInfo(path).path(), m_session.folder);
                m_requests << QString("%1 %2 %3 %4 %5")
                                  .arg(index)
                                  .arg(QFileInfo(path).fileName())
                                  .arg(int(calc))
                                  .arg(QFileInfo(result).fileName())
                                  .arg(mode);
            });
    connect(chain, &HeaderChain::recordingWanted,
            [this](const QString& file) { m_events << QFileInfo(file).fileName(); });
    const auto flag = [this](void (HeaderChain::*signal)(bool), const char* on, const char* off) {
        connect(m_chain.get(), signal, [=](bool value) { m_events << (value ? on : off); });
    };
    flag(&HeaderChain::listCompleteChanged, "complete", "incomplete");
    flag(&HeaderChain::openingAllowedChanged, "open", "closed");
    flag(&HeaderChain::loadingChanged, "loading", "loaded");
}

/// Several names at once, in any order.
void tst_HeaderChain::add(const QString& names, const QByteArray& bytes) const
{
    for (const QString& name : names.split(' '))
        m_folder->write(name, bytes);
}

void tst_HeaderChain::answer(int index, const QString& classes)
{
    m_chain->fileInfoHeaderFinished(index, classes, {}, {}, {}, {}, {}, "5.000", "14/05/24", "22:10:00",
                                    "note");
}

/// As a worker would: every answer names its file.
void tst_HeaderChain::answerLast()
{
    const QStringList request = m_requests.last().split(' ');
    answer(request.at(0).toInt(), request.at(1).left(1));
}

void tst_HeaderChain::answerAll()
{
    for (int i = 0; i < 10 && m_chain->isLoading(); ++i)
        answerLast();
    QVERIFY(!m_chain->isLoading());
}

void tst_HeaderChain::readsOneAfterTheOther()
{
    add("c.wav b.wav a.wav");
    m_chain->open(folder());
    QCOMPARE(takeEvents(), QString("incomplete loading start a.wav"));
    QCOMPARE(m_session.viewMode, 1);
    QCOMPARE(m_requests, QStringList("0 a.wav 0  1"));
    QCOMPARE(m_files->progress.value(), 1);
    answerLast();
    answerLast();
    QCOMPARE(m_requests.last(), QString("2 c.wav 0  1"));
    QCOMPARE(m_files->progress.value(), 66);
    QVERIFY(!m_files->list.isSortingEnabled());
    answerLast();
    QCOMPARE(m_requests.size(), 3);
    QCOMPARE(takeEvents(), QString("stop loaded complete open"));
    QCOMPARE(m_files->texts(6).join(' ') + m_files->texts(10).join(' '), QString("a b cnote note note"));
    QVERIFY(m_files->list.isSortingEnabled() && !m_files->progress.isVisible());
    QCOMPARE(m_files->progress.value(), 100);
}

void tst_HeaderChain::asksAsTheTaskSays_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("requests");

    QTest::newRow("evaluation") << 2 << QStringList{"0 a.wav 0  2", "1 b.wav 0  2"};
    QTest::newRow("Vantor evaluation") << 3 << QStringList{"0 a.wav 1  3", "1 b.wav 1  3"};
    QTest::newRow("review") << 4
                            << QStringList{"0 a.wav 0 calls_ch1_files.txt 0",
                                           "1 b.wav 0 calls_ch1_files.txt 0"};
}

void tst_HeaderChain::asksAsTheTaskSays()
{
    QFETCH(int, mode);
    add("a.wav b.wav");
    const QString path = m_folder->path();
    m_chain->open(mode == 2   ? FolderTask::folderEvaluation(path)
                  : mode == 3 ? FolderTask::vantorEvaluation(path)
                              : FolderTask::review(path, 0));
    answerAll();
    QTEST(m_requests, "requests");
    QCOMPARE(takeEvents(), QString("incomplete loading closed start a.wav stop loaded complete open"));
    QCOMPARE(m_session.viewMode, mode);
    QCOMPARE(m_evaluated->texts(6), (QStringList{"a", "b"}));
    QCOMPARE(m_evaluated->list.isColumnHidden(5), mode == 2);
    QCOMPARE(m_files->pane.rowCount(), 0);
}

void tst_HeaderChain::anotherFolderWaitsForTheAnswer()
{
    add("a.wav b.wav");
    m_chain->open(folder());
    m_chain->open(FolderTask::folderEvaluation(m_folder->path()));
    m_chain->open(FolderTask::review(m_folder->path(), 0)); // the last one counts
    add("c.wav");                                           // came while the folder waited
    QVERIFY(!m_chain->isLoading());
    QCOMPARE(m_session.viewMode, 1);
    takeEvents();
    answer(0, "dropped");
    QCOMPARE(takeEvents(), QString("stop loaded open loading closed start a.wav"));
    QCOMPARE(m_session.viewMode, 4);
    QCOMPARE(m_evaluated->texts(6), (QStringList{"", "", ""}));
    answerAll();
    QCOMPARE(m_requests.size(), 4);
}

void tst_HeaderChain::aSingleFileEndsTheChain()
{
    add("a.wav b.wav");
    m_chain->open(folder());
    m_chain->openSingleFile();
    QCOMPARE(m_session.viewMode, 0);
    QVERIFY(!m_chain->isLoading());
    answerLast();
    m_chain->restartFileHeaderLoading(); // there is no list to restart
    QCOMPARE(m_requests.size(), 1);
    QVERIFY(takeEvents().endsWith("stop loaded open"));
    QVERIFY(!m_files->progress.isVisible());
    m_chain->open(folder());
    answerAll();
    m_chain->restartFileHeaderLoading();
    answerAll();
    QCOMPARE(m_requests.size(), 5);
}

void tst_HeaderChain::ignoresWhatNobodyAskedFor()
{
    add("a.wav b.wav");
    answer(0, "early");
    m_chain->open(folder());
    answer(1, "wrong row");
    answer(0, "a");
    answer(0, "twice");
    answer(1, "b");
    answer(1, "late");
    QCOMPARE(m_requests.size(), 2);
    QCOMPARE(m_files->texts(6), (QStringList{"a", "b"}));
    QCOMPARE(m_events.count("complete"), 1);
}

void tst_HeaderChain::rowsMayGoMeanwhile_data()
{
    QTest::addColumn<QVector<int>>("deleted"); // while the third of five is read
    QTest::addColumn<QString>("rows");

    QTest::newRow("one that is read") << QVector<int>{0} << "b c d e";
    QTest::newRow("the one being read") << QVector<int>{2} << "a b d e";
    QTest::newRow("the next") << QVector<int>{3} << "a b c e";
    QTest::newRow("this one and those before") << QVector<int>{2, 1, 0} << "d e";
    QTest::newRow("this one and those behind") << QVector<int>{4, 3, 2} << "a b";
    QTest::newRow("all") << QVector<int>{4, 3, 2, 1, 0} << "";
}

void tst_HeaderChain::rowsMayGoMeanwhile()
{
    add("a.wav b.wav c.wav d.wav e.wav");
    m_chain->open(folder());
    answerLast();
    answerLast();
    QFETCH(QVector<int>, deleted);
    for (const int row : deleted)
        delete m_files->pane.row(row);
    answerAll();
    QTEST(m_files->texts(6).join(' '), "rows");
    QCOMPARE(m_files->texts(0).join(' ').remove(".wav"), m_files->texts(6).join(' '));
}

void tst_HeaderChain::emptyAgain()
{
    add("a.wav");
    m_chain->open(folder());
    m_chain->open(folder());
    QVERIFY(QFile::remove(m_folder->path("a.wav")));
    answerLast();
    QVERIFY(!m_chain->isLoading() && !m_files->progress.isVisible());
    QCOMPARE(m_files->pane.rowCount() + m_requests.size(), 1);
    QCOMPARE(m_prompts.takeAsked(), QStringList("warning|Warning|No Bat Call Files in Folder"));
}

void tst_HeaderChain::heldRowsStay()
{
    add("a.wav");
    m_chain->open(folder());
    for (int round = 0; round < 2; ++round) { // opened while headers are read, and afterwards
        QTreeWidgetItem* row = m_files->pane.row(0);
        m_chain->setRowsHeld(true);
        m_chain->open(folder());
        if (round == 0)
            answerLast();
        QCOMPARE(m_files->pane.row(0), row);
        QVERIFY(!m_chain->isLoading());
        m_chain->setRowsHeld(false);
        QVERIFY(m_chain->isLoading());
        answerAll();
    }
}

void tst_HeaderChain::aFolderThatVanishesEndsTheChain()
{
    for (int i = 10; i < 60; ++i)
        add(QString("%1.wav").arg(i), WavBytes().fmt(500000).data({1, 2, 3}).bytes());
    QThread thread;
    GetFileInfoThread worker(m_prompts);
    worker.moveToThread(&thread);
    const HeaderChain::Thread control{[&] { thread.start(); },
                                      [&] {
                                          thread.quit();
                                          thread.wait();
                                      }};
    HeaderChain chain(m_session, m_files->pane, m_evaluated->pane, m_prompts, control);
    connect(&chain, &HeaderChain::signalGetFileHeaderInfo, &worker, &GetFileInfoThread::getFileHeaderInfo);
    connect(&worker, &GetFileInfoThread::signalFileInfoHeaderFinished, &chain,
            &HeaderChain::fileInfoHeaderFinished);
    const QString elsewhere = m_folder->path() + "_moved";
    int read = 0;
    connect(&m_files->pane, &FileListPane::rowFilled, [&] {
        if (++read == 20)
            QVERIFY(QFile::rename(m_folder->path(), elsewhere));
    });
    chain.open(folder());
    QTRY_VERIFY(!chain.isLoading());
    QVERIFY(QFile::rename(elsewhere, m_folder->path()));
    QCOMPARE(read, 50);
    QCOMPARE(m_files->texts(3).lastIndexOf("0.000"), m_files->texts(3).indexOf("N/A") - 1);
    QCOMPARE(m_files->texts(3).last(), QString("N/A"));
    QVERIFY(!thread.isRunning());

    chain.open(folder()); // the thread starts again
    QTRY_VERIFY(!chain.isLoading());
    QCOMPARE(m_files->texts(3).count("0.000"), 50);
}

QTEST_MAIN(tst_HeaderChain)
#include "tst_HeaderChain.moc"
