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
    void keepsTimeAndPermissions_data();
    void keepsTimeAndPermissions();
    void leavesExistingFilesAlone();
    void neverReplacesAFileByItself();
    void losesNothingOnAFullDisk();
    void losesNothingWithoutPermission();
    void refusesWhatCannotBeCopied_data();
    void refusesWhatCannotBeCopied();
    void reachesAnotherFileSystem();
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

void tst_CopyFilesThread::keepsTimeAndPermissions_data()
{
    QTest::addColumn<QDateTime>("changed");
    QTest::newRow("plain") << QDateTime(QDate(2017, 8, 1), QTime(22, 15), Qt::UTC);
    // The two times that Central European clocks show as 02:30.
    QTest::newRow("double hour") << QDateTime(QDate(2020, 10, 25), QTime(0, 30), Qt::UTC);
    QTest::newRow("double hour again") << QDateTime(QDate(2020, 10, 25), QTime(1, 30), Qt::UTC);
}

void tst_CopyFilesThread::keepsTimeAndPermissions()
{
    QFETCH(QDateTime, changed);
    QFile file(from() + "/a.wav");
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(changed, QFileDevice::FileModificationTime));
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    QVERIFY(copy(to(), from(), "a.wav"));
    QCOMPARE(QFileInfo(to() + "/a.wav").lastModified().toUTC(), changed);
    QCOMPARE(QFile::permissions(to() + "/a.wav"), file.permissions());
}

void tst_CopyFilesThread::leavesExistingFilesAlone()
{
    QVERIFY(writeBytes(to() + "/a.wav", oldSound));
    QVERIFY(copy(to(), from(), "a.wav", false));
    QCOMPARE(folderContents(to()), Contents({{"a.wav", oldSound}}));
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

void tst_CopyFilesThread::losesNothingOnAFullDisk()
{
    QVERIFY(writeBytes(from() + "/b.wav", sound));
    QVERIFY(writeBytes(to() + "/a.wav", oldSound));
    {
        const FullDisk disk(1000000);
        QVERIFY(!copy(to(), from(), "a.wav"));
        QVERIFY(!copy(to(), from(), "b.wav"));
    }
    QCOMPARE(folderContents(to()), Contents({{"a.wav", oldSound}}));
}

void tst_CopyFilesThread::losesNothingWithoutPermission()
{
    QVERIFY(writeBytes(from() + "/b.wav", sound));
    QVERIFY(writeBytes(to() + "/a.wav", oldSound));
    QVERIFY(QFile::setPermissions(from(), QFile::Permissions(0x5055)));
    QVERIFY(QFile::setPermissions(to(), QFile::Permissions(0x5055)));
    {
        const OrdinaryUser user;
        QVERIFY(!copy(to(), from(), "a.wav"));
        QVERIFY(!copy(to(), from(), "b.wav"));
    }
    QCOMPARE(folderContents(to()), Contents({{"a.wav", oldSound}}));
}

void tst_CopyFilesThread::refusesWhatCannotBeCopied_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("subfolder"); // of the target
    QTest::newRow("source vanished") << "gone.wav"
                                     << "";
    QTest::newRow("source is a folder") << "folder.wav"
                                        << "";
    QTest::newRow("target folder vanished") << "a.wav"
                                            << "/gone";
    QTest::newRow("target is a folder") << "a.wav"
                                        << "/with folder";
    QTest::newRow("name too long") << QString(252, 'x') + ".wav"
                                   << "";
    QTest::newRow("no name") << ""
                             << "";
}

void tst_CopyFilesThread::refusesWhatCannotBeCopied()
{
    QFETCH(QString, name);
    QFETCH(QString, subfolder);
    QVERIFY(QDir(from()).mkdir("folder.wav"));
    QVERIFY(QDir(to()).mkpath("with folder/a.wav"));
    QVERIFY(!copy(to() + subfolder, from(), name));
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

void tst_CopyFilesThread::stopsForGood()
{
    CopyFilesThread worker;
    QSignalSpy answers(&worker, &CopyFilesThread::signalCopyFinished);
    worker.requestStop();
    worker.copyFiles(0, to(), from(), {"a.wav"}, false);
    QCOMPARE(answers.size(), 0);
    QCOMPARE(folderContents(to()), Contents());
}

QTEST_GUILESS_MAIN(tst_CopyFilesThread)

#include "tst_CopyFilesThread.moc"
