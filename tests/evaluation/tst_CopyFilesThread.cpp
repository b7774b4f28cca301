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
bool copy(const QString& to, const QString& from, const QString& name, bool overwrite)
{
    CopyFilesThread worker;
    QSignalSpy answers(&worker, &CopyFilesThread::signalCopyFinished);
    const QStringList names{"first.wav", name, "last.wav"};
    worker.copyFiles(1, to, from, names, overwrite);
    if (answers.size() != 1)
        qFatal("%d answers", answers.size());
    const QVariantList answer = answers.first();
    const bool success = answer.at(3).toStringList() == names;
    const QVariantList expected{1, to, from, success ? names : names + QStringList("error"), overwrite};
    if (answer != expected)
        qFatal("another answer");
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
    void treatsExistingFiles_data();
    void treatsExistingFiles();
    void neverReplacesAFileByItself_data();
    void neverReplacesAFileByItself();
    void losesNothingOnAFullDisk();
    void losesNothingWithoutPermission();
    void refusesWhatCannotBeCopied_data();
    void refusesWhatCannotBeCopied();
    void reachesAnotherFileSystem();
    void stopsForGood();

private:
    QString source(const QString& name = "a.wav") const { return m_from->filePath(name); }
    QString target(const QString& name = "a.wav") const { return m_to->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_from;
    std::unique_ptr<QTemporaryDir> m_to;
};

void tst_CopyFilesThread::init()
{
    m_from = std::make_unique<QTemporaryDir>();
    m_to = std::make_unique<QTemporaryDir>();
    QVERIFY(writeBytes(source(), sound));
}

void tst_CopyFilesThread::copiesWholeFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    const QString umlauts = QString::fromUtf8("Fledermäuse \"Süd\" 'Öst' %1 \\ Nächte ");
    QTest::newRow("plain") << "b.wav" << sound;
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
    QVERIFY(writeBytes(source(name), bytes));
    QVERIFY(copy(m_to->path(), m_from->path(), name, false));
    QCOMPARE(folderContents(m_to->path()), Contents({{name, bytes}}));
    QCOMPARE(bytesOf(source(name)), bytes);
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
    QFile file(source());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(changed, QFileDevice::FileModificationTime));
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    file.close();
    QVERIFY(copy(m_to->path(), m_from->path(), "a.wav", false));
    QCOMPARE(QFileInfo(target()).lastModified().toUTC(), changed);
    QCOMPARE(QFile::permissions(target()), QFile::permissions(source()));
}

void tst_CopyFilesThread::treatsExistingFiles_data()
{
    QTest::addColumn<bool>("overwrite");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("left alone") << false << oldSound;
    QTest::newRow("replaced") << true << sound;
}

void tst_CopyFilesThread::treatsExistingFiles()
{
    QFETCH(bool, overwrite);
    QFETCH(QByteArray, bytes);
    QVERIFY(writeBytes(target(), oldSound));
    QVERIFY(copy(m_to->path(), m_from->path(), "a.wav", overwrite));
    QCOMPARE(folderContents(m_to->path()), Contents({{"a.wav", bytes}}));
}

void tst_CopyFilesThread::neverReplacesAFileByItself_data()
{
    QTest::addColumn<bool>("overwrite");
    QTest::newRow("asked to") << true;
    QTest::newRow("not asked to") << false;
}

void tst_CopyFilesThread::neverReplacesAFileByItself()
{
    QFETCH(bool, overwrite);
    // One file under three names.
    const QString link = m_to->filePath("linked");
    QVERIFY(QFile::link(m_from->path(), link));
    const Contents before = folderContents(m_from->path());
    QCOMPARE(copy(m_from->path(), m_from->path(), "a.wav", overwrite), !overwrite);
    QCOMPARE(copy(m_from->path() + "/.", m_from->path(), "a.wav", overwrite), !overwrite);
    QCOMPARE(copy(link, m_from->path(), "a.wav", overwrite), !overwrite);
    QCOMPARE(folderContents(m_from->path()), before);
}

void tst_CopyFilesThread::losesNothingOnAFullDisk()
{
    if (!canFeignDiskFaults())
        QSKIP("needs a limit for the size of files");
    QVERIFY(writeBytes(source("b.wav"), sound));
    QVERIFY(writeBytes(target(), oldSound));
    {
        const FullDisk disk(1000000);
        QVERIFY(!copy(m_to->path(), m_from->path(), "a.wav", true));
        QVERIFY(!copy(m_to->path(), m_from->path(), "b.wav", false));
    }
    QCOMPARE(folderContents(m_to->path()), Contents({{"a.wav", oldSound}}));
    QCOMPARE(folderContents(m_from->path()), Contents({{"a.wav", sound}, {"b.wav", sound}}));
}

void tst_CopyFilesThread::losesNothingWithoutPermission()
{
    if (!canFeignDiskFaults())
        QSKIP("needs permissions as on Unix");
    QVERIFY(writeBytes(target(), oldSound));
    const QFile::Permissions readOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup |
                                        QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(m_from->path(), readOnly | QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(m_to->path(), readOnly));
    bool copiedOver = false;
    bool copiedNew = false;
    {
        const OrdinaryUser user;
        copiedOver = copy(m_to->path(), m_from->path(), "a.wav", true);
        QFile::rename(target(), target("c.wav"));
        copiedNew = copy(m_to->path(), m_from->path(), "b.wav", false);
    }
    QVERIFY(QFile::setPermissions(m_to->path(), readOnly | QFile::WriteOwner));
    QVERIFY(!copiedOver);
    QVERIFY(!copiedNew);
    QCOMPARE(folderContents(m_to->path()), Contents({{"a.wav", oldSound}}));
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
    QVERIFY(QDir(m_from->path()).mkdir("folder.wav"));
    QVERIFY(QDir(m_to->path()).mkpath("with folder/a.wav"));
    QVERIFY(!copy(m_to->path() + subfolder, m_from->path(), name, true));
    QCOMPARE(folderContents(m_to->path()), Contents());
    QCOMPARE(folderContents(m_to->path() + "/with folder"), Contents());
    QVERIFY(QFileInfo(m_to->path() + "/with folder/a.wav").isDir());
}

void tst_CopyFilesThread::reachesAnotherFileSystem()
{
    const QTemporaryDir other("/dev/shm/sonavia-XXXXXX");
    if (!other.isValid() || QStorageInfo(other.path()) == QStorageInfo(m_from->path()))
        QSKIP("no other file system");
    QVERIFY(copy(other.path(), m_from->path(), "a.wav", false));
    QCOMPARE(folderContents(other.path()), Contents({{"a.wav", sound}}));
    QVERIFY(writeBytes(source(), oldSound));
    QVERIFY(copy(m_from->path(), other.path(), "a.wav", true));
    QCOMPARE(folderContents(m_from->path()), Contents({{"a.wav", sound}}));
}

void tst_CopyFilesThread::stopsForGood()
{
    CopyFilesThread worker;
    QSignalSpy answers(&worker, &CopyFilesThread::signalCopyFinished);
    worker.requestStop();
    worker.copyFiles(0, m_to->path(), m_from->path(), {"a.wav"}, false);
    QCOMPARE(answers.size(), 0);
    QCOMPARE(folderContents(m_to->path()), Contents());
}

QTEST_GUILESS_MAIN(tst_CopyFilesThread)

#include "tst_CopyFilesThread.moc"
