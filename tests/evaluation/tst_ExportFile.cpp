#include "evaluation/core/ExportFile.h"
#include "tests/evaluation/DiskFaults.h"
#include "tests/evaluation/folderContents.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

using Contents = QMap<QString, QByteArray>;

const QByteArray oldBytes = "the old table";
const QFile::Permissions readOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                                    QFile::ReadOther | QFile::ExeOther;

} // namespace

class tst_ExportFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void writesWhole_data();
    void writesWhole();
    void keepsOldFileWhenDiskIsFull_data();
    void keepsOldFileWhenDiskIsFull();
    void refusesWhatCannotBeWritten();
    void respectsPermissions();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_ExportFile::writesWhole_data()
{
    QTest::addColumn<QString>("name");
    const QString umlauts = QString::fromUtf8("Fledermäuse \"Süd\" 'Öst'; Nächte ");
    QTest::newRow("plain") << "table.csv";
    QTest::newRow("umlauts, quotes, 200 characters") << umlauts + QString(200 - umlauts.size(), 'x');
    QTest::newRow("as long as a name can be") << QString(255, 'x');
}

void tst_ExportFile::writesWhole()
{
    QFETCH(QString, name);
    const QString text = QString::fromUtf8("Ä;µ;\u2642\r\n");
    QVERIFY(ExportFile::write(path(name), "a longer text than the one that follows"));
    QVERIFY(ExportFile::write(path(name), text));
    QCOMPARE(folderContents(m_folder->path()), Contents({{name, text.toUtf8()}}));
}

void tst_ExportFile::keepsOldFileWhenDiskIsFull_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "table.csv";
    QTest::newRow("as long as a name can be") << QString(255, 'x');
}

void tst_ExportFile::keepsOldFileWhenDiskIsFull()
{
    if (!canFeignDiskFaults())
        QSKIP("needs a limit for the size of files");
    QFETCH(QString, name);
    const QString text(1000000, 'x');
    {
        const FullDisk disk(100000);
        QVERIFY(!ExportFile::write(path(name), text));
        QCOMPARE(folderContents(m_folder->path()), Contents());
    }
    QVERIFY(writeBytes(path(name), oldBytes));
    const FullDisk disk(100000);
    QVERIFY(!ExportFile::write(path(name), text));
    QCOMPARE(folderContents(m_folder->path()), Contents({{name, oldBytes}}));
}

void tst_ExportFile::refusesWhatCannotBeWritten()
{
    QVERIFY(QDir(m_folder->path()).mkdir("folder.csv"));
    for (const QString& target :
         {path("vanished/table.csv"), path("folder.csv"), QString(), path(QString(300, 'x'))})
        QVERIFY2(!ExportFile::write(target, "text"), qPrintable(target));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList("folder.csv"));
}

void tst_ExportFile::respectsPermissions()
{
    if (!canFeignDiskFaults())
        QSKIP("needs permissions as on Unix");
    QVERIFY(writeBytes(path("open.csv"), oldBytes));
    QVERIFY(writeBytes(path("closed.csv"), oldBytes));
    QVERIFY(QFile::setPermissions(path("open.csv"), readOnly | QFile::WriteGroup | QFile::WriteOther));
    QVERIFY(QFile::setPermissions(path("closed.csv"), readOnly));
    QVERIFY(QFile::setPermissions(m_folder->path(), readOnly));
    bool wroteNew = false;
    bool wroteClosed = false;
    bool wroteOpen = false;
    {
        const OrdinaryUser user;
        wroteNew = ExportFile::write(path("new.csv"), "text");
        wroteClosed = ExportFile::write(path("closed.csv"), "text");
        wroteOpen = ExportFile::write(path("open.csv"), "text");
    }
    QVERIFY(QFile::setPermissions(m_folder->path(), readOnly | QFile::WriteOwner));
    QVERIFY(!wroteNew);
    QVERIFY(!wroteClosed);
    QVERIFY(wroteOpen); // in place
    QCOMPARE(folderContents(m_folder->path()), Contents({{"closed.csv", oldBytes}, {"open.csv", "text"}}));
}

QTEST_GUILESS_MAIN(tst_ExportFile)

#include "tst_ExportFile.moc"
