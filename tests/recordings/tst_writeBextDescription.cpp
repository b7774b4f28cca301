#include "recordings/WavReader.h"
#include "recordings/writeBextDescription.h"
#include "tools/WavBytes.h"

#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace {

const QString record = QStringLiteral("Pip + Ppyg|Pip|0|two calls");
constexpr int newChunk = 8 + 858;

/// A file whose calls fail as told. Calls are counted from 0 over reads, writes, seeks and resizes.
class FaultyFile : public QFile
{
public:
    using QFile::QFile;

    int calls = 0;
    int writes = 0;
    int reads = 0;
    int killedBeforeCall = -1; ///< from then on nothing happens any more, as when the process is gone
    int shortWrite = -1;       ///< this write takes `bytesTaken` bytes only
    qint64 bytesTaken = 0;
    int failingRead = -1;

    bool seek(qint64 offset) override { return alive() && QFile::seek(offset); }
    bool resize(qint64 size) override { return alive() && QFile::resize(size); }

protected:
    qint64 readData(char* bytes, qint64 count) override
    {
        return alive() && reads++ != failingRead ? QFile::readData(bytes, count) : -1;
    }
    qint64 writeData(const char* bytes, qint64 count) override
    {
        if (!alive())
            return -1;
        return QFile::writeData(bytes, writes++ == shortWrite ? qMin(count, bytesTaken) : count);
    }

private:
    bool alive() { return killedBeforeCall < 0 || calls++ < killedBeforeCall; }
};

WavBytes::Bext bext(const QByteArray& description)
{
    WavBytes::Bext fields;
    fields.description = description;
    fields.originator = "a recorder";
    fields.originatorReference = "reference";
    fields.originationDate = "2024-05-01";
    fields.originationTime = "22:10:30";
    fields.codingHistory = "A=PCM, and whatever else was done with it";
    return fields;
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

QByteArray withNewBext(const QByteArray& description)
{
    WavBytes::Bext fields;
    fields.description = description;
    fields.codingHistory = QByteArray(256, '\0');
    return withoutBext().bext(fields).bytes();
}

/// A write into a file of these bytes, described by what stands before and after.
struct Case
{
    QByteArray before;
    QByteArray after;
};

Case inPlace()
{
    return {withBext("old|x"), withBext(record.toUtf8())};
}

Case appended()
{
    return {withoutBext().bytes(), withNewBext(record.toUtf8())};
}

/// Between the two writes of a new chunk: all is there but the RIFF size.
QByteArray staleRiffSize()
{
    return appended().before + appended().after.right(newChunk);
}

} // namespace

Q_DECLARE_METATYPE(Case)

class tst_writeBextDescription : public QObject
{
    Q_OBJECT

private slots:
    void writes_data();
    void writes();
    void takingTheRecordOutAgain_data() { bothCases(); }
    void takingTheRecordOutAgain();
    void refusedFileIsUntouched_data();
    void refusedFileIsUntouched();
    void missingFileIsNotMade();
    void readOnlyFile();
    void sameTextIsNotWritten();

    void shortWriteIsUndone_data() { bothCases(); }
    void shortWriteIsUndone();
    void failedReadIsHarmless_data() { bothCases(); }
    void failedReadIsHarmless();
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
    QString path() const { return m_folder.filePath(QStringLiteral("a.wav")); }
    QString stored(const QByteArray& bytes) const
    {
        QFile::remove(path()); // some file systems sync a file that was emptied and written again
        QFile file(path());
        const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
        return written ? path() : QString();
    }
    QByteArray bytes() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Writes `record` into a file of the bytes before, with the faults that `prepare` sets.
    template <typename Prepare>
    bool writeWithFaults(const QByteArray& before, Prepare prepare) const
    {
        FaultyFile file(stored(before));
        prepare(file);
        return file.open(QIODevice::ReadWrite | QIODevice::Unbuffered) && writeBextDescription(file, record);
    }

    QTemporaryDir m_folder;
};

void tst_writeBextDescription::writes_data()
{
    QTest::addColumn<Case>("file");
    QTest::addColumn<QString>("text");
    const QByteArray longText(300, 'n');
    WavBytes::Bext overrun = bext(longText.left(256));
    overrun.originator = longText.left(32);
    overrun.originatorReference = longText.left(12); // what stood there was shorter

    QTest::newRow("in place") << inPlace() << record;
    QTest::newRow("appended") << appended() << record;
    QTest::newRow("cleared") << Case{withBext("old"), withBext("")} << QString();
    QTest::newRow("exactly the field")
        << Case{withBext("old"), withBext(QByteArray(256, 'x'))} << QString(256, QLatin1Char('x'));
    QTest::newRow("UTF-8") << Case{withBext("old"), withBext("\xc3\xa4")} << QStringLiteral("\u00e4");
    QTest::newRow("long text runs on")
        << Case{WavBytes().bext(bext("old")).data({1}).bytes(), WavBytes().bext(overrun).data({1}).bytes()}
        << QString::fromLatin1(longText);
    QTest::newRow("bext of the description only")
        << Case{WavBytes().chunk("bext", QByteArray(256, 'o')).bytes(),
                WavBytes().chunk("bext", QByteArray("x").leftJustified(256, '\0')).bytes()}
        << QStringLiteral("x");
    QTest::newRow("first of two bext") << Case{WavBytes().bext(bext("a")).bext(bext("b")).bytes(),
                                               WavBytes().bext(bext("x")).bext(bext("b")).bytes()}
                                       << QStringLiteral("x");
    QTest::newRow("no chunk at all")
        << Case{WavBytes().bytes(),
                WavBytes().chunk("bext", QByteArray("x").leftJustified(858, '\0')).bytes()}
        << QStringLiteral("x");
    QTest::newRow("broken behind the bext")
        << Case{WavBytes().bext(bext("a")).chunkClaiming("data", 99, "cut").bytes(),
                WavBytes().bext(bext("x")).chunkClaiming("data", 99, "cut").bytes()}
        << QStringLiteral("x");
}

void tst_writeBextDescription::writes()
{
    QFETCH(Case, file);
    QFETCH(QString, text);
    QVERIFY(file.before != file.after);
    QVERIFY(writeBextDescription(stored(file.before), text));
    QCOMPARE(bytes(), file.after);
}

void tst_writeBextDescription::takingTheRecordOutAgain()
{
    QFETCH(Case, file);
    QVERIFY(writeBextDescription(stored(file.before), record));
    WavReader reader;
    reader.load(path(), false);
    QCOMPARE(reader.bextDescription, record);
    QCOMPARE(reader.samples, std::vector<int>({-2, 3, 0}));

    QByteArray found = bytes();
    if (found.size() == file.before.size()) {
        QVERIFY(writeBextDescription(path(), QStringLiteral("old|x")));
        found = bytes();
    } else {
        QCOMPARE(found.size(), file.before.size() + newChunk);
        QVERIFY(reader.errorText.isEmpty()); // the RIFF size is the true one
        found.chop(newChunk);
        found.replace(4, 4, file.before.mid(4, 4));
    }
    QCOMPARE(found, file.before);
}

void tst_writeBextDescription::refusedFileIsUntouched_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("text");
    const QByteArray good = withoutBext().bytes();
    QTest::newRow("empty") << QByteArray() << record;
    QTest::newRow("nonsense") << QByteArray(500, 'x') << record;
    QTest::newRow("RIFF and no more") << good.left(6) << record;
    QTest::newRow("no RIFF") << withoutBext().tags("RIFX", "WAVE").bytes() << record;
    QTest::newRow("no WAVE") << withoutBext().tags("RIFF", "AVI ").bytes() << record;
    QTest::newRow("stray byte at the end") << good + 'x' << record;
    QTest::newRow("half a chunk header") << good + "bext12" << record;
    QTest::newRow("last chunk cut") << good.chopped(1) << record;
    QTest::newRow("chunk that lies")
        << withoutBext().chunkClaiming("junk", 0xFFFFFFFF, "abc").bext(bext("old")).bytes() << record;
    QTest::newRow("bext too short") << withoutBext().chunk("bext", QByteArray(255, 'o')).bytes() << record;
    QTest::newRow("bext cut") << withoutBext().chunkClaiming("bext", 858, QByteArray(255, 'o')).bytes()
                              << record;
    QTest::newRow("text longer than the bext")
        << withoutBext().chunk("bext", QByteArray(300, 'o')).chunk("more", "more").bytes()
        << QString(301, QLatin1Char('x'));
    QTest::newRow("text longer than a new bext") << good << QString(859, QLatin1Char('x'));
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
    const QString missing = m_folder.filePath(QStringLiteral("missing.wav"));
    QVERIFY(!writeBextDescription(missing, record));
    QVERIFY(!QFile::exists(missing));
    QVERIFY(!writeBextDescription(m_folder.path(), record));
}

void tst_writeBextDescription::readOnlyFile()
{
#ifdef Q_OS_UNIX
    const Case file = inPlace();
    stored(file.before);
    QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner | QFile::ReadOther));
    QVERIFY(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7755)));
    const uid_t user = geteuid();
    constexpr uid_t nobody = 65534;
    if (user == 0) // whom no permission stops
        QCOMPARE(seteuid(nobody), 0);
    const bool written = writeBextDescription(path(), record);
    if (user == 0)
        QCOMPARE(seteuid(user), 0);
    QVERIFY(!written);
    QCOMPARE(bytes(), file.before);
    QVERIFY(QFile::remove(path()));
#endif
}

void tst_writeBextDescription::sameTextIsNotWritten()
{
    FaultyFile file(stored(inPlace().after));
    QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    QVERIFY(writeBextDescription(file, record));
    QCOMPARE(file.writes, 0);
}

/// Every write of the run, cut after every possible count of bytes.
void tst_writeBextDescription::shortWriteIsUndone()
{
    QFETCH(Case, file);
    const QVector<int> sizes =
        file.before.size() == file.after.size() ? QVector<int>{256} : QVector<int>{newChunk, 4};
    for (int write = 0; write < sizes.size(); ++write)
        for (int taken = 0; taken < sizes.at(write); ++taken) {
            QVERIFY(!writeWithFaults(file.before, [write, taken](FaultyFile& faulty) {
                faulty.shortWrite = write;
                faulty.bytesTaken = taken;
            }));
            QVERIFY2(bytes() == file.before, qPrintable(QStringLiteral("%1, %2").arg(write).arg(taken)));
        }
}

void tst_writeBextDescription::failedReadIsHarmless()
{
    QFETCH(Case, file);
    int read = 0;
    while (!writeWithFaults(file.before, [read](FaultyFile& faulty) { faulty.failingRead = read; })) {
        QCOMPARE(bytes(), file.before);
        ++read;
    }
    QVERIFY(read >= 2); // the walk and the reading back
    QCOMPARE(bytes(), file.after);
}

/// A process that ends between any two calls. With a new chunk there is one state of the file between before
/// and after, and it is as good as both: other programs end where the RIFF size says, ours find the record.
void tst_writeBextDescription::killedProcess()
{
    QFETCH(Case, file);
    const bool appends = file.before.size() != file.after.size();
    QMap<QByteArray, int> states;
    int call = 0;
    while (!writeWithFaults(file.before, [call](FaultyFile& faulty) { faulty.killedBeforeCall = call; })) {
        const QByteArray left = bytes();
        ++states[left];
        QVERIFY(left == file.before || left == file.after || (appends && left == staleRiffSize()));
        WavReader reader;
        reader.load(path(), false);
        QCOMPARE(reader.samples, std::vector<int>({-2, 3, 0}));
        QVERIFY(writeBextDescription(path(), record)); // and the next attempt succeeds
        ++call;
    }
    QVERIFY(states.contains(file.before));
    QVERIFY(states.contains(file.after));
    QCOMPARE(states.size(), appends ? 3 : 2);
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
        stored(file.before);
        rlimit limited = before;
        limited.rlim_cur = static_cast<rlim_t>(file.before.size()) + static_cast<rlim_t>(room);
        setrlimit(RLIMIT_FSIZE, &limited);
        const bool written = writeBextDescription(path(), record);
        setrlimit(RLIMIT_FSIZE, &before);
        QCOMPARE(written, room == newChunk);
        QVERIFY2(bytes() == (written ? file.after : file.before), qPrintable(QString::number(room)));
    }
    std::signal(SIGXFSZ, signalBefore);
#endif
}

QTEST_APPLESS_MAIN(tst_writeBextDescription)
#include "tst_writeBextDescription.moc"
