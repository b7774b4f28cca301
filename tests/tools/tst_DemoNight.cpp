// The demo night as a whole: its recordings, their files and the folder they are written to.
#include "recordings/RecorderResult.h"
#include "recordings/RecordingFile.h"
#include "tests/evaluation/folderContents.h"
#include "tools/DemoFolder.h"
#include "tools/DemoNight.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace {

using Container = DemoRecording::Container;

const DemoRecording& firstOf(const std::vector<DemoRecording>& night, Container container)
{
    return *std::find_if(night.begin(), night.end(),
                         [container](const DemoRecording& r) { return r.container == container; });
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
    few.front().classRecord = "Pip|Pip|1|";
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
    }

    void hasAllKindsOfFiles()
    {
        QMap<Container, int> containers;
        QSet<int> rates;
        QSet<QByteArray> records;
        qint64 total = 0;
        int unclassified = 0;
        for (const DemoRecording& recording : demoNight()) {
            ++containers[recording.container];
            rates.insert(recording.sampleRate);
            records.insert(recording.classRecord);
            total += recording.size();
            unclassified += recording.classRecord.isEmpty() ? 1 : 0;
            QVERIFY(recording.container != Container::Raw || recording.sampleRate == 500000);
            QVERIFY(recording.classRecord.isEmpty() || recording.container == Container::Wav);
        }
        QVERIFY(containers[Container::Raw] == 3 && containers[Container::WavWithoutBext] == 1);
        QCOMPARE(rates, (QSet<int>{250000, 384000, 500000}));
        QVERIFY(
            records.contains({"Pip + Ppyg|Pip|0|two calls", "Nyc|old comment", "|No Call|0|", "Pip|Pip|1|"}));
        QVERIFY(unclassified > 20);
        QVERIFY2(total < 60000000, qPrintable(QString::number(total)));
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

    void readerGetsWhatWasMade()
    {
        const QTemporaryDir folder;
        for (const DemoRecording& recording : shortNight()) {
            QVERIFY(DemoFolder(folder.path()).write({recording}, DemoFolder::Existing::Replace));
            RecordingFile file;
            file.load(folder.filePath(recording.fileName()));
            QVERIFY(file.errorText().isEmpty());
            QCOMPARE(QFileInfo(folder.filePath(recording.fileName())).size(), recording.size());
            QCOMPARE(file.sampleRate(), recording.sampleRate);
            const std::vector<std::int16_t> samples = recording.samples();
            QVERIFY(std::equal(samples.begin() + 1, samples.end(), file.samples().begin()));
            if (recording.container == Container::Raw)
                continue;
            const bool hasBext = recording.container == Container::Wav;
            QCOMPARE(qint64(file.wav().riffSize), recording.size() - 8);
            QCOMPARE(file.wav().bextDate + file.wav().bextTime, QString(hasBext ? "2026-06-1221:41:17" : ""));
            QCOMPARE(file.wav().bextDescription, QString(hasBext ? "Pip|Pip|1|" : ""));
        }
    }

    /// The review finds something to accept, to correct and to look for in either class tree.
    void recorderAnalysedMostRecordings()
    {
        const QTemporaryDir folder;
        const QString resultFile = folder.filePath("calls_ch1_files.txt");
        QByteArray lines;
        for (const DemoRecording& recording : demoNight())
            lines += recording.resultLine();
        QVERIFY(writeBytes(resultFile, lines));
        for (const auto mode : {RecorderResult::Mode::Groups, RecorderResult::Mode::Species}) {
            QMap<QString, int> found;
            RecorderResult results;
            for (const DemoRecording& recording : demoNight()) {
                const QString proposal = results.proposal(resultFile, recording.fileName(), mode);
                ++found[proposal.contains(", ") ? QString("several") : proposal];
            }
            const bool species = mode == RecorderResult::Mode::Species;
            QVERIFY(found["No Call"] > 4 && found["several"] > 2 && found[""] > 5); // of those, 3 raw files
            QVERIFY(found[species ? "Ppip" : "Pip"] > 2 && found[species ? "Nnoc" : "Nyc"] > 1);
        }
    }

    /// A night made before there were results gets them, too.
    void existingFilesAreKeptOrReplaced()
    {
        const QTemporaryDir temporary;
        const QDir folder(temporary.filePath("new/night"));
        const std::vector<DemoRecording> night = shortNight();
        const QString wav = folder.filePath(night[0].fileName());
        const QString plain = folder.filePath(night[1].fileName());
        const QString results = folder.filePath("calls_ch1_files.txt");
        DemoFolder demo(folder.path());
        QVERIFY2(demo.write(night, DemoFolder::Existing::Replace), qPrintable(demo.errorText()));
        QCOMPARE(demo.writtenFiles(), 3);
        QCOMPARE(folder.entryList(QDir::Files).size(), 4);
        QCOMPARE(QFileInfo(wav).lastModified(), night[0].start);
        const QByteArray resultLines = bytesOf(results);
        QCOMPARE(resultLines, night[0].resultLine() + night[1].resultLine());

        const QByteArray grown = night[1].bytes() + QByteArray(866, 'x');
        QVERIFY(writeBytes(folder.filePath("notes.txt"), "mine") && QFile::remove(results));
        QVERIFY(writeBytes(wav, night[0].bytes().chopped(1)) && writeBytes(plain, grown));
        QVERIFY(demo.write(night, DemoFolder::Existing::Keep));
        QCOMPARE(demo.writtenFiles(), 1); // the truncated one
        QVERIFY(bytesOf(wav) == night[0].bytes() && bytesOf(plain) == grown);
        QCOMPARE(bytesOf(results), resultLines);

        QVERIFY(writeBytes(results, "edited") && demo.write(night, DemoFolder::Existing::Keep));
        QCOMPARE(bytesOf(results), QByteArray("edited"));
        QVERIFY(demo.write(night, DemoFolder::Existing::Replace) && bytesOf(plain) == night[1].bytes());
        QCOMPARE(bytesOf(results), resultLines);
        QCOMPARE(bytesOf(folder.filePath("notes.txt")), QByteArray("mine"));
    }

    void impossibleFoldersAreReported()
    {
        const QTemporaryDir temporary;
        const std::vector<DemoRecording> night = shortNight();
        QVERIFY(writeBytes(temporary.filePath("file"), "no folder"));
        DemoFolder noFolder(temporary.filePath("file"));
        QVERIFY(!noFolder.write(night, DemoFolder::Existing::Replace));
        QVERIFY(noFolder.errorText().contains(temporary.filePath("file")));

        for (const QString& name : {QStringLiteral("calls_ch1_files.txt"), night[0].fileName()}) {
            const QTemporaryDir folder;
            QVERIFY(QDir(folder.path()).mkdir(name)); // a folder where the file should go
            DemoFolder blocked(folder.path());
            QVERIFY(!blocked.write(night, DemoFolder::Existing::Replace));
            QVERIFY(blocked.errorText().contains(name));
        }
    }
};

QTEST_GUILESS_MAIN(tst_DemoNight)
#include "tst_DemoNight.moc"
