#include "tests/support/TestFolder.h"
#include "viewer/core/DropPlan.h"
#include "viewer/core/FolderTask.h"

#include <QtTest>

class tst_OpeningFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void listsTheFourSpellings();
    void folderPaths();
    void tasksListAgain();
    void plansDrops_data();
    void plansDrops();

private:
    TestFolder m_folder;
};

void tst_OpeningFiles::initTestCase()
{
    const QDir folder(m_folder.path());
    QVERIFY(folder.mkdir("sub.wav") && folder.mkdir("other"));
    for (const char* name :
         {"b.wav", "a.wav", "B.wav", "x.WAV", "y.RAW", "b.raw", "z.Wav", "notes.txt", "wav", "other/c.wav"})
        m_folder.write(name);
}

void tst_OpeningFiles::listsTheFourSpellings()
{
    const QString folder = m_folder.path();
    QCOMPARE(recordingsInFolder(folder).join(' '), QString("B.wav a.wav b.raw b.wav x.WAV y.RAW"));
    QCOMPARE(recordingsInFolder(folder, FolderFiles::WavOnly).join(' '), QString("B.wav a.wav b.wav x.WAV"));
    QCOMPARE(recordingsInFolder(folder + "/gone"), QStringList());
}

void tst_OpeningFiles::folderPaths()
{
    QCOMPARE(folderPath(m_folder.path() + "/other/../"), m_folder.path());
    QCOMPARE(folderPath("."), QDir::currentPath());
    QCOMPARE(FolderTask::droppedFiles("/", {}).pathOf("a.wav"), QString("/a.wav"));
}

void tst_OpeningFiles::tasksListAgain()
{
    const TestFolder folder;
    folder.write("m.wav");
    const FolderTask review = FolderTask::review(folder.path(), 1);
    const FolderTask dropped = FolderTask::droppedFiles(folder.path(), {"m.wav", "m.wav"});
    for (const char* name : {"k.wav", "n.raw"})
        folder.write(name);
    QCOMPARE(review.listedAgain().names, (QStringList{"k.wav", "m.wav"}));
    QCOMPARE(review.listedAgain().reviewMode, 1);
    QCOMPARE(dropped.listedAgain().names, QStringList{"m.wav"});
    const FolderTask reset = FolderTask::afterReset(folder.path(), 2);
    QVERIFY(reset.calcClasses && reset.viewMode == 2 && !reset.hasRawFiles());
}

void tst_OpeningFiles::plansDrops_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("listed");
    QTest::addColumn<int>("leftOut");

    const auto row = [](const char* names, DropPlan::Kind kind, const char* listed = "", int leftOut = 0) {
        QTest::newRow(names) << QString(names).split(' ') << static_cast<int>(kind) << listed << leftOut;
    };
    using Kind = DropPlan::Kind;
    row("https://fennmoor.example/a.wav", Kind::Nothing);
    row("z.Wav", Kind::OneFile);
    row("b.raw", Kind::OneFile);
    row("notes.txt", Kind::Unsupported);
    row("sub.wav", Kind::OneFolder);
    row("b.raw a.wav", Kind::SeveralFiles, "b.raw a.wav");
    row("a.wav sub.wav", Kind::Mixture);
    row("other sub.wav", Kind::Mixture);
    row("notes.txt a.wav", Kind::SeveralFiles, "a.wav", 1);
    row("a.wav other/c.wav", Kind::SeveralFiles, "a.wav", 1);
    row("notes.txt wav", Kind::Unsupported, "", 2);
}

void tst_OpeningFiles::plansDrops()
{
    QFETCH(QStringList, names);
    QList<QUrl> urls;
    for (const QString& name : names)
        urls.append(name.startsWith("https") ? QUrl(name) : QUrl::fromLocalFile(m_folder.path(name)));
    const DropPlan plan = planDrop(urls);
    QTEST(static_cast<int>(plan.kind), "kind");
    QTEST(plan.names.join(' '), "listed");
    QTEST(plan.leftOut, "leftOut");
    if (!plan.names.isEmpty())
        QCOMPARE(plan.path, m_folder.path());
}

QTEST_GUILESS_MAIN(tst_OpeningFiles)
#include "tst_OpeningFiles.moc"
