#include "recordings/RecorderResult.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_RecorderResult : public QObject
{
    Q_OBJECT

private slots:
    void proposal_data();
    void proposal();
    void firstLineWithTheName_data();
    void firstLineWithTheName();
    void changedFileIsReadAgain();
    void noFile();

private:
    QString stored(const QByteArray& text)
    {
        QFile file(m_folder.filePath(QStringLiteral("calls_ch1_files.txt")));
        const bool written = file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
        return written ? file.fileName() : QString();
    }

    QTemporaryDir m_folder;
};

void tst_RecorderResult::proposal_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("groups");
    QTest::addColumn<QString>("species");

    const auto row = [](const char* name, const char* line, const char* groups, const char* species) {
        QTest::newRow(name) << QByteArray(line) << QString::fromLatin1(groups)
                            << QString::fromLatin1(species);
    };
    row("two groups", "a.wav\t1\t2\tbat\tPipistrelloid\t5\tNyctaloid\t7\tPpip\t9\tNnoc\t11\tEnil\t13",
        "Pip, Nyc", "Ppip, Nnoc, Enil");
    row("other groups stand as they are", "a.wav\t\t\tbat\tBarb\t\tSocial\t\tx", "Barb, Social", "x");
    row("gaps", "a.wav\t\t\tbat\t\t\tNyctaloid\t\t\t\tNnoc", "Nyc", "Nnoc");
    row("exactly seven fields", "a.wav\t\t\tbat\tPipistrelloid\t\t", "Pip", "");
    row("six fields", "a.wav\t\t\tbat\tPipistrelloid\t", "", "");
    row("noise", "a.wav\t\t\tnoise\tPipistrelloid\t\t", "No Call", "No Call");
    row("test", "a.wav\t\t\ttest\t\t\t", "No Call", "No Call");
    row("another kind", "a.wav\t\t\tBat\tPipistrelloid\t\tx\t\ty", "", "");
    row("name in another field", "1\t2\t\tbat\tPipistrelloid\t\t\tx/a.wav", "Pip", "");
}

void tst_RecorderResult::proposal()
{
    QFETCH(QByteArray, line);
    const QString file = stored("name\tof\tthe\tcolumns\n" + line + "\r\n\n");
    RecorderResult result;
    const QString recording = QStringLiteral("/some/folder/a.wav");
    QTEST(result.proposal(file, recording, RecorderResult::Mode::Groups), "groups");
    QTEST(result.proposal(file, recording, RecorderResult::Mode::Species), "species");
}

void tst_RecorderResult::firstLineWithTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << "one.wav"
                           << "1";
    QTest::newRow("part of a longer name before it") << "wo.wav"
                                                     << "2";
    QTest::newRow("longer than any") << "xtwo.wav"
                                     << "3";
    QTest::newRow("beginning of a longer name") << "four.wav"
                                                << "4";
    QTest::newRow("other case") << "One.wav"
                                << "";
    QTest::newRow("upper-case suffix") << "five.WAV"
                                       << "5";
    QTest::newRow("not across lines") << "five.WAV\none.wav"
                                      << "";
    QTest::newRow("not in the file") << "six.wav"
                                     << "";
    QTest::newRow("any name") << ".wav"
                              << "1";
}

/// The lines are numbered in the field of the first group.
void tst_RecorderResult::firstLineWithTheName()
{
    const QString file = stored("one.wav\t\t\tbat\t1\t\t\n"
                                "two.wav\t\t\tbat\t2\t\t\n"
                                "xtwo.wav\t\t\tbat\t3\t\t\n"
                                "four.wav.wav\t\t\tbat\t4\t\t\n"
                                "four.wav\t\t\tbat\t9\t\t\n"
                                "wo.wav\t\t\tbat\t9\t\t\n"
                                "\t\t\tbat\t5\t\t\tfive.WAV");
    QFETCH(QString, name);
    RecorderResult result;
    QTEST(result.proposal(file, QStringLiteral("/") + name, RecorderResult::Mode::Groups), "expected");
}

void tst_RecorderResult::changedFileIsReadAgain()
{
    RecorderResult result;
    const auto proposal = [&] {
        return result.proposal(m_folder.filePath(QStringLiteral("calls_ch1_files.txt")),
                               QStringLiteral("a.wav"), RecorderResult::Mode::Groups);
    };
    stored("a.wav\t\t\tbat\tfirst\t\t");
    QCOMPARE(proposal(), QStringLiteral("first"));
    stored("a.wav\t\t\tbat\tsecond\t\t");
    QCOMPARE(proposal(), QStringLiteral("second"));
    QVERIFY(QFile::remove(m_folder.filePath(QStringLiteral("calls_ch1_files.txt"))));
    QCOMPARE(proposal(), QString());
}

void tst_RecorderResult::noFile()
{
    RecorderResult result;
    for (const QString& path : {QString(), m_folder.path(), m_folder.filePath(QStringLiteral("missing"))})
        QCOMPARE(result.proposal(path, QStringLiteral("a.wav"), RecorderResult::Mode::Species), QString());
}

QTEST_APPLESS_MAIN(tst_RecorderResult)
#include "tst_RecorderResult.moc"
