#include "dsp/ClassProposal.h"
#include "dsp/FileClassification.h"
#include "recordings/GetFileInfoThread.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestFolder.h"
#include "tools/WavBytes.h"

#include <QSignalSpy>
#include <QtTest>

#include <cmath>

namespace {

/// Half a second at 300 kHz of faint noise with four calls of 8 ms that fall from 60 to 45 kHz.
std::vector<std::int16_t> passOfABat()
{
    constexpr int rate = 300000;
    std::vector<std::int16_t> samples(rate / 2);
    unsigned noise = 1;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        noise = noise * 1664525U + 1013904223U;
        const double t = static_cast<double>(i % (rate / 8)) / rate;
        const double call = t < 0.008 ? 8000 * std::sin(M_PI * t / 0.008) *
                                            std::sin(2 * M_PI * (60000 * t - 15000 / 0.016 * t * t))
                                      : 0.0;
        samples[i] = static_cast<std::int16_t>(static_cast<int>(noise >> 28) - 8 + call);
    }
    return samples;
}

WavBytes recording(const QByteArray& description)
{
    return WavBytes()
        .fmt(300000)
        .data(std::vector<std::int16_t>(15000))
        .bext(WavBytes::Bext::ofRecorder(description));
}

struct Request
{
    bool calcClasses = false;
    QString resultFile = QString();
    int reviewMode = 0;
};

} // namespace

class tst_GetFileInfoThread : public QObject
{
    Q_OBJECT

private slots:
    void header_data();
    void header();
    void rawFile();
    void vocabulary_data();
    void vocabulary();
    void proposesAndWrites();
    void samplesThatCannotBeLoaded();
    void foreignCommentIsNotWrittenInto();
    void stopped();

private:
    /// The one answer, its texts joined by ';': four classes, proposal, accepted, length, date, time,
    /// comment.
    QString answer(const QString& path, const Request& request = {})
    {
        GetFileInfoThread worker(m_prompts);
        QSignalSpy spy(&worker, &GetFileInfoThread::signalFileInfoHeaderFinished);
        worker.getFileHeaderInfo(7, path, request.calcClasses, request.resultFile, request.reviewMode);
        if (spy.size() != 1 || spy.at(0).at(0).toInt() != 7)
            return QString("%1 answers").arg(spy.size());
        QStringList texts;
        for (int i = 1; i < spy.at(0).size(); ++i)
            texts.append(spy.at(0).at(i).toString());
        return texts.join(';');
    }

    QString description() const
    {
        WavReader reader;
        reader.load(m_folder.path("a.wav"), true);
        return reader.bextDescription;
    }

    TestFolder m_folder;
    ScriptedPrompts m_prompts;
};

void tst_GetFileInfoThread::header_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("name");
    const WavBytes good = recording("Pip + Ppyg|Pip|0|two calls");

    const auto row = [](const char* label, const QByteArray& bytes, const char* expected,
                        const char* name = "a.wav") {
        QTest::newRow(label) << bytes << QString::fromUtf8(expected) << name;
    };
    row("bext", good.bytes(), "Pip;Ppyg;;;Pip;0;0.050;01/05/24;22:10:30;two calls");
    row("TIME before bext", WavBytes(good).time(WavBytes::Time::ofRecorder()).bytes(),
        "Pip;Ppyg;;;Pip;0;0.050;14/03/24;18:10:00;two calls", "a.WAV");
    row("wamd says nothing here", WavBytes().fmt(300000).data({1}).wamd("2024-05-01", "22:10:30").bytes(),
        ";;;;;;0.000;N/A;N/A;");
    row("no dates, no sample rate", WavBytes().fmt(0).data({1}).bytes(), ";;;;;;0.000;N/A;N/A;");
    row("short record", recording("Nyc|old").bytes(), "Nyc;;;;;;0.050;01/05/24;22:10:30;old");
    row("bytes beyond ASCII, widened with their sign", recording("\xc3\xa4").bytes(),
        "\xef\xbf\x83\xef\xbe\xa4;;;;;;0.050;01/05/24;22:10:30;");
    row("broken behind the bext", WavBytes().bext(WavBytes::Bext::ofRecorder("Pip|")).raw("xyz").bytes(),
        "Pip;;;;;;N/A;01/05/24;22:10:30;");
    row("stereo, but with a record",
        WavBytes().fmt(1, 16, 2).data({1}).bext(WavBytes::Bext::ofRecorder("Pip|x")).bytes(),
        "Pip;;;;;;N/A;N/A;N/A;x");
    row("data cut", recording("Pip|").bytes().left(2000), ";;;;;;N/A;N/A;N/A;");
    row("empty", "", ";;;;;;N/A;N/A;N/A;");
    row("another suffix", good.bytes(), ";;;;;;N/A;N/A;N/A;", "a.mp3");
}

void tst_GetFileInfoThread::header()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const QString path = m_folder.write(name, bytes);
    QTEST(answer(path), "expected");
    QCOMPARE(m_folder.bytes(name), bytes); // reading alone never writes
    QVERIFY(QFile::remove(path));
    for (const QString& missing : {path, m_folder.path()})
        QCOMPARE(answer(missing), QString(";;;;;;N/A;N/A;N/A;"));
}

void tst_GetFileInfoThread::rawFile()
{
    QFile file(m_folder.write("a.raw", QByteArray(250000, 'r'))); // a quarter of a second
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime({2024, 5, 1}, {22, 10, 30}), QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(answer(file.fileName()), QString(";;;;;;0.250;01/05/24;22:10:30;"));
    QVERIFY(file.remove());
    QCOMPARE(answer(file.fileName(), {true}), QString(";;;;;;N/A;N/A;N/A;"));
}

void tst_GetFileInfoThread::vocabulary_data()
{
    QTest::addColumn<int>("mode"); // -1: categorization, else that of the review
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("kind"); // of event, in the recorder's result
    QTest::addColumn<QString>("classes");
    QTest::addColumn<QString>("written");

    const auto row = [](const char* name, int mode, const char* record, const char* kind, const char* classes,
                        const char* written) {
        QTest::newRow(name) << mode << record << kind << classes << written;
    };
    row("categorization knows all and keeps a proposal", -1, "PipPyg + NycMid + No Call|Pip|0|x", "",
        "PipPyg;NycMid;No Call;;Pip;0", "PipPyg + NycMid + No Call|Pip|0|x");
    row("categorization leaves a gap", -1, "Pip + Ppyg + Nyc|Pip|1|x", "", "Pip;;Nyc;;Pip;1",
        "Pip +  + Nyc + |Pip|1|x");
    row("categorization: No Call", -1, "Pip|No Call|0|x", "", ";;;;No Call;0", " +  +  + |No Call|0|x");
    row("categorization: No call", -1, "Pip|No call|0|", "", ";;;;No call;0", " +  +  + |No call|0|");
    row("groups clear species", 0, "Ppip + Pnat|||x", "bat", ";Pnat;;;Pip, Nyc;",
        " + Pnat +  + |Pip, Nyc||x");
    row("groups alone change nothing", 0, "Pip|Nyc|1|x", "bat", "Pip;;;;Pip, Nyc;1", "Pip|Nyc|1|x");
    row("species keep species", 1, "Ppip + Nnoc|old|0|", "bat", "Ppip;Nnoc;;;Nlow;0", "Ppip + Nnoc|old|0|");
    row("species clear others", 1, "PipPyg + Ppyg||0|", "bat", ";Ppyg;;;Nlow;0", " + Ppyg +  + |Nlow|0|");
    row("noise clears all", 1, "Ppip + Nnoc|old|0|x", "noise", ";;;;No Call;0", " +  +  + |No Call|0|x");
    row("no result, no proposal", 1, "Ppip|old|0|x", "?", "Ppip;;;;;0", "Ppip|old|0|x");
}

void tst_GetFileInfoThread::vocabulary()
{
    QFETCH(int, mode);
    QFETCH(QString, record);
    QFETCH(QString, kind);
    const QString path = m_folder.write("a.wav", recording(record.toLatin1()).bytes());
    Request request{mode < 0};
    if (mode >= 0) {
        request.resultFile = m_folder.write(
            "calls_ch1_files.txt", "a.wav\t\t\t" + kind.toLatin1() + "\tPipistrelloid\t\tNyctaloid\t\tNlow");
        request.reviewMode = mode;
    }
    QTEST(answer(path, request).section(';', 0, 5), "classes");
    QTEST(description(), "written");
    QVERIFY(m_prompts.takeAsked().isEmpty());
}

void tst_GetFileInfoThread::proposesAndWrites()
{
    const WavBytes::Bext bext = WavBytes::Bext::ofRecorder("Nyc + x||0|note");
    const QString path =
        m_folder.write("a.wav", WavBytes().fmt(300000).data(passOfABat()).bext(bext).bytes());
    RecordingFile file;
    file.load(path);
    QStringList classes;
    const std::atomic<bool> stop{false};
    detectFileClasses(file.samples(), 16, 300000, stop, &classes);
    const QString proposal = proposeFileClass(classes);
    QVERIFY(proposal.startsWith("Pip"));

    QCOMPARE(answer(path, {true}), QString("Nyc;;;;%1;0;0.500;01/05/24;22:10:30;note").arg(proposal));
    QCOMPARE(description(), QString("Nyc +  +  + |%1|0|note").arg(proposal));
    RecordingFile after;
    after.load(path);
    QCOMPARE(after.samples(), file.samples());
}

void tst_GetFileInfoThread::samplesThatCannotBeLoaded()
{
    const WavBytes::Bext bext = WavBytes::Bext::ofRecorder("foreign||0|x");
    const QString path =
        m_folder.write("a.wav", WavBytes().bext(bext).fmt(300000, 16, 2).data({1, 2}).bytes());
    QVERIFY(answer(path, {true}).startsWith("foreign;;;;;0;N/A;"));
    QVERIFY(m_prompts.takeAsked().join("\n\n").endsWith(
        QString("|The file %1 could not be loaded.\nCategorization aborted!").arg(path)));
    QCOMPARE(description(), QString("foreign||0|x"));
}

void tst_GetFileInfoThread::foreignCommentIsNotWrittenInto()
{
    const QString path = m_folder.write("a.wav", recording("Nyc|a|b").bytes());
    for (int time = 0; time < 2; ++time)
        QVERIFY(answer(path, {true}).endsWith(";a|b"));
    QCOMPARE(description(), QString("Nyc|a|b"));
}

void tst_GetFileInfoThread::stopped()
{
    GetFileInfoThread worker(m_prompts);
    QSignalSpy spy(&worker, &GetFileInfoThread::signalFileInfoHeaderFinished);
    worker.requestStop();
    worker.getFileHeaderInfo(0, m_folder.write("a.wav", recording("Pip|").bytes()), true, {}, 1);
    QVERIFY(spy.isEmpty());
    QCOMPARE(description(), QString("Pip|"));
}

QTEST_GUILESS_MAIN(tst_GetFileInfoThread)
#include "tst_GetFileInfoThread.moc"
