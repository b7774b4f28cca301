#include "base/SettingsStore.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/AudioOutputName.h"
#include "viewer/PlaybackController.h"
#include "viewer/PlayerControls.h"

#include <QToolButton>
#include <QtTest>

/// A system on which the multimedia plug-ins are not installed. On its own, because a process looks for them
/// only once.
class tst_PlaybackWithoutService : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setLibraryPaths({}); }
    void controlsStayUsable()
    {
        const TemporarySettings store;
        SettingsStore settings;
        settings.setValue(SettingKeys::autoplay, true);
        settings.setValue(SettingKeys::loop, true);
        PlayerControls controls;
        PlaybackController controller(controls, settings);
        const std::vector<int> samples(8000, 100);
        auto* playButton = controls.findChild<QToolButton*>(QStringLiteral("playButton"));
        for (int round = 0; round < 3; ++round) {
            controller.setRecording(&samples, 8000, 16, 1, 0.5);
            controller.spectrogramShown();
            playButton->click();
            controller.setRange(0.1 * round, 0.5);
            QTest::qWait(10);
            controls.findChild<QToolButton*>(QStringLiteral("muteButton"))->click();
            controls.findChild<QToolButton*>(QStringLiteral("stopButton"))->click();
            QVERIFY(playButton->isEnabled());
            QCOMPARE(controls.state(), QMediaPlayer::StoppedState);
            QCOMPARE(playButton->toolTip(),
                     QStringLiteral("No sound: this system has no media service that could play it"));
        }
        QCOMPARE(settings.value(SettingKeys::muted), true);
        QCOMPARE(outputDeviceName(), QStringLiteral("No audio output device"));
    }
};

QTEST_MAIN(tst_PlaybackWithoutService)
#include "tst_PlaybackWithoutService.moc"
