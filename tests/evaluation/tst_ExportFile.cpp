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
const QFile::Permissions readOnly(0x5055);

} // namespace

class tst_ExportFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void writesWhole();
    void losesNothingOnAFullDisk_data();
    void losesNothingOnAFullDisk();
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
        QVERIFY(QFile::setPermissions(path(name), QFile::Permissions(0x6600)));
        QVERIFY(ExportFile::write(path(name), text));
        QCOMPARE(QFile::permissions(path(name)), QFile::Permissions(0x6600));
        expected.insert(name, text.toUtf8());
    }
    for (const QString target : {"table.csv", "not yet there.csv"}) {
        const QString link = "link to " + target;
        QVERIFY(QFile::link(target, path(link)));
        QVERIFY(ExportFile::write(path(link), "through the link"));
        QVERIFY(QFileInfo(path(link)).isSymLink());
        expected[target] = expected[link] = "through the link";
    }
    QCOMPARE(contents(), expected);
}

void tst_ExportFile::losesNothingOnAFullDisk_data()
{
    QTest::addColumn<bool>("folderTakesFiles");
    QTest::addColumn<QByteArray>("old");
    QTest::newRow("beside") << true << oldBytes;
    QTest::newRow("in place") << false << oldBytes;
    QTest::newRow("in place, longer than the room") << false << QByteArray(150000, 'o');
    QTest::newRow("in place, longer than the text") << false << QByteArray(1500000, 'o');
    QTest::newRow("in place, empty") << false << QByteArray();
}

void tst_ExportFile::losesNothingOnAFullDisk()
{
    QFETCH(bool, folderTakesFiles);
    QFETCH(QByteArray, old);
    for (const QString& name : {QStringLiteral("table.csv"), longestName}) {
        QVERIFY(writeBytes(path(name), old));
        QVERIFY(QFile::setPermissions(path(name), QFile::Permissions(0x6066)));
    }
    QVERIFY(
        QFile::setPermissions(m_folder->path(), folderTakesFiles ? QFile::Permissions(0x7777) : readOnly));
    {
        const OrdinaryUser user;
        const FullDisk disk(100000);
        for (const QString& name : {QStringLiteral("table.csv"), longestName, QStringLiteral("new.csv")})
            QVERIFY2(!ExportFile::write(path(name), QString(1000000, 'x')), qPrintable(name));
    }
    QCOMPARE(contents(), Contents({{"table.csv", old}, {longestName, old}}));
}

void tst_ExportFile::refusesWhatCannotBeWritten()
{
    QVERIFY(QDir(m_folder->path()).mkdir("folder.csv"));
    for (const QString& target : {path("vanished/table.csv"), path("folder.csv"), QString(),
                                  path(longestName + 'x'), QStringLiteral("/dev/null")})
        QVERIFY2(!ExportFile::write(target, "text"), qPrintable(target));
    QCOMPARE(contents(), Contents());
}

void tst_ExportFile::respectsPermissions()
{
    for (const QString& name : {QStringLiteral("open.csv"), QStringLiteral("closed.csv")})
        QVERIFY(writeBytes(path(name), oldBytes));
    QVERIFY(QFile::setPermissions(path("open.csv"), QFile::Permissions(0x6066)));
    QVERIFY(QFile::setPermissions(path("closed.csv"), readOnly));
    QVERIFY(QFile::setPermissions(m_folder->path(), readOnly));
    {
        const OrdinaryUser user;
        QVERIFY(!ExportFile::write(path("new.csv"), "text"));
        QVERIFY(!ExportFile::write(path("closed.csv"), "text"));
        for (const QString text : {"a longer text, in place", "text"})
            QVERIFY(ExportFile::write(path("open.csv"), text));
    }
    QCOMPARE(contents(), Contents({{"closed.csv", oldBytes}, {"open.csv", "text"}}));
}

QTEST_GUILESS_MAIN(tst_ExportFile)

#include "tst_ExportFile.moc"
