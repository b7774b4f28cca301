// The demo night as a whole: its recordings, their files and the folder they are written to.
#include "tools/DemoFolder.h"
#include "tools/DemoNight.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <algorithm>

namespace {

using Container = DemoRecording::Container;

const DemoRecording& firstOf(const std::vector<DemoRecording>& night, Container container)
{
    return *std::find_if(night.begin(), night.end(),
                         [container](const DemoRecording& r) { return r.container == container; });
}

qint64 countOf(const std::vector<DemoRecording>& night, Container container)
{
    return std::count_if(night.begin(), night.end(),
                         [container](const DemoRecording& r) { return r.container == container; });
}

quint32 numberAt(const QByteArray& bytes, int offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

QByteArray contentOf(const QString& filePath)
{
    QFile file(filePath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A few short recordings, one of each kind.
std::vector<DemoRecording> shortNight()
{
    std::vector<DemoRecording> few;
    const std::vector<DemoRecording> night = demoNight();
    for (const Container container : {Container::Wav, Container::WavWithoutBext, Container::Raw}) {
        few.push_back(firstOf(night, container));
        few.back().length = 0.1;
    }
    return few;
}

} // namespace

class tst_DemoNight : public QObject
{
    Q_OBJECT

private slots:
    void goesFromSunsetToSunrise()
    {
        const std::vector<DemoRecording> night = demoNight();
        const QDateTime sunrise(QDate(2026, 6, 13), QTime(5, 10));
        QDateTime previous(QDate(2026, 6, 12), QTime(21, 30)); // sunset
        for (const DemoRecording& recording : night) {
            QVERIFY(recording.start > previous && recording.start < sunrise);
            QCOMPARE(QDateTime::fromString(recording.fileName().left(15), QStringLiteral("yyyyMMdd_HHmmss")),
                     recording.start);
            previous = recording.start.addMSecs(qRound64(recording.length * 1000));
        }
        QVERIFY(night.front().start.date() < night.back().start.date());
    }

    void hasAllKindsOfRecordings()
    {
        const std::vector<DemoRecording> night = demoNight();
        QVERIFY(night.size() >= 38 && night.size() <= 45);
        QCOMPARE(countOf(night, Container::Raw), 3LL);
        QCOMPARE(countOf(night, Container::WavWithoutBext), 1LL);
        QSet<int> rates;
        QSet<QByteArray> records;
        qint64 total = 0;
        int unclassified = 0;
        double longest = 0.0;
        for (const DemoRecording& recording : night) {
            rates.insert(recording.sampleRate);
            records.insert(recording.classRecord);
            total += recording.size();
            unclassified += recording.classRecord.isEmpty() ? 1 : 0;
            QVERIFY(recording.length >= 0.5 && recording.length <= 5.0);
            QVERIFY(recording.container != Container::Raw || recording.sampleRate == 500000);
            QVERIFY(recording.classRecord.isEmpty() || recording.container == Container::Wav);
            QVERIFY(recording.classRecord.size() < 256);
            longest = std::max(longest, recording.sampleRate == 500000 ? recording.length : 0.0);
        }
        QCOMPARE(rates, (QSet<int>{250000, 384000, 500000}));
        QCOMPARE(longest, 5.0);
        QVERIFY2(total < 60000000, qPrintable(QString::number(total)));
        QVERIFY(unclassified > static_cast<int>(night.size()) / 2);
        for (const char* expected :
             {"Pip + Ppyg|Pip|0|two calls", "Nyc|old comment", "|No Call|0|", "Pip|Pip|1|"})
            QVERIFY2(records.contains(expected), expected);
    }

    void everyRecordingIsHeardAndNotClipped()
    {
        int loud = 0;
        for (const DemoRecording& recording : demoNight()) {
            const std::vector<std::int16_t> samples = recording.samples();
            QCOMPARE(static_cast<qint64>(samples.size()), qRound64(recording.length * recording.sampleRate));
            const auto range = std::minmax_element(samples.begin(), samples.end());
            QVERIFY2(*range.second > 20 && *range.first < -20, qPrintable(recording.fileName()));
            QVERIFY2(*range.second < 31200 && *range.first > -31200, qPrintable(recording.fileName()));
            loud += *range.second > 300 ? 1 : 0; // -40 dB of full scale
        }
        QVERIFY2(loud >= 25, qPrintable(QString::number(loud)));
    }

    void isAlwaysTheSame()
    {
        const DemoRecording first = demoNight()[3];
        const DemoRecording again = demoNight()[3];
        QVERIFY(first.bytes() == again.bytes());
        DemoRecording other = first;
        ++other.seed;
        QVERIFY(first.bytes() != other.bytes());
    }

    void wavFilesTellTheirDate()
    {
        DemoRecording recording = firstOf(demoNight(), Container::Wav);
        recording.classRecord = "Pip|Pip|1|";
        const QByteArray bytes = recording.bytes();
        QCOMPARE(static_cast<std::int64_t>(bytes.size()), recording.size());
        QCOMPARE(numberAt(bytes, 4), static_cast<quint32>(bytes.size() - 8));
        QCOMPARE(bytes.mid(8, 8), QByteArray("WAVEfmt "));
        QCOMPARE(numberAt(bytes, 16), 16U);
        QCOMPARE(numberAt(bytes, 24), static_cast<quint32>(recording.sampleRate));
        const int bext = 36;
        QCOMPARE(bytes.mid(bext, 4), QByteArray("bext"));
        QCOMPARE(numberAt(bytes, bext + 4), 858U);
        const QByteArray fields = bytes.mid(bext + 8, 858);
        QCOMPARE(fields.left(256), QByteArray("Pip|Pip|1|").leftJustified(256, '\0'));
        QCOMPARE(fields.mid(256, 32), QByteArray("Sonavia demo").leftJustified(32, '\0'));
        QCOMPARE(fields.mid(320, 18), QByteArray("2026-06-1221:41:17"));
        QCOMPARE(bytes.mid(bext + 8 + 858, 4), QByteArray("data"));

        const DemoRecording plain = firstOf(demoNight(), Container::WavWithoutBext);
        QCOMPARE(static_cast<std::int64_t>(plain.bytes().size()), plain.size());
        QVERIFY(!plain.bytes().contains("bext"));
    }

    void rawFilesAreSamplesOnly()
    {
        const DemoRecording recording = firstOf(demoNight(), Container::Raw);
        const std::vector<std::int16_t> samples = recording.samples();
        const QByteArray bytes = recording.bytes();
        QCOMPARE(static_cast<std::int64_t>(bytes.size()), recording.size());
        QCOMPARE(static_cast<std::size_t>(bytes.size()), 2 * samples.size());
        for (std::size_t i = 0; i < samples.size(); i += 997) {
            QCOMPARE(qFromLittleEndian<qint16>(bytes.constData() + 2 * i), samples[i]);
        }
    }

    void folderGetsFilesWithTheirTimes()
    {
        const QTemporaryDir temporary;
        const QDir folder(temporary.filePath(QStringLiteral("new/night")));
        const std::vector<DemoRecording> night = shortNight();
        DemoFolder demo(folder.path());
        QVERIFY2(demo.write(night, DemoFolder::Existing::Replace), qPrintable(demo.errorText()));
        QCOMPARE(demo.writtenFiles(), 3);
        QCOMPARE(folder.entryList(QDir::Files).size(), 3);
        for (const DemoRecording& recording : night) {
            const QFileInfo file(folder.filePath(recording.fileName()));
            QCOMPARE(file.lastModified(), recording.start);
            QVERIFY(contentOf(file.filePath()) == recording.bytes());
        }
    }

    void existingFilesAreKeptOrReplaced()
    {
        const QTemporaryDir temporary;
        const QDir folder(temporary.path());
        const std::vector<DemoRecording> night = shortNight();
        const auto put = [&](const QString& name, const QByteArray& content) {
            QFile file(folder.filePath(name));
            return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
        };
        const QByteArray grown = night[1].bytes() + QByteArray(866, 'x');
        QVERIFY(put(QStringLiteral("notes.txt"), "mine"));
        QVERIFY(put(night[0].fileName(), night[0].bytes().chopped(1)));
        QVERIFY(put(night[1].fileName(), grown));

        DemoFolder demo(folder.path());
        QVERIFY(demo.write(night, DemoFolder::Existing::Keep));
        QCOMPARE(demo.writtenFiles(), 2); // the truncated and the missing one
        QVERIFY(contentOf(folder.filePath(night[0].fileName())) == night[0].bytes());
        QVERIFY(contentOf(folder.filePath(night[1].fileName())) == grown);

        QVERIFY(demo.write(night, DemoFolder::Existing::Replace));
        QCOMPARE(demo.writtenFiles(), 3);
        QVERIFY(contentOf(folder.filePath(night[1].fileName())) == night[1].bytes());
        QCOMPARE(contentOf(folder.filePath(QStringLiteral("notes.txt"))), QByteArray("mine"));
        QCOMPARE(folder.entryList(QDir::Files).size(), 4);
    }

    void impossibleFoldersAreReported()
    {
        const QTemporaryDir temporary;
        const std::vector<DemoRecording> night = shortNight();
        QFile file(temporary.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        DemoFolder noFolder(file.fileName());
        QVERIFY(!noFolder.write(night, DemoFolder::Existing::Replace));
        QVERIFY(noFolder.errorText().contains(file.fileName()));

        QVERIFY(QDir(temporary.path()).mkdir(night[0].fileName())); // a folder where the file should go
        DemoFolder blocked(temporary.path());
        QVERIFY(!blocked.write(night, DemoFolder::Existing::Replace));
        QVERIFY(blocked.errorText().contains(night[0].fileName()));
        QCOMPARE(blocked.writtenFiles(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_DemoNight)
#include "tst_DemoNight.moc"
