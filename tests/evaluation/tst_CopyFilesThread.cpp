#include "evaluation/core/CopyFilesThread.h"
#include "tests/evaluation/DiskFaults.h"
#include "tests/evaluation/folderContents.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSignalSpy>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

using Contents = QMap<QString, QByteArray>;

const QByteArray sound = QByteArray(3000000, 's') + "end";
const QByteArray oldSound = "an older recording";

/// Whether the request succeeded, as its answer says.
bool copy(const QString& to, const QString& from, const QString& name, bool overwrite = true)
{
    CopyFilesThread worker;
    QSignalSpy answers(&worker, &CopyFilesThread::signalCopyFinished);
    const QStringList names{"first.wav", name, "last.wav"};
    worker.copyFiles(1, to, from, names, overwrite);
    const QVariantList answer = answers.value(0);
    const bool success = answer.value(3).toStringList() == names;
    if (answer != QVariantList{1, to, from, success ? names : names + QStringList("error"), overwrite})
        qFatal("not an answer to the request");
    return success;
}

} // namespace

class tst_CopyFilesThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void copiesWholeFiles_data();
    void copiesWholeFiles();
    void keepsTimeAndPermissions();
    void neverReplacesAFileByItself();
    void losesNothing_data();
    void losesNothing();
    void refusesWhatCannotBeCopied();
    void reachesAnotherFileSystem();
    void copiesAheadOutOfSight_data();
    void copiesAheadOutOfSight();
    void respectsWhatAppearedMeanwhile();
    void stopsForGood();

private:
    QString from() const { return m_from->path(); }
    QString to() const { return m_to->path(); }

    std::unique_ptr<QTemporaryDir> m_from; // has a.wav
    std::unique_ptr<QTemporaryDir> m_to;
};

void tst_CopyFilesThread::init()
{
    m_from = std::make_unique<QTemporaryDir>();
    m_to = std::make_unique<QTemporaryDir>();
    QVERIFY(writeBytes(from() + "/a.wav", sound));
}

void tst_CopyFilesThread::copiesWholeFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    const QString umlauts = QString::fromUtf8("Fledermäuse \"Süd\" 'Öst' %1 \\ Nächte ");
    QTest::newRow("empty") << "b.wav" << QByteArray("");
    QTest::newRow("odd name of 200 characters")
        << umlauts + QString(196 - umlauts.size(), 'x') + ".wav" << sound;
    QTest::newRow("as long as a name can be") << QString(251, 'x') + ".wav" << sound;
    QTest::newRow("larger than a portion") << "b.wav" << QByteArray((16 << 20) + 5, 'p');
}

void tst_CopyFilesThread::copiesWholeFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QVERIFY(writeBytes(from() + '/' + name, bytes));
    for (const bool overwrite : {false, true}) {
        QVERIFY(copy(to(), from(), name, overwrite));
        QCOMPARE(folderContents(to()), Contents({{name, bytes}}));
        QVERIFY(writeBytes(to() + '/' + name, oldSound));
    }
    QCOMPARE(bytesOf(from() + '/' + name), bytes);
}

void tst_CopyFilesThread::keepsTimeAndPermissions()
{
    // The second of the two times that Central European clocks show as 02:30.
    const QDateTime changed(QDate(2020, 10, 25), QTime(1, 30), Qt::UTC);
    QFile file(from() + "/a.wav");
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(changed, QFileDevice::FileModificationTime));
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    QVERIFY(copy(to(), from(), "a.wav"));
    QCOMPARE(QFileInfo(to() + "/a.wav").lastModified().toUTC(), changed);
    QCOMPARE(QFile::permissions(to() + "/a.wav"), file.permissions());
}

void tst_CopyFilesThread::neverReplacesAFileByItself()
{
    // One file under three names.
    QVERIFY(QFile::link(from(), to() + "/link"));
    for (const QString& folder : {from(), from() + "/.", to() + "/link"})
        for (const bool overwrite : {false, true})
            QCOMPARE(copy(folder, from(), "a.wav", overwrite), !overwrite);
    QCOMPARE(folderContents(from()), Contents({{"a.wav", sound}}));
}

void tst_CopyFilesThread::losesNothing_data()
{
    QTest::addColumn<bool>("fullDisk");
    QTest::newRow("on a full disk") << true;
    QTest::newRow("without permission") << false;
}

void tst_CopyFilesThread::losesNothing()
{
    QFETCH(bool, fullDisk);
    QVERIFY(writeBytes(from() + "/b.wav", sound));
    QVERIFY(writeBytes(to() + "/a.wav", oldSound));
    for (const QString& folder : {from(), to()})
        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(fullDisk ? 0x7777 : 0x5055)));
    {
        const OrdinaryUser user;
        const FullDisk disk(fullDisk ? 1000000 : RLIM_INFINITY);
        QVERIFY(!copy(to(), from(), "a.wav"));
        QVERIFY(!copy(to(), from(), "b.wav"));
    }
    QCOMPARE(folderContents(to()), Contents({{"a.wav", oldSound}}));
}

void tst_CopyFilesThread::refusesWhatCannotBeCopied()
{
    QVERIFY(QDir(from()).mkdir("folder.wav"));
    QVERIFY(QDir(to()).mkpath("with folder/a.wav"));
    for (const QString& name :
         {QStringLiteral("gone.wav"), QStringLiteral("folder.wav"), QString(252, 'x') + ".wav", QString()})
        QVERIFY2(!copy(to(), from(), name), qPrintable(name));
    for (const QString folder : {"/gone", "/with folder"}) // where a.wav is a folder
        QVERIFY2(!copy(to() + folder, from(), "a.wav"), qPrintable(folder));
    QVERIFY(folderContents(to()).isEmpty() && folderContents(to() + "/with folder").isEmpty());
    QVERIFY(QFileInfo(to() + "/with folder/a.wav").isDir());
}

void tst_CopyFilesThread::reachesAnotherFileSystem()
{
    const QTemporaryDir other("/dev/shm/sonavia-XXXXXX");
    if (!other.isValid() || QStorageInfo(other.path()) == QStorageInfo(from()))
        QSKIP("no other file system");
    QVERIFY(copy(other.path(), from(), "a.wav"));
    QCOMPARE(folderContents(other.path()), Contents({{"a.wav", sound}}));
    QVERIFY(copy(to(), other.path(), "a.wav"));
    QCOMPARE(folderContents(to()), Contents({{"a.wav", sound}}));
}

void tst_CopyFilesThread::copiesAheadOutOfSight_data()
{
    QTest::addColumn<QString>("then"); // after the first of three files was copied
    QTest::addColumn<QString>("shown");
    QTest::newRow("the next one") << "a.wav b.wav c.wav|1"
                                  << "a.wav b.wav";
    QTest::newRow("another list") << "c.wav|0"
                                  << "a.wav c.wav";
    QTest::newRow("the run ends") << ""
                                  << "a.wav";
}

void tst_CopyFilesThread::copiesAheadOutOfSight()
{
    QFETCH(QString, then);
    QVERIFY(writeBytes(from() + "/b.wav", sound + 'b'));
    QVERIFY(writeBytes(from() + "/c.wav", sound + 'c'));
    CopyFilesThread worker;
    worker.copyFiles(0, to(), from(), {"a.wav", "b.wav", "c.wav"}, false);
    QCoreApplication::processEvents();
    QCOMPARE(QDir(to()).entryList(QDir::Files), QStringList("a.wav"));
    if (!then.isEmpty())
        worker.copyFiles(then.section('|', 1).toInt(), to(), from(), then.section('|', 0, 0).split(' '),
                         false);
    worker.endRun();
    QCoreApplication::processEvents();
    QTEST(QStringList(folderContents(to()).keys()).join(' '), "shown");
    for (const QString& name : folderContents(to()).keys())
        QCOMPARE(bytesOf(to() + '/' + name), bytesOf(from() + '/' + name));
}

void tst_CopyFilesThread::respectsWhatAppearedMeanwhile()
{
    QVERIFY(writeBytes(from() + "/b.wav", sound));
    const QStringList names{"a.wav", "b.wav"};
    for (const bool overwrite : {false, true}) {
        CopyFilesThread worker;
        worker.copyFiles(0, to(), from(), names, overwrite);
        QCoreApplication::processEvents();
        QVERIFY(writeBytes(to() + "/b.wav", oldSound));
        worker.copyFiles(1, to(), from(), names, overwrite);
        QCOMPARE(folderContents(to()), Contents({{"a.wav", sound}, {"b.wav", overwrite ? sound : oldSound}}));
        QVERIFY(QFile::remove(to() + "/b.wav"));
    }
}

void tst_CopyFilesThread::stopsForGood()
{
    QVERIFY(writeBytes(from() + "/b.wav", sound));
    CopyFilesThread worker;
    QSignalSpy answers(&worker, &CopyFilesThread::signalCopyFinished);
    worker.copyFiles(0, to(), from(), {"a.wav", "b.wav"}, false);
    worker.requestStop();
    QCoreApplication::processEvents();
    worker.copyFiles(1, to(), from(), {"a.wav", "b.wav"}, false);
    QCOMPARE(answers.size(), 1);
    QCOMPARE(folderContents(to()), Contents({{"a.wav", sound}}));
}

QTEST_GUILESS_MAIN(tst_CopyFilesThread)

#include "tst_CopyFilesThread.moc"
