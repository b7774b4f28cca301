#include "base/SettingsStore.h"
#include "recordings/RecordingFile.h"
#include "recordings/RecordingSession.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/RecordingLoader.h"

#include <QtTest>

/// What is asked of the worker for which recording and settings; no worker runs here.
class tst_RecordingLoader : public QObject
{
    Q_OBJECT

private slots:
    void matrixLimit_data();
    void matrixLimit();
    void samplesStayWhileBusy();

private:
    QString rawOf(int samples) const;

    QTemporaryDir m_folder;
    TemporarySettings m_temporary;
};

QString tst_RecordingLoader::rawOf(int samples) const
{
    QFile file(m_folder.filePath(QStringLiteral("recording.raw")));
    if (!file.open(QIODevice::WriteOnly) || !file.resize(2LL * samples))
        qFatal("cannot write test data");
    return file.fileName();
}

void tst_RecordingLoader::matrixLimit_data()
{
    QTest::addColumn<bool>("automatic");
    QTest::addColumn<int>("storedOverlap");
    QTest::addColumn<int>("samples");
    QTest::addColumn<double>("overlap");
    QTest::addColumn<int>("storedAfterwards");

    QTest::newRow("within the limit") << true << 0 << 2400000 << 98.4375 << 0;
    QTest::newRow("one step") << true << 0 << 3000000 << 96.875 << 1;
    QTest::newRow("two steps, one stored") << true << 0 << 8000000 << 93.75 << 1;
    QTest::newRow("switched off") << false << 0 << 3000000 << 98.4375 << 0;
}

void tst_RecordingLoader::matrixLimit()
{
    QFETCH(double, overlap);
    QFETCH(int, samples);
    QFETCH(int, storedOverlap);
    QFETCH(int, storedAfterwards);
    m_temporary.clear();
    SettingsStore settings;
    QFETCH(bool, automatic);
    settings.setValue(SettingKeys::autoReduceOverlap, automatic);
    settings.setValue(SettingKeys::overlap, storedOverlap);
    settings.setValue(SettingKeys::windowSize, 0);

    RecordingSession session;
    RecordingFile file;
    ScriptedPrompts prompts;
    RecordingLoader loader(session, file, settings, prompts);
    QSignalSpy requests(&loader, &RecordingLoader::signalCalcSpektrogramm);
    QSignalSpy refreshes(&loader, &RecordingLoader::calculationSettingsChanged);
    loader.load(rawOf(samples));

    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests.first().at(5).toDouble(), overlap);
    QCOMPARE(settings.value(SettingKeys::overlap), storedAfterwards);
    const QStringList asked = prompts.takeAsked();
    QCOMPARE(asked.size(), overlap == 98.4375 ? 0 : 1);
    QCOMPARE(refreshes.size(), asked.size());
    if (!asked.isEmpty())
        QVERIFY(asked.first().endsWith(
            QStringLiteral("Current spectrogram matrix size is over the limit.\n Overlap "
                           "for this spectrogram calculation is reduced to %1%")
                .arg(overlap)));
}

void tst_RecordingLoader::samplesStayWhileBusy()
{
    m_temporary.clear();
    SettingsStore settings;
    RecordingSession session;
    RecordingFile file;
    ScriptedPrompts prompts;
    RecordingLoader loader(session, file, settings, prompts);
    QSignalSpy requests(&loader, &RecordingLoader::signalCalcSpektrogramm);
    const QString path = rawOf(5000);
    loader.load(path);
    const int* samples = session.timedata.data();

    loader.load(m_folder.filePath(QStringLiteral("another.wav")));
    loader.load(path);
    QCOMPARE(session.path, path);
    QCOMPARE(session.timedata.data(), samples);
    QCOMPARE(requests.size(), 1);

    session.busy = false;
    loader.computationEnded();
    QCOMPARE(requests.size(), 2); // the wish to load it again was kept
}

QTEST_GUILESS_MAIN(tst_RecordingLoader)
#include "tst_RecordingLoader.moc"
