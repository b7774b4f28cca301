#include "tests/support/TemporarySettings.h"
#include "viewer/core/DropPlan.h"
#include "viewer/core/FolderListing.h"

#include <QtTest>

class tst_OpeningFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void listsTheFourSpellings();
    void plansDrops_data();
    void plansDrops();

private:
    QUrl url(const char* name) const { return QUrl::fromLocalFile(m_folder.filePath(QLatin1String(name))); }

    QTemporaryDir m_folder;
};

void tst_OpeningFiles::initTestCase()
{
    QDir(m_folder.path()).mkdir(QStringLiteral("sub.wav"));
    for (const char* name : {"a.wav", "x.WAV", "y.RAW", "b.raw", "z.Wav", "notes.txt", "wav"})
        QFile(m_folder.filePath(QLatin1String(name))).open(QIODevice::WriteOnly);
}

void tst_OpeningFiles::listsTheFourSpellings()
{
    QStringList names = recordingsInFolder(m_folder.path());
    names.sort();
    QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("a.wav b.raw x.WAV y.RAW"));
    QCOMPARE(recordingsInFolder(m_folder.filePath(QStringLiteral("gone"))), QStringList());
}

void tst_OpeningFiles::plansDrops_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::addColumn<int>("kind");

    const auto row = [](const char* name, const QList<QUrl>& urls, DropPlan::Kind kind) {
        QTest::newRow(name) << urls << static_cast<int>(kind);
    };
    row("nothing", {}, DropPlan::Kind::Nothing);
    row("a web address", {QUrl(QStringLiteral("https://fennmoor.example/a.wav"))}, DropPlan::Kind::Nothing);
    row("one file, suffix in any case", {url("z.Wav")}, DropPlan::Kind::OneFile);
    row("one raw file", {url("b.raw")}, DropPlan::Kind::OneFile);
    row("another kind of file", {url("notes.txt")}, DropPlan::Kind::Unsupported);
    row("a folder called like a file", {url("sub.wav")}, DropPlan::Kind::OneFolder);
    row("two files", {url("a.wav"), url("b.raw")}, DropPlan::Kind::SeveralFiles);
    row("a file and a folder", {url("a.wav"), url("sub.wav")}, DropPlan::Kind::Mixture);
}

void tst_OpeningFiles::plansDrops()
{
    QFETCH(QList<QUrl>, urls);
    QTEST(static_cast<int>(planDrop(urls).kind), "kind");
}

QTEST_GUILESS_MAIN(tst_OpeningFiles)
#include "tst_OpeningFiles.moc"
