#include "dsp/ClassProposal.h"
#include "dsp/FileClassification.h"
#include "recordings/GetFileInfoThread.h"
#include "tests/support/ScriptedPrompts.h"
#include "tools/WavBytes.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
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

WavBytes::Bext bext(const QByteArray& description)
{
    WavBytes::Bext fields;
    fields.description = description;
    fields.originationDate = "2024-05-01";
    fields.originationTime = "22:10:30";
    return fields;
}

WavBytes recording(const QByteArray& description)
{
    return WavBytes().fmt(300000).data(std::vector<std::int16_t>(15000)).bext(bext(description));
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
    void chainOnAnotherThread();
    void stopped();

private:
    QString stored(const char* name, const QByteArray& bytes)
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
        return written ? file.fileName() : QString();
    }

    /// The one answer, its texts joined by ';': four classes, proposal, accepted, length, date, time,
    /// comment.
    QString answer(const QString& path, const Request& request = {})
    {
        GetFileInfoThread worker(m_prompts);
        QSignalSpy spy(&worker, &GetFileInfoThread::signalFileInfoHeaderFinished);
        worker.getFileHeaderInfo(7, path, request.calcClasses, request.resultFile, request.reviewMode);
        if (spy.size() != 1 || spy.at(0).at(0).toInt() != 7)
            return QStringLiteral("%1 answers").arg(spy.size());
        QStringList texts;
        for (int i = 1; i < spy.at(0).size(); ++i)
            texts.append(spy.at(0).at(i).toString());
        return texts.join(QLatin1Char(';'));
    }

    static QString description(const QString& path)
    {
        WavReader reader;
        reader.load(path, true);
        return reader.bextDescription;
    }

    QTemporaryDir m_folder;
    ScriptedPrompts m_prompts;
};

void tst_GetFileInfoThread::header_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    WavBytes::Time time;
    time.recDate = "03/14/24";
    time.date = "18:10:00";
    const WavBytes good = recording("Pip + Ppyg|Pip|0|two calls");
    const QByteArray noDates = WavBytes().fmt(0).data({1}).bytes();

    const auto row = [](const char* label, const char* name, const QByteArray& bytes, const char* expected) {
        QTest::newRow(label) << QString::fromLatin1(name) << bytes << QString::fromUtf8(expected);
    };
    row("bext", "a.wav", good.bytes(), "Pip;Ppyg;;;Pip;0;0.050;01/05/24;22:10:30;two calls");
    row("TIME before bext", "a.WAV", WavBytes(good).time(time).bytes(),
        "Pip;Ppyg;;;Pip;0;0.050;14/03/24;18:10:00;two calls");
    row("wamd says nothing here", "a.wav",
        WavBytes().fmt(300000).data({1}).wamd("2024-05-01", "22:10:30").bytes(), ";;;;;;0.000;N/A;N/A;");
    row("no dates, no sample rate", "a.wav", noDates, ";;;;;;0.000;N/A;N/A;");
    row("short record", "a.wav", recording("Nyc|old").bytes(), "Nyc;;;;;;0.050;01/05/24;22:10:30;old");
    row("bytes beyond ASCII, widened with their sign", "a.wav", recording("\xc3\xa4").bytes(),
        "\xef\xbf\x83\xef\xbe\xa4;;;;;;0.050;01/05/24;22:10:30;");
    row("broken behind the bext", "a.wav", WavBytes().bext(bext("Pip|")).raw("xyz").bytes(),
        "Pip;;;;;;N/A;01/05/24;22:10:30;");
    row("data cut", "a.wav", recording("Pip|").bytes().left(2000), ";;;;;;N/A;N/A;N/A;");
    row("nonsense", "a.wav", QByteArray(600, 'x'), ";;;;;;N/A;N/A;N/A;");
    row("empty", "a.wav", QByteArray(), ";;;;;;N/A;N/A;N/A;");
    row("another suffix", "a.mp3", good.bytes(), ";;;;;;N/A;N/A;N/A;");
}

void tst_GetFileInfoThread::header()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const QString path = stored(qPrintable(name), bytes);
    QTEST(answer(path), "expected");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes); // reading alone never writes
    QVERIFY(QFile::remove(path));
    QCOMPARE(answer(path), QStringLiteral(";;;;;;N/A;N/A;N/A;"));
    QCOMPARE(answer(m_folder.path()), QStringLiteral(";;;;;;N/A;N/A;N/A;"));
}

void tst_GetFileInfoThread::rawFile()
{
    const QString path = stored("a.raw", QByteArray(250000, 'r')); // a quarter of a second
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime({2024, 5, 1}, {22, 10, 30}), QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(answer(path), QStringLiteral(";;;;;;0.250;01/05/24;22:10:30;"));
    QVERIFY(QFile::remove(path));
    QCOMPARE(answer(path, {true}), QStringLiteral(";;;;;;N/A;N/A;N/A;"));
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
        QTest::newRow(name) << mode << QString::fromLatin1(record) << QString::fromLatin1(kind)
                            << QString::fromLatin1(classes) << QString::fromLatin1(written);
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
    const QString path = stored("a.wav", recording(record.toLatin1()).bytes());
    Request request{mode < 0};
    if (mode >= 0) {
        request.resultFile = stored("calls_ch1_files.txt",
                                    "a.wav\t\t\t" + kind.toLatin1() + "\tPipistrelloid\t\tNyctaloid\t\tNlow");
        request.reviewMode = mode;
    }
    QTEST(answer(path, request).section(QLatin1Char(';'), 0, 5), "classes");
    QTEST(description(path), "written");
    QVERIFY(m_prompts.takeAsked().isEmpty());
}

void tst_GetFileInfoThread::proposesAndWrites()
{
    const QString path =
        stored("a.wav", WavBytes().fmt(300000).data(passOfABat()).bext(bext("Nyc + x||0|note")).bytes());
    RecordingFile file;
    file.load(path);
    QStringList classes;
    const std::atomic<bool> stop{false};
    detectFileClasses(file.samples(), 16, 300000, stop, &classes);
    const QString proposal = proposeFileClass(classes);
    QVERIFY(proposal.startsWith(QLatin1String("Pip")));

    QCOMPARE(answer(path, {true}), QStringLiteral("Nyc;;;;%1;0;0.500;01/05/24;22:10:30;note").arg(proposal));
    QCOMPARE(description(path), QStringLiteral("Nyc +  +  + |%1|0|note").arg(proposal));
    RecordingFile after;
    after.load(path);
    QCOMPARE(after.samples(), file.samples());
}

void tst_GetFileInfoThread::samplesThatCannotBeLoaded()
{
    const QByteArray bytes = WavBytes().bext(bext("foreign||0|x")).fmt(300000, 16, 2).data({1, 2}).bytes();
    const QString path = stored("stereo.wav", bytes);
    QVERIFY(answer(path, {true}).startsWith(QLatin1String("foreign;;;;;0;N/A;")));
    const QStringList asked = m_prompts.takeAsked();
    QCOMPARE(asked.size(), 1);
    QVERIFY(asked.first().endsWith(
        QStringLiteral("|The file %1 could not be loaded.\nCategorization aborted!").arg(path)));
    QCOMPARE(description(path), QStringLiteral("foreign||0|x"));
}

void tst_GetFileInfoThread::foreignCommentIsNotWrittenInto()
{
    const QString path = stored("a.wav", recording("Nyc|a|b").bytes());
    for (int time = 0; time < 2; ++time)
        QVERIFY(answer(path, {true}).endsWith(QLatin1String(";a|b")));
    QCOMPARE(description(path), QStringLiteral("Nyc|a|b"));
}

/// Requests that were queued together are answered one by one and in order.
void tst_GetFileInfoThread::chainOnAnotherThread()
{
    const QString path = stored("a.wav", recording("Pip|").bytes());
    QThread thread;
    auto* worker = new GetFileInfoThread(m_prompts);
    worker->moveToThread(&thread);
    connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
    QVector<int> answered;
    connect(worker, &GetFileInfoThread::signalFileInfoHeaderFinished, this,
            [&answered](int index) { answered.append(index); });
    thread.start();
    for (int index = 0; index < 3; ++index)
        QMetaObject::invokeMethod(worker, "getFileHeaderInfo", Q_ARG(int, index), Q_ARG(QString, path),
                                  Q_ARG(bool, false), Q_ARG(QString, QString()), Q_ARG(int, 1));
    QTRY_COMPARE(answered, QVector<int>({0, 1, 2}));
    thread.quit();
    QVERIFY(thread.wait(5000));
}

void tst_GetFileInfoThread::stopped()
{
    GetFileInfoThread worker(m_prompts);
    QSignalSpy spy(&worker, &GetFileInfoThread::signalFileInfoHeaderFinished);
    worker.requestStop();
    worker.getFileHeaderInfo(0, stored("a.wav", recording("Pip|").bytes()), true, QString(), 1);
    QVERIFY(spy.isEmpty());
    QCOMPARE(description(m_folder.filePath(QStringLiteral("a.wav"))), QStringLiteral("Pip|"));
}

QTEST_GUILESS_MAIN(tst_GetFileInfoThread)
#include "tst_GetFileInfoThread.moc"
