#include "app/CommandLine.h"

#include <QDir>
#include <QtTest>

class tst_CommandLine : public QObject
{
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
};

void tst_CommandLine::reads_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("textContains");
    QTest::addColumn<int>("exitCode");

    const QString here = QDir::currentPath();
    QTest::newRow("nothing") << QStringList{} << QString() << QString() << 0;
    QTest::newRow("relative folder") << QStringList{QStringLiteral(".")} << here << QString() << 0;
    QTest::newRow("help") << QStringList{QStringLiteral("--help")} << QString() << QStringLiteral("Usage")
                          << 0;
    QTest::newRow("version beside a path")
        << QStringList{here, QStringLiteral("--version")} << QString() << QStringLiteral("Sonavia 2.") << 0;
    QTest::newRow("missing file") << QStringList{QStringLiteral("no-such.wav")} << QString()
                                  << QStringLiteral("no-such.wav") << 1;
    QTest::newRow("benchmark of a missing file")
        << QStringList{QStringLiteral("--benchmark"), here, QStringLiteral("no-such.wav")} << QString()
        << QStringLiteral("no-such.wav") << 1;
    QTest::newRow("two files") << QStringList{here, here} << QString() << QStringLiteral("one file") << 2;
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--loud")} << QString()
                                    << QStringLiteral("loud") << 2;
    QTest::newRow("benchmark of nothing")
        << QStringList{QStringLiteral("--benchmark")} << QString() << QStringLiteral("--benchmark") << 2;
}

void tst_CommandLine::reads()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, textContains);
    const CommandLine line = parseCommandLine(QStringList{QStringLiteral("sonavia")} + arguments);
    QTEST(line.path.isEmpty() ? QString() : QDir::cleanPath(line.path), "path");
    QTEST(line.exitCode, "exitCode");
    QCOMPARE(line.text.isEmpty(), textContains.isEmpty());
    QVERIFY(line.text.contains(textContains));
}

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
