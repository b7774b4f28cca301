#include <QtTest>

// The fuzz target itself, built without the fuzzer: it aborts where an input breaks a rule. One program for
// each target.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

class tst_FuzzReplay : public QObject
{
    Q_OBJECT

private slots:
    void corpus_data();
    void corpus();
};

void tst_FuzzReplay::corpus_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(QStringLiteral(SONAVIA_FUZZ_CORPUS));
    const QStringList names = folder.entryList(QDir::Files);
    QVERIFY(names.size() >= 10);
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
}

void tst_FuzzReplay::corpus()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.constData());
    QCOMPARE(LLVMFuzzerTestOneInput(data, static_cast<std::size_t>(bytes.size())), 0);
}

QTEST_GUILESS_MAIN(tst_FuzzReplay)
#include "tst_FuzzReplay.moc"
