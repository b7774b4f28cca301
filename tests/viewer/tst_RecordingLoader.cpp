#include "base/SettingsStore.h"
#include "recordings/RecordingFile.h"
#include "recordings/RecordingSession.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/Table.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/RecordingLoader.h"

#include <QtTest>

/// What is asked of the worker for which recording and settings; no worker runs here.
class tst_RecordingLoader : public QObject
{
    Q_OBJECT

    // Whether it is automatic, stored overlap, samples; overlap, stored overlap afterwards.
    using MatrixLimitRow = Table<bool, int, int, double, int>;

private slots:
    void matrixLimit_data()
    {
        MatrixLimitRow row;
        row("within the limit", true, 0, 2400000, 98.4375, 0);
        row("one step", true, 0, 3000000, 96.875, 1);
        row("two steps, one stored", true, 0, 8000000, 93.75, 1);
        row("switched off", false, 0, 3000000, 98.4375, 0);
    }
    void matrixLimit()
    {
        const auto& [automatic, storedOverlap, samples, overlap, storedAfterwards] = MatrixLimitRow::row();
        m_temporary.clear();
        SettingsStore settings;
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

    void samplesStayWhileBusy()
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

        const QString another = m_folder.filePath(QStringLiteral("another.raw"));
        QVERIFY(QFile::copy(path, another));
        loader.load(path);
        loader.loadWhenIdle(another);
        loader.load(path);
        QCOMPARE(session.path, path);
        QCOMPARE(session.timedata.data(), samples);
        QCOMPARE(requests.size(), 1);

        session.busy = false;
        loader.computationEnded();
        QCOMPARE(requests.size(), 2);
        QCOMPARE(session.path, another);
        session.busy = false;
        loader.computationEnded();
        QCOMPARE(requests.size(), 2); // nothing waits any more
    }

private:
    QString rawOf(int samples) const
    {
        QFile file(m_folder.filePath(QStringLiteral("recording.raw")));
        if (!file.open(QIODevice::WriteOnly) || !file.resize(2LL * samples))
            qFatal("cannot write test data");
        return file.fileName();
    }

    QTemporaryDir m_folder;
    TemporarySettings m_temporary;
};

QTEST_GUILESS_MAIN(tst_RecordingLoader)
#include "tst_RecordingLoader.moc"
