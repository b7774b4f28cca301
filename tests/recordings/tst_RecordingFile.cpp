#include "recordings/FileInfoText.h"
#include "recordings/RecordingFile.h"
#include "recordings/ShortDate.h"
#include "tests/support/TestFolder.h"
#include "tools/WavBytes.h"

#include <QBuffer>
#include <QDateTime>
#include <QtTest>

class tst_RecordingFile : public QObject
{
    Q_OBJECT

private slots:
    void wavFile();
    void wavDateAndTime_data();
    void wavDateAndTime();
    void rawFile();
    void rawThatCannotBeRead_data();
    void rawThatCannotBeRead();
    void unsupportedFileForgetsTheOneBefore();
    void dateForms_data();
    void dateForms();
    void infoLine();

private:
    TestFolder m_folder;
};

void tst_RecordingFile::wavFile()
{
    const QString path = m_folder.write(QString::fromUtf8("night \xc3\xa4.WAV"),
                                        WavBytes().fmt(384000).data({1, -2, 3}).riffSize(0).bytes());
    RecordingFile file;
    file.load(path);
    QCOMPARE(file.kind(), RecordingFile::Kind::Wav);
    QCOMPARE(file.samples(), std::vector<int>({-2, 3, 0}));
    QCOMPARE(file.sampleSize(), 3);
    QCOMPARE(file.bitsPerSample(), 16);
    QCOMPARE(file.sampleRate(), 384000);
    QCOMPARE(file.errorText(), QString("File size in header not identical to real file size."));
    QCOMPARE(file.takeSamples().size(), std::size_t(3));
    QVERIFY(file.samples().empty());
    QVERIFY(QFile::remove(path)); // nothing holds the file open

    file.load(m_folder.write("header.wav", WavBytes().fmt(1).data({1, -2, 3}).bytes()), true);
    QVERIFY(file.samples().empty());
    QCOMPARE(file.sampleSize(), 3);
}

void tst_RecordingFile::wavDateAndTime_data()
{
    QTest::addColumn<QByteArray>("chunks");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    WavBytes::Time both, timeOnly;
    both.recDate = "02/29/00";
    both.date = timeOnly.date = "18:10:00";
    const auto row = [](const char* name, const WavBytes& wav, const char* date, const char* time) {
        QTest::newRow(name) << wav.bytes() << date << time;
    };
    row("none", WavBytes(), "", "");
    row("wamd", WavBytes().wamd("2024-05-01", "22:10:30"), "01/05/24", "22:10:30");
    row("TIME goes first", WavBytes().wamd("2024-05-01", "22:10:30").time(both), "29/02/00", "18:10:00");
    row("each on its own", WavBytes().time(timeOnly).wamd("2024-05-01", "22:10:30"), "01/05/24", "18:10:00");
    row("binary wamd", WavBytes().wamd("\1\2\3", ""), "", "");
}

void tst_RecordingFile::wavDateAndTime()
{
    QFETCH(QByteArray, chunks);
    RecordingFile file;
    file.load(m_folder.write("date.wav", chunks), true);
    QTEST(file.date(), "date");
    QTEST(file.time(), "time");
}

void tst_RecordingFile::rawFile()
{
    const QString path = m_folder.write("bat.RAW", QByteArray::fromHex("5555 ffff 0080 0201 77"));
    const QDateTime modified(QDate(2024, 2, 3), QTime(4, 5, 6));
    QFile raw(path);
    QVERIFY(raw.open(QIODevice::ReadWrite) && raw.setFileTime(modified, QFileDevice::FileModificationTime));
    raw.close();
    RecordingFile file;
    file.load(path);
    QCOMPARE(file.kind(), RecordingFile::Kind::Raw);
    QCOMPARE(file.samples(), std::vector<int>({-1, -32768, 0x0102, 0}));
    QCOMPARE(file.sampleSize(), 4);
    QCOMPARE(file.bitsPerSample(), 16);
    QCOMPARE(file.sampleRate(), 500000);
    QCOMPARE(file.date(), QString("03/02/24"));
    QCOMPARE(file.time(), QString("04:05:06"));
    QCOMPARE(file.errorText(), QString());
    QCOMPARE(file.takeSamples().size(), std::size_t(4));
}

void tst_RecordingFile::rawThatCannotBeRead_data()
{
    QTest::addColumn<qint64>("claimed");
    QTest::newRow("empty") << qint64(0);
    QTest::newRow("shrinks while it is read") << qint64(100);
    QTest::newRow("4 GB and more") << (qint64(1) << 32);
}

void tst_RecordingFile::rawThatCannotBeRead()
{
    struct LyingBuffer : QBuffer
    {
        qint64 claimed = 0;
        qint64 size() const override { return claimed; }
    };
    QFETCH(qint64, claimed);
    LyingBuffer buffer;
    buffer.setData(claimed == 0 ? QByteArray() : QByteArray(50, 'x'));
    buffer.claimed = claimed;
    buffer.open(QIODevice::ReadOnly);
    RawReader reader;
    reader.load(buffer, QString("bat.raw"), false);
    QCOMPARE(reader.errorText, QString("Cannot read data from 'bat.raw'"));
    QVERIFY(reader.samples.empty());

    const QString missing = m_folder.path("missing.raw");
    reader.load(missing, false);
    QCOMPARE(reader.errorText, "Cannot open file '" + missing + "'");
}

void tst_RecordingFile::unsupportedFileForgetsTheOneBefore()
{
    RecordingFile file;
    file.load(m_folder.write("first.wav", WavBytes().fmt(1).data({1, 2}).bext({}).bytes()));
    QVERIFY(file.wav().bextFound);
    file.load("second.mp3");
    QCOMPARE(file.errorText(), QString("File format not supported"));
    QCOMPARE(file.kind(), RecordingFile::Kind::Unsupported);
    QVERIFY(file.samples().empty() && !file.wav().bextFound);
    QCOMPARE(file.sampleSize() + file.bitsPerSample() + file.sampleRate(), 0);
}

void tst_RecordingFile::dateForms_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("monthFirst");
    QTest::addColumn<QString>("iso");
    const auto row = [](const char* stored, const char* monthFirst, const char* iso) {
        QTest::newRow(stored) << stored << monthFirst << iso;
    };
    row("03/14/24", "14/03/24", "");
    row("02/29/00", "29/02/00", ""); // 2000 was a leap year, 1900 was not
    row("12/31/99", "31/12/99", "");
    row("02/29/23", "", "");
    row("03-14-24", "", "");
    row("03/1x/24", "", "");
    row("2024-05-01", "", "01/05/24");
    row("2023-02-29", "", "");
    row("2024/05/01", "", "");
    row("", "", "");
}

void tst_RecordingFile::dateForms()
{
    QFETCH(QString, stored);
    QTEST(shortDateFromMonthFirst(stored), "monthFirst");
    QTEST(shortDateFromIso(stored), "iso");
}

void tst_RecordingFile::infoLine()
{
    const QLocale german(QLocale::German, QLocale::Germany);
    QCOMPARE(fileInfoText(16, 500000, 1250000, QString("14/03/24"), QString("18:10:00"), QLocale::c()),
             QString("16bit; 500000Hz; 2.500s; 14/03/24; 18:10:00"));
    QCOMPARE(fileInfoText(8, 250000, 33333, QString(), QString(), german),
             QString("8bit; 250000Hz; 0,133s; ; "));
    QCOMPARE(recordingLengthText(100, 0, german), QString("0,000"));
    QCOMPARE(recordingLengthText(3000000000u, 2000000000u, QLocale::c()), QString("1.500"));
}

QTEST_GUILESS_MAIN(tst_RecordingFile)
#include "tst_RecordingFile.moc"
