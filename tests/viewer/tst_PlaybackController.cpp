#include "base/SettingsStore.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/AudioOutputName.h"
#include "viewer/PlaybackController.h"
#include "viewer/PlayerControls.h"

#include <QBuffer>
#include <QSignalSpy>
#include <QSlider>
#include <QToolButton>
#include <QtTest>

#include <list>
#include <memory>

namespace {

constexpr int sampleRate = 8000;

/// A window's worth of playback: settings, controls, controller and what it tells the plots.
struct Player
{
    std::list<std::vector<int>> sounds; // of all recordings so far
    SettingsStore settings;
    PlayerControls controls;
    std::unique_ptr<PlaybackController> controller = std::make_unique<PlaybackController>(controls, settings);
    QSignalSpy cursor{controller.get(), &PlaybackController::cursorMoved};
    QSignalSpy visible{controller.get(), &PlaybackController::cursorVisible};
    QSignalSpy label{controller.get(), &PlaybackController::timeLabelChanged};

    Player() // what the main window connects
    {
        PlaybackController* player = controller.get();
        QObject::connect(player, &PlaybackController::playerPositionChanged, player,
                         &PlaybackController::positionChanged);
        QObject::connect(player, &PlaybackController::playerStateChanged, player,
                         &PlaybackController::setAudioPlayerState);
    }
    void load(std::vector<int> samples, int rate = sampleRate)
    {
        sounds.push_back(std::move(samples));
        controller->setRecording(&sounds.back(), rate, 16, 1, 0.5);
    }
    void loadAndShow(std::vector<int> samples, int rate = sampleRate)
    {
        load(std::move(samples), rate);
        controller->spectrogramShown();
    }
    QMediaPlayer* media() const { return controller->findChild<QMediaPlayer*>(); }
    QToolButton* button(const char* name) const
    {
        return controls.findChild<QToolButton*>(QLatin1String(name));
    }
    QByteArray sound() const
    {
        const auto* buffer = media() ? qobject_cast<const QBuffer*>(media()->mediaStream()) : nullptr;
        return buffer ? buffer->data() : QByteArray();
    }
    bool timesPlayed(int count) const
    {
        return std::count(visible.cbegin(), visible.cend(), QVariantList{true}) == count;
    }
};

/// One whose end no test waits for.
std::vector<int> longSound(int first = 0)
{
    std::vector<int> samples(std::size_t(200) * sampleRate, 1000);
    samples[0] = first;
    return samples;
}

/// One that a fake sink has played at once.
std::vector<int> shortSound()
{
    return std::vector<int>(sampleRate / 4, 1000);
}

} // namespace

class tst_PlaybackController : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_store.clear(); }

    void controlsStoreVolumeAndMute()
    {
        Player player;
        const qint64 soundIcon = player.button("muteButton")->icon().cacheKey();
        player.controls.findChild<QSlider*>()->setValue(30);
        player.button("muteButton")->click();
        QCOMPARE(player.settings.value(SettingKeys::volume), 30);
        QCOMPARE(player.settings.value(SettingKeys::muted), true);
        QVERIFY(player.controls.isMuted());
        QVERIFY(player.button("muteButton")->icon().cacheKey() != soundIcon);

        // The player comes later and takes what was set before, then follows.
        player.load(longSound());
        player.controller->play();
        QCOMPARE(player.media()->volume(), 30);
        QVERIFY(player.media()->isMuted());
        player.controls.findChild<QSlider*>()->setValue(70);
        player.button("muteButton")->click();
        QCOMPARE(player.media()->volume(), 70);
        QVERIFY(!player.media()->isMuted());
        QCOMPARE(player.settings.value(SettingKeys::muted), false);

        player.media()->setVolume(12);
        player.media()->setMuted(true);
        QCOMPARE(player.controls.volume(), 12);
        QVERIFY(player.controls.isMuted());
    }

    void startsWithStoredVolume()
    {
        QCOMPARE(Player().controls.volume(), 99);
        const std::pair<QVariant, int> volumes[] = {{40, 40}, {500, 100}, {-1, 0}, {"loud", 0}};
        for (const auto& [stored, volume] : volumes) {
            QSettings().setValue(QStringLiteral("volume"), stored);
            const Player player;
            QCOMPARE(player.controls.volume(), volume);
            QVERIFY(!player.controls.isMuted());
        }
    }

    void playsOnceToTheEnd()
    {
        Player player;
        player.loadAndShow(shortSound());
        QTRY_COMPARE(player.label.last().first().toString(), QStringLiteral("00:00.000 / 00:00.250"));
        player.button("playButton")->click();
        QCOMPARE(player.controls.state(), QMediaPlayer::PlayingState);
        QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
        QVERIFY(player.timesPlayed(1));
        QCOMPARE(player.visible.last(), QVariantList{false});
        QVERIFY(std::any_of(player.cursor.cbegin(), player.cursor.cend(),
                            [](const QVariantList& seconds) { return seconds == QVariantList{0.25}; }));
    }

    void playsTheShownRange()
    {
        Player player;
        player.settings.setValue(SettingKeys::undersampling, 1);
        player.settings.setValue(SettingKeys::playbackRate, 4);
        player.loadAndShow(longSound());
        player.controller->setRange(2, 2.5);
        player.controller->play();
        const PlaybackWav::Source source{&player.sounds.back(), sampleRate, 16, 1, 0.5};
        QCOMPARE(player.sound(), PlaybackWav::make(source, 2, 2.5, 1, 4).bytes);
        QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
        // Five seconds of slowed sound ran over half a second of the recording.
        QCOMPARE(player.media()->duration(), qint64(5000));
        player.controller->positionChanged(2500);
        QCOMPARE(player.cursor.last(), QVariantList{2.25});
        QCOMPARE(player.label.last().first().toString(), QStringLiteral("00:00.250 / 00:00.500"));
    }

    void doesNothingWithoutARecording()
    {
        Player player;
        QVERIFY(!player.button("playButton")->isEnabled());
        QVERIFY(player.button("muteButton")->isEnabled());
        player.controller->togglePlay();
        player.controller->stop();
        player.controller->pause();
        player.controller->setRange(0, 1);
        player.controller->spectrogramShown();
        player.controller->audioControlsChanged();
        player.controller->setRecording(nullptr, sampleRate, 16, 1, 0.5);
        QTest::qWait(150);
        QVERIFY(player.media() == nullptr);
        QCOMPARE(player.controls.state(), QMediaPlayer::StoppedState);
    }

    void playsNothingOfAnEmptyRecording()
    {
        Player player;
        player.settings.setValue(SettingKeys::loop, true);
        player.settings.setValue(SettingKeys::autoplay, true);
        player.loadAndShow({});
        QTRY_VERIFY(player.media() != nullptr);
        QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
        const int states = player.visible.count();
        QTest::qWait(100);
        QCOMPARE(player.visible.count(), states);
    }

    void survivesSoundsThatCannotBePlayed()
    {
        for (const int rate : {0, 20, 300}) // none, declared as 0 Hz, a few Hz
            playAfterSoundOf(rate);
    }

    void waitsForTheSpectrogram()
    {
        Player player;
        player.settings.setValue(SettingKeys::autoplay, true);
        for (int round = 1; round <= 2; ++round) {
            player.load(longSound());
            player.controller->setRange(0, 100 + round);
            QTest::qWait(150);
            QVERIFY(player.timesPlayed(round - 1));
            player.controller->spectrogramShown();
            QTRY_VERIFY(player.timesPlayed(round));
        }
    }

    void playsAtOnceAfterAZoom()
    {
        Player player;
        player.settings.setValue(SettingKeys::autoplay, true);
        player.loadAndShow(shortSound());
        QTRY_VERIFY(player.timesPlayed(1));
        QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
        player.controller->setRange(0.1, 0.2);
        QTRY_VERIFY(player.timesPlayed(2));
        QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
        // Several changes in one turn of the event loop build one sound.
        player.controller->setRange(0.1, 0.15);
        player.controller->setRange(0, 0.2);
        QTRY_VERIFY(player.timesPlayed(3));
        QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
        // Nothing new, nothing played.
        player.controller->setRange(0, 0.2);
        QTest::qWait(50);
        QVERIFY(player.timesPlayed(3));
    }

    void rebuildsWithoutPlayingByItself()
    {
        Player player;
        player.loadAndShow(shortSound());
        QTRY_COMPARE(player.sound().size(), 44 + sampleRate / 2);
        player.controller->setRange(0.05, 0.15);
        player.settings.setValue(SettingKeys::undersampling, 1);
        player.controller->audioControlsChanged();
        QTRY_COMPARE(player.sound().size(), 44 + sampleRate / 10);
        QTest::qWait(30);
        QVERIFY(player.timesPlayed(0));
    }

    void startsAgainInALoop()
    {
        Player player;
        player.settings.setValue(SettingKeys::loop, true);
        player.loadAndShow(shortSound());
        player.controller->play();
        const auto rounds = [&player] {
            return std::count(player.cursor.cbegin(), player.cursor.cend(), QVariantList{0.25});
        };
        QTRY_VERIFY(rounds() >= 3);
        QVERIFY(player.timesPlayed(1)); // the cursor does not flicker between the rounds
        player.settings.setValue(SettingKeys::loop, false);
        QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
    }

    void hidesTheCursorWhenStopped()
    {
        Player player;
        player.load(longSound());
        player.controller->setAudioPlayerState(QMediaPlayer::PlayingState);
        player.controller->setAudioPlayerState(QMediaPlayer::PausedState);
        QCOMPARE(player.visible.count(), 1);
        player.controller->setAudioPlayerState(QMediaPlayer::StoppedState);
        QCOMPARE(player.visible.last(), QVariantList{false});

        player.controller->togglePlay();
        QCOMPARE(player.controls.state(), QMediaPlayer::PlayingState);
        QCOMPARE(player.button("playButton")->accessibleName(), QStringLiteral("Pause"));
        player.button("playButton")->click();
        QCOMPARE(player.controls.state(), QMediaPlayer::PausedState);
        player.button("playButton")->click();
        QCOMPARE(player.controls.state(), QMediaPlayer::PlayingState);
        player.controller->togglePlay();
        QCOMPARE(player.controls.state(), QMediaPlayer::PausedState);
        player.button("stopButton")->click();
        QCOMPARE(player.controls.state(), QMediaPlayer::StoppedState);
        QCOMPARE(player.visible.last(), QVariantList{false});
        emit player.media()->positionChanged(250); // a late word about where it was
        QVERIFY(player.label.last().first().toString().startsWith(QStringLiteral("00:00.000")));
    }

    void stopsForTheNextRecording()
    {
        Player player;
        player.loadAndShow(longSound());
        player.controller->play();
        player.controller->clearRecording();
        QCOMPARE(player.controls.state(), QMediaPlayer::StoppedState);
        QVERIFY(!player.button("playButton")->isEnabled());
        QVERIFY(player.sound().isEmpty());
        QCOMPARE(player.label.last().first().toString(), QStringLiteral("00:00.000 / 00:00.000"));

        player.loadAndShow(longSound(7));
        QVERIFY(player.button("playButton")->isEnabled());
        player.controller->play();
        const PlaybackWav::Source source{&player.sounds.back(), sampleRate, 16, 1, 0.5};
        QCOMPARE(player.sound(), PlaybackWav::make(source, 0, 200, 0, 0).bytes);
    }

    void survivesManySounds()
    {
        Player player;
        player.settings.setValue(SettingKeys::autoplay, true);
        player.loadAndShow(longSound());
        player.controller->play();
        QSignalSpy errors(player.media(), QOverload<QMediaPlayer::Error>::of(&QMediaPlayer::error));
        for (int swap = 0; swap < 200; ++swap) {
            player.loadAndShow(std::vector<int>(sampleRate + 2 * swap, swap));
            QTest::qWait(swap % 8);
            if (swap % 3 == 0)
                player.controller->setRange(0.1, 0.9);
            QTest::qWait(swap % 5);
            player.controller->clearRecording();
            player.sounds.clear();
        }
        player.loadAndShow(shortSound());
        player.controller->play();
        QTRY_COMPARE(player.media()->mediaStatus(), QMediaPlayer::EndOfMedia);
        QCOMPARE(errors.count(), 0);
    }

    void survivesItsControls()
    {
        // The window closes while it plays: its widgets go first, and nobody is told about the end.
        SettingsStore settings;
        auto controls = std::make_unique<PlayerControls>();
        auto controller = std::make_unique<PlaybackController>(*controls, settings);
        QSignalSpy states(controller.get(), &PlaybackController::playerStateChanged);
        const std::vector<int> samples = longSound();
        controller->setRecording(&samples, sampleRate, 16, 1, 0.5);
        controller->play();
        QCOMPARE(states.count(), 1);
        controls.reset();
        controller.reset();
        QCOMPARE(states.count(), 1);
    }

    void tellsWhyNothingIsHeard()
    {
        Player player;
        player.loadAndShow(longSound());
        QTRY_VERIFY(player.media() != nullptr);
        const QString toolTip = player.button("playButton")->toolTip();
        if (hasOutputDevice()) {
            QCOMPARE(toolTip, QStringLiteral("Play"));
            QVERIFY(!outputDeviceName().isEmpty());
        } else {
            QCOMPARE(toolTip, QStringLiteral("No sound: there is no audio output device"));
            QCOMPARE(outputDeviceName(), QStringLiteral("No audio output device"));
        }
        player.controller->play();
        QCOMPARE(player.controls.state(), QMediaPlayer::PlayingState);
    }

private:
    static void playAfterSoundOf(int rate)
    {
        Player player;
        player.settings.setValue(SettingKeys::undersampling, 5);
        player.settings.setValue(SettingKeys::playbackRate, 6);
        player.loadAndShow(shortSound(), rate);
        player.controller->play();
        QTest::qWait(50);
        player.controller->stop();
        QCOMPARE(player.controls.state(), QMediaPlayer::StoppedState);

        player.settings.setValue(SettingKeys::playbackRate, 0);
        player.loadAndShow(shortSound());
        player.controller->play();
        QCOMPARE(player.controls.state(), QMediaPlayer::PlayingState);
        QTRY_COMPARE(player.media()->mediaStatus(), QMediaPlayer::EndOfMedia);
    }

    TemporarySettings m_store;
};

QTEST_MAIN(tst_PlaybackController)
#include "tst_PlaybackController.moc"
