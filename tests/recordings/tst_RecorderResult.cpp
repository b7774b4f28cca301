#include "recordings/RecorderResult.h"
#include "tests/support/TestFolder.h"

#include <QtTest>

class tst_RecorderResult : public QObject
{
    Q_OBJECT

private slots:
    void proposal_data();
    void proposal();
    void firstLineWithTheName();
    void changedFileIsReadAgain();

private:
    QString stored(const QByteArray& text) const { return m_folder.write("calls_ch1_files.txt", text); }

    TestFolder m_folder;
};

void tst_RecorderResult::proposal_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("groups");
    QTest::addColumn<QString>("species");

    const auto row = [](const char* name, const char* line, const char* groups, const char* species) {
        QTest::newRow(name) << QByteArray(line) << groups << species;
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
    const QString recording = "/some/folder/a.wav";
    QTEST(result.proposal(file, recording, RecorderResult::Mode::Groups), "groups");
    QTEST(result.proposal(file, recording, RecorderResult::Mode::Species), "species");
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
    // The second: part of a longer name before it. The fourth: beginning of a longer name.
    const QVector<QPair<QString, QString>> expected = {
        {"one.wav", "1"}, {"wo.wav", "2"},   {"xtwo.wav", "3"},         {"four.wav", "4"}, {".wav", "1"},
        {"One.wav", ""},  {"five.WAV", "5"}, {"five.WAV\none.wav", ""}, {"six.wav", ""}};
    RecorderResult result;
    for (const auto& [name, line] : expected)
        QCOMPARE(name + result.proposal(file, '/' + name, RecorderResult::Mode::Groups), name + line);
}

void tst_RecorderResult::changedFileIsReadAgain()
{
    RecorderResult result;
    const auto proposal = [&](const QString& file) {
        return result.proposal(file, "a.wav", RecorderResult::Mode::Groups);
    };
    QCOMPARE(proposal(stored("a.wav\t\t\tbat\tfirst\t\t")), QString("first"));
    const QString file = stored("a.wav\t\t\tbat\tsecond\t\t");
    QCOMPARE(proposal(file), QString("second"));
    QVERIFY(QFile::remove(file));
    for (const QString& none : {file, QString(), m_folder.path()})
        QCOMPARE(proposal(none), QString());
}

QTEST_APPLESS_MAIN(tst_RecorderResult)
#include "tst_RecorderResult.moc"
