#include "recordings/RiffChunks.h"
#include "recordings/WavReader.h"
#include "tests/support/TestFolder.h"
#include "tools/WavBytes.h"

#include <QBuffer>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

/// A file of `size` bytes that has `head` at its start, `tail` at its end and nothing between: what a test of
/// gigabytes needs. It counts what is read; bytes between head and tail cannot be read.
class HollowFile : public QIODevice
{
public:
    HollowFile(const QByteArray& head, qint64 size, const QByteArray& tail)
        : m_head(head), m_tail(tail), m_size(size)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    qint64 size() const override { return m_size; }
    qint64 bytesRead = 0;

protected:
    qint64 readData(char* to, qint64 count) override
    {
        const qint64 tailStart = m_size - m_tail.size();
        const QByteArray found = pos() < tailStart
                                     ? m_head.mid(static_cast<int>(qMin<qint64>(pos(), m_head.size())))
                                     : m_tail.mid(static_cast<int>(pos() - tailStart));
        const qint64 got = qMin<qint64>(count, found.size());
        std::copy_n(found.constData(), got, to);
        bytesRead += got;
        return got > 0 ? got : -1;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_head;
    QByteArray m_tail;
    qint64 m_size;
};

void loadBytes(WavReader& reader, const QByteArray& bytes, bool headerOnly = false)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    reader.load(buffer, headerOnly);
}

/// A file whose four samples load as {2, 3, 4, 0}; more chunks can follow.
WavBytes mono()
{
    return WavBytes().fmt(384000).data({1, 2, 3, 4});
}

WavBytes::Bext bext()
{
    return WavBytes::Bext::ofRecorder("Pip|Pip|1|");
}

const WavBytes::Time timeFields = WavBytes::Time::ofRecorder();

} // namespace

class tst_WavReader : public QObject
{
    Q_OBJECT

private slots:
    void message_data();
    void message();
    void anyCutEndsInAMessage();
    void sampleWidth_data();
    void sampleWidth();
    void longDataOfEveryWidth();
    void formatFields();
    void bextTexts();
    void otherTexts();
    void brokenChunkKeepsWhatWasRead();
    void headerOnlyReadsNoSamples();
    void headerOnlyToleratesWhatItNeedNotConvert();
    void shrinkingFileIsAReadError();
    void tooManyChunksEndTheWalk();
    void pathThatIsNoFile();
};

using Samples = std::vector<int>;
Q_DECLARE_METATYPE(Samples)

void tst_WavReader::message_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("errorText");
    QTest::addColumn<bool>("loads"); // the four samples of mono() are there
    QTest::addColumn<bool>("valid");

    const auto good = [](const char* name, const QByteArray& bytes, const QString& warning = QString()) {
        QTest::newRow(name) << bytes << warning << true << true;
    };
    const auto kept = [](const char* name, const QByteArray& bytes, const char* text) {
        QTest::newRow(name) << bytes << text << true << false;
    };
    const auto bad = [](const char* name, const QByteArray& bytes, const char* text) {
        QTest::newRow(name) << bytes << text << false << false;
    };
    WavBytes::Format compressed, extended;
    compressed.compressionCode = 3;
    extended.extension = QByteArray(2, '\0');
    const QByteArray fmt = WavBytes::fmtPayload({});
    const QByteArray bextPayload = WavBytes::bextPayload(bext());
    const QByteArray timePayload = WavBytes::timePayload(timeFields);
    const QByteArray wamdPayload = WavBytes::wamdPayload("2024-05-01", "22:10:30");
    const QString wrongSize = QString("File size in header not identical to real file size.");

    good("plain", mono().bytes());
    good("wrong RIFF size", mono().riffSize(1).bytes(), wrongSize);
    good(
        "chunks on both sides",
        WavBytes().chunk("LIST", "odd").bext(bext()).fmt(1).data({1, 2, 3, 4}).chunk("guan", "more").bytes());
    good("stray byte at the end", mono().raw("x").bytes());
    good("unknown chunk past the end", mono().chunkClaiming("junk", 0xFFFFFFFF, "abc").bytes());
    good("SPL chunk past the end", mono().chunkClaiming("SPL ", 0xFFFFFFFF, "abc").bytes());
    good("bext chunk of 338 bytes", mono().chunk("bext", bextPayload.left(338)).bytes());

    bad("empty", "", "File is not a RIFF-WAV.");
    bad("big-endian kind", mono().tags("RIFX", "WAVE").bytes(), "File is not a RIFF-WAV.");
    bad("RIFF alone", "RIFF", "File is not a WAVE file.");
    bad("other form", mono().tags("RIFF", "AVI ").bytes(), "File is not a WAVE file.");
    bad("no chunks", WavBytes().bytes(), "");
    bad("id without size", WavBytes().raw("fmt ").bytes(), "Error while reading a chunk header size.");
    bad("fmt of 18 bytes", WavBytes().fmt(extended).data({1}).bytes(), "FMT format not supported.");
    bad("fmt of 15 bytes", WavBytes().chunk("fmt ", fmt.left(15)).data({1}).bytes(),
        "WAV file read error in FMT chunk.");
    bad("float", WavBytes().fmt(compressed).data({1}).bytes(), "Compression format not supported.");
    bad("stereo", WavBytes().fmt(1, 16, 2).data({1, 2}).bytes(), "Not more than 1 channel supported.");
    bad("12 bits", WavBytes().fmt(1, 12).data({1, 2}).bytes(), "Data format not supported.");
    bad("0 bits", WavBytes().fmt(1, 0).data({1, 2}).bytes(), "Data format not supported.");
    bad("data before fmt", WavBytes().data({1, 2}).fmt(1).bytes(), "Data format not supported.");
    bad("data cut", mono().bytes().chopped(1), "WAV file read error in DATA chunk.");
    bad("data claims 4 GB", WavBytes().fmt(1).chunkClaiming("data", 0xFFFFFFFF, "abcd").bytes(),
        "WAV file read error in DATA chunk.");
    bad("zero-filled", WavBytes().raw(QByteArray(64, '\0')).bytes(), "");
    bad("padded odd chunk", WavBytes().chunk("LIST", "odd").raw(QByteArray(1, '\0')).fmt(1).data({1}).bytes(),
        "");

    kept("second fmt", mono().fmt(1).bytes(), "More then one FMT chunks.");
    kept("second data", mono().data({9}).bytes(), "Not more than one DATA chunk supported.");
    kept("half a size", mono().raw("junk\1\2\3").bytes(), "Error while reading a chunk header size.");
    kept("second bext", mono().bext({}).bext({}).bytes(), "Not more than one BEXT chunk supported.");
    kept("bext of 337 bytes", mono().chunk("bext", bextPayload.left(337)).chunk("junk", "more").bytes(),
         "WAV file read error in BEXT chunk.");
    kept("bext cut", mono().bext(bext()).bytes().chopped(1), "WAV file read error in BEXT chunk.");
    kept("bext claims 4 GB", mono().chunkClaiming("bext", 0xFFFFFFFF, bextPayload).bytes(),
         "WAV file read error in BEXT chunk.");
    kept("second TIME", mono().time({}).time({}).bytes(), "Not more than one TIME chunk supported.");
    kept("TIME of 55 bytes", mono().chunk("TIME", timePayload.left(55)).chunk("junk", "more").bytes(),
         "WAV file read error in TIME chunk.");
    kept("second wamd", mono().wamd("", "").wamd("", "").bytes(), "Not more than one WAMD chunk supported.");
    kept("wamd of 85 bytes", mono().chunk("wamd", wamdPayload.left(85)).chunk("junk", "more").bytes(),
         "WAV file read error in WAMD chunk.");
    kept("wamd of 10 bytes", mono().chunk("wamd", "0123456789").chunk("junk", QByteArray(99, 'x')).bytes(),
         "WAV file read error in WAMD chunk.");
    kept("second SPL", mono().spl("1").spl("2").bytes(), "Not more than one SPL chunk supported.");
}

void tst_WavReader::message()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, errorText);
    QFETCH(bool, loads);
    QFETCH(bool, valid);
    WavReader reader;
    loadBytes(reader, bytes);
    QCOMPARE(reader.errorText, errorText);
    QCOMPARE(reader.samples, loads ? Samples({2, 3, 4, 0}) : Samples());
    QCOMPARE(reader.valid, valid);

    WavReader header;
    loadBytes(header, bytes, true);
    QVERIFY(header.samples.empty() && !header.valid);
    if (errorText != "Data format not supported.")
        QCOMPARE(header.errorText, errorText);
}

void tst_WavReader::anyCutEndsInAMessage()
{
    const QByteArray whole = mono().time(timeFields).bext(bext()).wamd("2024-05-01", "22:10:30").bytes();
    WavReader reader;
    for (int size = 0; size < whole.size(); ++size) {
        loadBytes(reader, whole.left(size));
        const bool dataIsThere = size >= mono().bytes().size();
        QCOMPARE(reader.samples.size(), std::size_t(dataIsThere ? 4 : 0));
        const bool betweenChunks =
            reader.errorText.isEmpty() || reader.errorText.startsWith("File size in header");
        QVERIFY2(reader.valid == (dataIsThere && betweenChunks), qPrintable(QString::number(size)));
    }
}

void tst_WavReader::sampleWidth_data()
{
    QTest::addColumn<int>("bits");
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<Samples>("samples");
    const auto row = [](const char* name, int bits, const char* hex, const Samples& samples) {
        QTest::newRow(name) << bits << QByteArray::fromHex(hex) << samples;
    };
    row("8 bits are signed", 8, "55 ff 80 7f", {-1, -128, 127, 0});
    row("16 bits", 16, "5555 ffff 0080 ff7f 0201", {-1, -32768, 32767, 0x0102, 0});
    row("24 bits", 24, "555555 ffffff 000080 ffff7f 030201", {-1, -8388608, 8388607, 0x010203, 0});
    row("32 bits", 32, "55555555 ffffffff 00000080 04030201", {-1, -2147483647 - 1, 0x01020304, 0});
    row("one frame", 16, "5555", {0});
    row("none", 16, "", {});
    row("less than a frame", 24, "5555", {});
    row("two frames and a byte", 16, "5555 0201 77", {0x0102, 0});
}

void tst_WavReader::sampleWidth()
{
    QFETCH(int, bits);
    QFETCH(QByteArray, stored);
    QFETCH(Samples, samples);
    WavReader reader;
    loadBytes(reader,
              WavBytes().fmt(384000, static_cast<quint16>(bits)).dataBytes(stored).chunk("junk", "").bytes());
    QCOMPARE(reader.samples, samples);
    QCOMPARE(reader.frameCount(), static_cast<quint32>(samples.size()));
    QCOMPARE(reader.errorText, QString());
    QVERIFY(reader.valid);
}

/// Several reads, none of them even, of one value stored over and over.
void tst_WavReader::longDataOfEveryWidth()
{
    for (const int width : {1, 2, 3, 4}) {
        QByteArray stored;
        std::vector<int> values;
        for (int i = 0; i < 300001 / width; ++i) {
            const int value = i % 2 == 0 ? i % 128 : -(i % 128);
            for (int byte = 0; byte < width; ++byte)
                stored.append(static_cast<char>(value >> 8 * byte));
            values.push_back(value);
        }
        values.erase(values.begin());
        values.push_back(0);
        WavReader reader;
        loadBytes(reader, WavBytes().fmt(1, static_cast<quint16>(8 * width)).dataBytes(stored).bytes());
        QVERIFY2(reader.samples == values, qPrintable(QString::number(width)));
    }
}

void tst_WavReader::formatFields()
{
    WavBytes::Format format;
    format.sampleRate = 384000;
    format.bitsPerSample = 24;
    format.bytesPerSecond = 12; // neither of these is checked
    format.blockAlign = 34;
    WavReader reader;
    loadBytes(reader, WavBytes().fmt(format).dataBytes(QByteArray(9, '\0')).bytes());
    QVERIFY(reader.riffFound && reader.fmtFound && reader.dataFound);
    const std::vector<quint32> fields = {reader.riffSize,   reader.fmtSize,       reader.compressionCode,
                                         reader.channels,   reader.sampleRate,    reader.bytesPerSecond,
                                         reader.blockAlign, reader.bitsPerSample, reader.bytesPerSample,
                                         reader.dataSize,   reader.dataOffset};
    QCOMPARE(fields, std::vector<quint32>({45, 16, 1, 1, 384000, 12, 34, 24, 3, 9, 0}));
}

void tst_WavReader::bextTexts()
{
    WavBytes::Bext fields = bext();
    fields.description = QByteArray("N\0yc|\x01\x7F\x80\xFF|", 11) + QByteArray(200, '\0') + "end";
    WavReader reader;
    const QByteArray payload = WavBytes::bextPayload(fields).replace(338, 264, QByteArray(264, 'r'));
    loadBytes(reader, mono().chunk("bext", payload).bytes());
    QVERIFY(reader.bextFound);
    QCOMPARE(reader.bextSize, 607u);
    QCOMPARE(reader.bextDescription, QString("Nyc|\x01\x7F") + QChar(0xFF80) + QChar(0xFFFF) + "|end");
    const QStringList others = {reader.bextOriginator, reader.bextReference, reader.bextDate, reader.bextTime,
                                reader.bextCodingHistory};
    QCOMPARE(others.join(';'), QString("a recorder;reference;2024-05-01;22:10:30;A=PCM"));
}

void tst_WavReader::otherTexts()
{
    WavReader reader;
    const QByteArray level = QByteArray(" 9") + '\0' + "4.5  x" + "beyond";
    loadBytes(reader, mono().time(timeFields).wamd("2024-05-01", "22:1\xFC:30", "tail").spl(level).bytes());
    QVERIFY(reader.timeFound && reader.wamdFound && reader.splFound);
    const QVector<quint32> numbers = {reader.timeSize, reader.wamdSize, reader.splSize};
    QCOMPARE(numbers, QVector<quint32>({64, 90, 15}));
    QVERIFY(reader.timeNumber1 == -5 && reader.timeNumber2 == 7);
    const QStringList texts = {reader.timeChar1,   reader.timeRecDate, reader.timeDate,  reader.timeChar2,
                               reader.timeSecDate, reader.timeSecTime, reader.timeChar3, reader.wamdDate,
                               reader.wamdTime,    reader.splValue};
    QCOMPARE(texts.join(';'),
             QString::fromUtf8("one\xC3\xA9;14/03/24;18:10:00;two;03/15/24;18:11:39;the tail;"
                               "2024-05-01;22:1\xC3\xBC:30;94.5"));
}

void tst_WavReader::brokenChunkKeepsWhatWasRead()
{
    WavReader reader;
    loadBytes(reader, mono().chunk("bext", WavBytes::bextPayload(bext()).left(260)).bytes());
    QCOMPARE(reader.bextDescription, QString("Pip|Pip|1|"));
    QCOMPARE(reader.bextOriginator, QString());
    QVERIFY(!reader.bextFound);
    loadBytes(reader, mono().time(timeFields).bytes().chopped(20));
    QCOMPARE(reader.timeRecDate, QString("14/03/24"));
    QCOMPARE(reader.timeDate, QString("18:10:00"));
    QVERIFY(!reader.timeFound);
}

void tst_WavReader::headerOnlyReadsNoSamples()
{
    // 4 GB of data, with the class record behind them: beyond what 32-bit offsets reach.
    const quint32 dataSize = 0xFFFFFFF0;
    const QByteArray head =
        WavBytes().fmt(500000).chunkClaiming("data", dataSize, QByteArray(8192, 's')).bytes();
    const QByteArray tail = WavBytes().bext(bext()).bytes().mid(12);
    HollowFile file(head, 44 + qint64(dataSize) + tail.size(), tail);
    WavReader reader;
    reader.load(file, true);
    QCOMPARE(reader.errorText, QString("File size in header not identical to real file size."));
    QCOMPARE(reader.bextDescription, QString("Pip|Pip|1|"));
    QCOMPARE(reader.frameCount(), dataSize / 2);
    QVERIFY(reader.samples.empty() && !reader.valid);
    QVERIFY(file.bytesRead <= qint64(8192));
}

void tst_WavReader::headerOnlyToleratesWhatItNeedNotConvert()
{
    WavReader reader;
    loadBytes(reader, WavBytes().data({1, 2}).fmt(250000, 12).bext(bext()).bytes(), true);
    QCOMPARE(reader.errorText, QString());
    QCOMPARE(reader.bextDescription, QString("Pip|Pip|1|"));
    QCOMPARE(reader.sampleRate, 250000u);
    QCOMPARE(reader.dataSize, 4u);
}

void tst_WavReader::shrinkingFileIsAReadError()
{
    const QByteArray head = WavBytes().fmt(1).chunkClaiming("data", 400000, QByteArray(200000, 's')).bytes();
    HollowFile file(head, 44 + 400000, "");
    WavReader reader;
    reader.load(file, false);
    QCOMPARE(reader.errorText, QString("WAV file read error in DATA chunk."));
    QVERIFY(reader.samples.empty() && !reader.valid);
}

void tst_WavReader::tooManyChunksEndTheWalk()
{
    WavReader reader;
    const QByteArray zeros(8 * (RiffChunks::maxChunks - 2), '\0');
    loadBytes(reader, mono().raw(zeros).bytes());
    QVERIFY(reader.valid);
    loadBytes(reader, mono().raw(zeros).spl("94").bytes());
    QVERIFY(reader.valid && !reader.splFound);
    QCOMPARE(reader.samples.size(), std::size_t(4));
}

void tst_WavReader::pathThatIsNoFile()
{
    const TestFolder folder;
    QVERIFY(QDir(folder.path()).mkdir("folder.wav"));
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(folder.path("pipe.wav")).constData(), 0600), 0);
#endif
    for (const char* name : {"missing.wav", "folder.wav", "pipe.wav"}) {
        WavReader reader;
        loadBytes(reader, mono().bytes());
        reader.load(folder.path(name), false);
        QCOMPARE(reader.errorText, "Cannot open file '" + folder.path(name) + "'");
        QVERIFY(reader.samples.empty() && !reader.valid && !reader.riffFound);
    }
}

QTEST_GUILESS_MAIN(tst_WavReader)
#include "tst_WavReader.moc"
