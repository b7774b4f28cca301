#include "viewer/core/DropPlan.h"
#include "viewer/core/FolderTask.h"

#include <QtTest>

Q_DECLARE_METATYPE(FolderTask)

class tst_OpeningFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void listsTheFourSpellings();
    void folderPaths();
    void tasksAsk_data();
    void tasksAsk();
    void tasksListAgain();
    void plansDrops_data();
    void plansDrops();

private:
    QUrl url(const char* name) const { return QUrl::fromLocalFile(m_folder.filePath(QLatin1String(name))); }

    QTemporaryDir m_folder;
};

void tst_OpeningFiles::initTestCase()
{
    const QDir folder(m_folder.path());
    folder.mkdir(QStringLiteral("sub.wav"));
    folder.mkdir(QStringLiteral("other"));
    for (const char* name :
         {"b.wav", "a.wav", "B.wav", "x.WAV", "y.RAW", "b.raw", "z.Wav", "notes.txt", "wav", "other/c.wav"})
        QVERIFY(QFile(folder.filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
}

void tst_OpeningFiles::listsTheFourSpellings()
{
    const auto names = [](const QStringList& list) { return list.join(QLatin1Char(' ')); };
    QCOMPARE(names(recordingsInFolder(m_folder.path())),
             QStringLiteral("B.wav a.wav b.raw b.wav x.WAV y.RAW"));
    QCOMPARE(names(recordingsInFolder(m_folder.path(), FolderFiles::WavOnly)),
             QStringLiteral("B.wav a.wav b.wav x.WAV"));
    QCOMPARE(recordingsInFolder(m_folder.filePath(QStringLiteral("gone"))), QStringList());
}

void tst_OpeningFiles::folderPaths()
{
    QCOMPARE(folderPath(m_folder.path() + QStringLiteral("/other/../")), m_folder.path());
    QCOMPARE(folderPath(QStringLiteral(".")), QDir::currentPath());
    QCOMPARE(FolderTask::droppedFiles(QStringLiteral("/"), {}).pathOf(QStringLiteral("a.wav")),
             QStringLiteral("/a.wav"));
}

void tst_OpeningFiles::tasksAsk_data()
{
    QTest::addColumn<FolderTask>("task");
    QTest::addColumn<int>("viewMode");
    QTest::addColumn<bool>("calcClasses");
    QTest::addColumn<bool>("recorderResult");
    QTest::addColumn<int>("lastArgument");
    QTest::addColumn<bool>("raw");

    const QString folder = m_folder.path();
    QTest::newRow("folder") << FolderTask::openedFolder(folder) << 1 << false << false << 1 << true;
    QTest::newRow("dropped") << FolderTask::droppedFiles(folder, {QStringLiteral("a.wav")}) << 1 << false
                             << false << 1 << false;
    QTest::newRow("evaluation") << FolderTask::folderEvaluation(folder) << 2 << false << false << 2 << true;
    QTest::newRow("Vantor") << FolderTask::vantorEvaluation(folder) << 3 << true << false << 3 << true;
    QTest::newRow("review, groups") << FolderTask::review(folder, 0) << 4 << false << true << 0 << false;
    QTest::newRow("review, species") << FolderTask::review(folder, 1) << 4 << false << true << 1 << false;
    QTest::newRow("reset") << FolderTask::afterReset(folder, 2) << 2 << true << false << 2 << false;
}

void tst_OpeningFiles::tasksAsk()
{
    QFETCH(FolderTask, task);
    QFETCH(bool, recorderResult);
    QTEST(task.viewMode, "viewMode");
    QTEST(task.calcClasses, "calcClasses");
    QTEST(task.reviewMode, "lastArgument");
    QTEST(task.hasRawFiles(), "raw");
    QCOMPARE(task.recorderResultFileName,
             recorderResult ? m_folder.filePath(QStringLiteral("calls_ch1_files.txt")) : QString());
}

void tst_OpeningFiles::tasksListAgain()
{
    QTemporaryDir folder;
    const auto add = [&](const char* name) {
        QVERIFY(QFile(folder.filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
    };
    add("m.wav");
    const FolderTask review = FolderTask::review(folder.path(), 1);
    const FolderTask dropped = FolderTask::droppedFiles(folder.path(), review.names);
    add("k.wav");
    add("n.raw");
    QCOMPARE(review.listedAgain().names, (QStringList{QStringLiteral("k.wav"), QStringLiteral("m.wav")}));
    QCOMPARE(review.listedAgain().recorderResultFileName, review.recorderResultFileName);
    QCOMPARE(dropped.listedAgain().names, QStringList{QStringLiteral("m.wav")});
}

void tst_OpeningFiles::plansDrops_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("names");
    QTest::addColumn<int>("leftOut");

    const auto row = [](const char* name, const QList<QUrl>& urls, DropPlan::Kind kind,
                        const char* names = "", int leftOut = 0) {
        QTest::newRow(name) << urls << static_cast<int>(kind) << QString::fromLatin1(names) << leftOut;
    };
    using Kind = DropPlan::Kind;
    row("nothing", {}, Kind::Nothing);
    row("a web address", {QUrl(QStringLiteral("https://fennmoor.example/a.wav"))}, Kind::Nothing);
    row("one file, suffix in any case", {url("z.Wav")}, Kind::OneFile);
    row("one raw file", {url("b.raw")}, Kind::OneFile);
    row("another kind of file", {url("notes.txt")}, Kind::Unsupported);
    row("a folder called like a file", {url("sub.wav")}, Kind::OneFolder);
    row("two files", {url("b.raw"), url("a.wav")}, Kind::SeveralFiles, "b.raw a.wav");
    row("a file and a folder", {url("a.wav"), url("sub.wav")}, Kind::Mixture);
    row("two folders", {url("other"), url("sub.wav")}, Kind::Mixture);
    row("files, not all recordings", {url("notes.txt"), url("a.wav")}, Kind::SeveralFiles, "a.wav", 1);
    row("files of two folders", {url("a.wav"), url("other/c.wav")}, Kind::SeveralFiles, "a.wav", 1);
    row("files, no recording", {url("notes.txt"), url("wav")}, Kind::Unsupported, "", 2);
}

void tst_OpeningFiles::plansDrops()
{
    QFETCH(QList<QUrl>, urls);
    const DropPlan plan = planDrop(urls);
    QTEST(static_cast<int>(plan.kind), "kind");
    QTEST(plan.names.join(QLatin1Char(' ')), "names");
    QTEST(plan.leftOut, "leftOut");
    QCOMPARE(plan.several, urls.size() > 1 && plan.kind != DropPlan::Kind::Mixture);
    if (!plan.names.isEmpty())
        QCOMPARE(plan.path, m_folder.path());
}

QTEST_GUILESS_MAIN(tst_OpeningFiles)
#include "tst_OpeningFiles.moc"
