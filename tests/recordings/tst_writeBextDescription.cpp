#include "recordings/WavReader.h"
#include "recordings/writeBextDescription.h"
#include "tests/support/TestFolder.h"
#include "tools/WavBytes.h"

#include <QtTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace {

const QString record = "Pip + Ppyg|Pip|0|two calls";
constexpr int newChunk = 8 + 858;

/// A file whose calls fail as told. Calls are counted from 0 over reads, writes, seeks and resizes.
class FaultyFile : public QFile
{
public:
    using QFile::QFile;

    int calls = 0;
    int writes = 0;
    int failingCall = -1;
    bool dies = false; ///< no call after the failing one does anything either, as when the process is gone
    int faultyWrite = -1;
    int bytesTaken = std::numeric_limits<int>::max(); ///< by the faulty write, which says so
    int wrongByte = -1;                               ///< the faulty write stores this one as another

    bool seek(qint64 offset) override { return works() && QFile::seek(offset); }
    bool resize(qint64 size) override { return works() && QFile::resize(size); }

protected:
    qint64 readData(char* bytes, qint64 count) override
    {
        return works() ? QFile::readData(bytes, count) : -1;
    }
    qint64 writeData(const char* bytes, qint64 count) override
    {
        if (!works())
            return -1;
        QByteArray taken(bytes, static_cast<int>(count));
        if (writes++ == faultyWrite) {
            taken.truncate(bytesTaken);
            if (wrongByte >= 0)
                taken[wrongByte] = static_cast<char>(~taken.at(wrongByte));
        }
        return QFile::writeData(taken.constData(), taken.size());
    }

private:
    bool works()
    {
        const int call = calls++;
        return failingCall < 0 || call < failingCall || (call > failingCall && !dies);
    }
};

WavBytes::Bext bext(const QByteArray& description)
{
    return WavBytes::Bext::ofRecorder(description);
}

/// Neighbours on all sides, odd sizes among them.
QByteArray withBext(const QByteArray& description)
{
    return WavBytes()
        .chunk("LIST", "odd")
        .fmt(384000)
        .bext(bext(description))
        .data({1, -2, 3})
        .wamd("2024-05-01", "22:10:30")
        .riffSize(17)
        .bytes();
}

WavBytes withoutBext()
{
    return WavBytes().fmt(384000).data({1, -2, 3}).chunk("guan", "odd");
}

/// A write into a file of these bytes, described by what stands before and after.
struct Case
{
    QByteArray before;
    QByteArray after;
    bool appends() const { return before.size() != after.size(); }
    /// Between the two writes of a new chunk: all is there but the RIFF size.
    QByteArray staleRiffSize() const { return before + after.right(newChunk); }
};

Case inPlace()
{
    return {withBext("old|x"), withBext(record.toUtf8())};
}

Case appended()
{
    WavBytes::Bext fields;
    fields.description = record.toUtf8();
    fields.codingHistory = QByteArray(256, '\0');
    return {withoutBext().bytes(), withoutBext().bext(fields).bytes()};
}

} // namespace

Q_DECLARE_METATYPE(Case)

class tst_writeBextDescription : public QObject
{
    Q_OBJECT

private slots:
    void writes_data();
    void writes();
    void refusedFileIsUntouched_data();
    void refusedFileIsUntouched();
    void missingFileIsNotMade();
    void readOnlyFile_data() { bothCases(); }
    void readOnlyFile();
    void sameTextIsNotWritten();
    void faults_data() { bothCases(); }
    void faults();
    void killedProcess_data() { bothCases(); }
    void killedProcess();
    void fullDisk();

private:
    static void bothCases()
    {
        QTest::addColumn<Case>("file");
        QTest::newRow("in place") << inPlace();
        QTest::newRow("appended") << appended();
    }
    QString stored(const QByteArray& bytes) const { return m_folder.write("a.wav", bytes); }
    QByteArray bytes() const { return m_folder.bytes("a.wav"); }

    /// Writes `record` into a file of the bytes before, with the faults that `prepare` sets.
    template <typename Prepare>
    bool writeWithFaults(const Case& file, Prepare prepare) const
    {
        FaultyFile faulty(stored(file.before));
        prepare(faulty);
        return faulty.open(QIODevice::ReadWrite | QIODevice::Unbuffered) &&
               writeBextDescription(faulty, record);
    }
    int callsOf(const Case& file) const
    {
        FaultyFile faultless(stored(file.before));
        const bool written = faultless.open(QIODevice::ReadWrite | QIODevice::Unbuffered) &&
                             writeBextDescription(faultless, record);
        return written ? faultless.calls : 0;
    }

    TestFolder m_folder;
};

void tst_writeBextDescription::writes_data()
{
    QTest::addColumn<Case>("file");
    QTest::addColumn<QString>("text");
    const QByteArray longText(300, 'n');
    WavBytes::Bext overrun = bext(longText.left(256));
    overrun.originator = longText.left(32);
    overrun.originatorReference = longText.left(12); // what stood there was shorter
    const auto row = [](const char* name, const WavBytes& before, const WavBytes& after,
                        const QString& text = "x") {
        QTest::newRow(name) << Case{before.bytes(), after.bytes()} << text;
    };
    const auto raw = [](const QByteArray& description, int size) {
        return WavBytes().chunk("bext", description.leftJustified(size, '\0'));
    };
    const WavBytes old = WavBytes().bext(bext("old"));

    QTest::newRow("in place") << inPlace() << record;
    QTest::newRow("appended") << appended() << record;
    row("cleared", old, WavBytes().bext(bext("")), "");
    row("exactly the field", old, WavBytes().bext(bext(QByteArray(256, 'x'))), QString(256, 'x'));
    row("UTF-8", old, WavBytes().bext(bext("\xc3\xa4")), QString::fromUtf8("\xc3\xa4"));
    row("long text runs on", old, WavBytes().bext(overrun), longText);
    row("bext of the description only", raw("old", 256), raw("x", 256));
    row("first of two bext", WavBytes(old).bext(bext("b")), WavBytes().bext(bext("x")).bext(bext("b")));
    row("no chunk at all", WavBytes(), raw("x", 858));
    row("broken behind the bext", WavBytes(old).chunkClaiming("data", 99, "cut"),
        WavBytes().bext(bext("x")).chunkClaiming("data", 99, "cut"));
}

void tst_writeBextDescription::writes()
{
    QFETCH(Case, file);
    QFETCH(QString, text);
    QVERIFY(file.before != file.after);
    QVERIFY(writeBextDescription(stored(file.before), text));
    QCOMPARE(bytes(), file.after);
}

void tst_writeBextDescription::refusedFileIsUntouched_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("text");
    const QByteArray good = withoutBext().bytes();
    const auto row = [](const char* name, const QByteArray& before, const QString& text = record) {
        QTest::newRow(name) << before << text;
    };
    row("empty", "");
    row("nonsense", QByteArray(500, 'x'));
    row("RIFF and no more", good.left(6));
    row("no RIFF", withoutBext().tags("RIFX", "WAVE").bytes());
    row("no WAVE", withoutBext().tags("RIFF", "AVI ").bytes());
    row("stray byte at the end", good + 'x');
    row("half a chunk header", good + "bext12");
    row("last chunk cut", good.chopped(1));
    row("chunk that lies", withoutBext().chunkClaiming("junk", 0xFFFFFFFF, "abc").bext(bext("old")).bytes());
    row("bext too short", withoutBext().chunk("bext", QByteArray(255, 'o')).chunk("more", "more").bytes());
    row("bext cut", withoutBext().chunkClaiming("bext", 858, QByteArray(255, 'o')).bytes());
    row("text longer than the bext",
        withoutBext().chunk("bext", QByteArray(300, 'o')).chunk("more", "more").bytes(), QString(301, 'x'));
    row("text longer than a new bext", good, QString(859, 'x'));
}

void tst_writeBextDescription::refusedFileIsUntouched()
{
    QFETCH(QByteArray, before);
    QFETCH(QString, text);
    QVERIFY(!writeBextDescription(stored(before), text));
    QCOMPARE(bytes(), before);
}

void tst_writeBextDescription::missingFileIsNotMade()
{
    QVERIFY(!writeBextDescription(m_folder.path("missing.wav"), record));
    QVERIFY(!QFile::exists(m_folder.path("missing.wav")));
    QVERIFY(!writeBextDescription(m_folder.path(), record));
}

void tst_writeBextDescription::readOnlyFile()
{
#ifdef Q_OS_UNIX
    QFETCH(Case, file);
    const QString path = stored(file.before);
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther));
    QVERIFY(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7755)));
    const uid_t user = geteuid();
    constexpr uid_t nobody = 65534;
    if (user == 0) // whom no permission stops
        QCOMPARE(seteuid(nobody), 0);
    const bool written = writeBextDescription(path, record);
    if (user == 0)
        QCOMPARE(seteuid(user), 0);
    QVERIFY(!written);
    QCOMPARE(bytes(), file.before);
#endif
}

void tst_writeBextDescription::sameTextIsNotWritten()
{
    FaultyFile file(stored(inPlace().after));
    QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    QVERIFY(writeBextDescription(file, record));
    QCOMPARE(file.writes, 0);
}

/// One fault in each possible place: a write that takes every possible count of bytes, a write that stores
/// any one byte as another, a call that fails. What is said to be written is written, else nothing changed.
void tst_writeBextDescription::faults()
{
    QFETCH(Case, file);
    const QVector<int> sizes = file.appends() ? QVector<int>{newChunk, 4} : QVector<int>{256};
    for (int write = 0; write < sizes.size(); ++write)
        for (int byte = 0; byte < sizes.at(write); ++byte)
            for (const bool cut : {true, false}) {
                QVERIFY(!writeWithFaults(file, [=](FaultyFile& faulty) {
                    faulty.faultyWrite = write;
                    (cut ? faulty.bytesTaken : faulty.wrongByte) = byte;
                }));
                QVERIFY2(bytes() == file.before, qPrintable(QString("%1, %2").arg(write).arg(byte)));
            }

    const int calls = callsOf(file);
    for (int call = 0; call < calls; ++call) {
        QVERIFY(!writeWithFaults(file, [call](FaultyFile& faulty) { faulty.failingCall = call; }));
        QVERIFY2(bytes() == file.before, qPrintable(QString::number(call)));
    }
    const int bytesWritten = std::accumulate(sizes.cbegin(), sizes.cend(), 0);
    qInfo("%d writes cut short, %d wrong bytes, %d failing calls", bytesWritten, bytesWritten, calls);
}

/// A process that ends before any of its calls. With a new chunk there is one state of the file between
/// before and after, and it is as good as both: other programs end where the RIFF size says, ours find the
/// record.
void tst_writeBextDescription::killedProcess()
{
    QFETCH(Case, file);
    QMap<QByteArray, int> states;
    const int calls = callsOf(file);
    for (int call = 0; call <= calls; ++call) {
        writeWithFaults(file, [call](FaultyFile& faulty) {
            faulty.failingCall = call;
            faulty.dies = true;
        });
        const QByteArray left = bytes();
        ++states[left];
        QVERIFY(left == file.before || left == file.after ||
                (file.appends() && left == file.staleRiffSize()));
        WavReader reader;
        reader.load(m_folder.path("a.wav"), false);
        QCOMPARE(reader.samples, std::vector<int>({-2, 3, 0}));
        QVERIFY(writeBextDescription(m_folder.path("a.wav"), record)); // and the next attempt succeeds
        QCOMPARE(bytes(), left == file.before ? file.after : left);
    }
    QCOMPARE(states.size(), file.appends() ? 3 : 2);
    qInfo("killed before %d calls: as before %d times, as after %d times, stale RIFF size %d times", calls,
          states.value(file.before), states.value(file.after),
          file.appends() ? states.value(file.staleRiffSize()) : 0);
}

/// The system's own short writes: the disk takes every possible part of a new chunk, and no more.
void tst_writeBextDescription::fullDisk()
{
#ifdef Q_OS_UNIX
    const Case file = appended();
    rlimit before = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    for (int room = 0; room <= newChunk; ++room) {
        const QString path = stored(file.before);
        rlimit limited = before;
        limited.rlim_cur = static_cast<rlim_t>(file.before.size()) + static_cast<rlim_t>(room);
        setrlimit(RLIMIT_FSIZE, &limited);
        const bool written = writeBextDescription(path, record);
        setrlimit(RLIMIT_FSIZE, &before);
        QCOMPARE(written, room == newChunk);
        QVERIFY2(bytes() == (written ? file.after : file.before), qPrintable(QString::number(room)));
    }
    std::signal(SIGXFSZ, signalBefore);
#endif
}

QTEST_APPLESS_MAIN(tst_writeBextDescription)
#include "tst_writeBextDescription.moc"
