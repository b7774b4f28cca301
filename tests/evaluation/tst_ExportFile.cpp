#include "evaluation/core/ExportFile.h"
#include "tests/evaluation/DiskFaults.h"
#include "tests/evaluation/folderContents.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

using Contents = QMap<QString, QByteArray>;

const QByteArray oldBytes = "the old table";
const QString longestName(255, 'x');

} // namespace

class tst_ExportFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void writesWhole();
    void keepsOldFileWhenDiskIsFull();
    void refusesWhatCannotBeWritten();
    void respectsPermissions();

private:
    QString path(const QString& name) const { return m_folder->path() + '/' + name; }
    Contents contents() const { return folderContents(m_folder->path()); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_ExportFile::writesWhole()
{
    const QString text = QString::fromUtf8("Ä;µ;\u2642\r\n");
    const QString umlauts = QString::fromUtf8("Fledermäuse \"Süd\" 'Öst'; Nächte ");
    Contents expected;
    for (const QString& name :
         {QStringLiteral("table.csv"), umlauts + QString(200 - umlauts.size(), 'x'), longestName}) {
        QVERIFY(ExportFile::write(path(name), "a longer text than the one that follows"));
        QVERIFY(ExportFile::write(path(name), text));
        expected.insert(name, text.toUtf8());
    }
    QCOMPARE(contents(), expected);
}

void tst_ExportFile::keepsOldFileWhenDiskIsFull()
{
    QVERIFY(writeBytes(path("table.csv"), oldBytes));
    QVERIFY(writeBytes(path(longestName), oldBytes));
    const FullDisk disk(100000);
    for (const QString& name : {QStringLiteral("table.csv"), longestName, QStringLiteral("new.csv")})
        QVERIFY2(!ExportFile::write(path(name), QString(1000000, 'x')), qPrintable(name));
    QCOMPARE(contents(), Contents({{"table.csv", oldBytes}, {longestName, oldBytes}}));
}

void tst_ExportFile::refusesWhatCannotBeWritten()
{
    QVERIFY(QDir(m_folder->path()).mkdir("folder.csv"));
    for (const QString& target :
         {path("vanished/table.csv"), path("folder.csv"), QString(), path(longestName + 'x')})
        QVERIFY2(!ExportFile::write(target, "text"), qPrintable(target));
    QCOMPARE(contents(), Contents());
}

void tst_ExportFile::respectsPermissions()
{
    const QFile::Permissions readOnly(0x5055);
    QVERIFY(writeBytes(path("open.csv"), oldBytes));
    QVERIFY(writeBytes(path("closed.csv"), oldBytes));
    QVERIFY(QFile::setPermissions(path("open.csv"), QFile::Permissions(0x6066)));
    QVERIFY(QFile::setPermissions(path("closed.csv"), readOnly));
    QVERIFY(QFile::setPermissions(m_folder->path(), readOnly));
    {
        const OrdinaryUser user;
        QVERIFY(!ExportFile::write(path("new.csv"), "text"));
        QVERIFY(!ExportFile::write(path("closed.csv"), "text"));
        QVERIFY(ExportFile::write(path("open.csv"), "text")); // in place
    }
    QCOMPARE(contents(), Contents({{"closed.csv", oldBytes}, {"open.csv", "text"}}));
}

QTEST_GUILESS_MAIN(tst_ExportFile)

#include "tst_ExportFile.moc"
