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

#include <memory>

namespace {

constexpr int sampleRate = 8000;

/// A window's worth of playback: settings, controls, controller and what it tells the plots.
struct Player
{
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
    void load(const std::vector<int>& samples) { controller->setRecording(&samples, sampleRate, 16, 1, 0.5); }
    void loadAndShow(const std::vector<int>& samples)
    {
        load(samples);
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

/// One that the clock of the test never waits for: 200 s; the one above ends at once in a fake sink.
std::vector<int> longSound(int first = 0)
{
    std::vector<int> samples(std::size_t(200) * sampleRate, 1000);
    samples[0] = first;
    return samples;
}

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

    void controlsAskAndShow();
    void controlsStoreVolumeAndMute();
    void startsWithStoredVolume_data();
    void startsWithStoredVolume();
    void playsOnceToTheEnd();
    void playsTheShownRange();
    void doesNothingWithoutARecording();
    void playsNothingOfAnEmptyRecording();
    void survivesSoundsThatCannotBePlayed_data();
    void survivesSoundsThatCannotBePlayed();
    void waitsForTheSpectrogram();
    void playsAtOnceAfterAZoom();
    void rebuildsWithoutPlayingByItself();
    void startsAgainInALoop();
    void hidesTheCursorWhenStopped();
    void stopsForTheNextRecording();
    void survivesManySounds();
    void survivesItsControls();
    void tellsWhyNothingIsHeard();

private:
    TemporarySettings m_store;
};

void tst_PlaybackController::controlsAskAndShow()
{
    PlayerControls controls;
    controls.setPlayable(true);
    QSignalSpy play(&controls, &PlayerControls::play);
    QSignalSpy pause(&controls, &PlayerControls::pause);
    QSignalSpy stop(&controls, &PlayerControls::stop);
    QSignalSpy muting(&controls, &PlayerControls::changeMuting);
    auto* playButton = controls.findChild<QToolButton*>(QStringLiteral("playButton"));

    playButton->click();
    controls.setState(QMediaPlayer::PlayingState);
    QCOMPARE(playButton->accessibleName(), QStringLiteral("Pause"));
    playButton->click();
    controls.setState(QMediaPlayer::PausedState);
    playButton->click();
    QCOMPARE(play.count(), 2);
    QCOMPARE(pause.count(), 1);

    controls.findChild<QToolButton*>(QStringLiteral("stopButton"))->click();
    QCOMPARE(stop.count(), 1);

    auto* muteButton = controls.findChild<QToolButton*>(QStringLiteral("muteButton"));
    const qint64 soundIcon = muteButton->icon().cacheKey();
    muteButton->click();
    controls.setMuted(true);
    QVERIFY(muteButton->icon().cacheKey() != soundIcon);
    muteButton->click();
    QCOMPARE(muting.takeFirst(), QVariantList{true});
    QCOMPARE(muting.takeFirst(), QVariantList{false});
}

void tst_PlaybackController::controlsStoreVolumeAndMute()
{
    Player player;
    player.controls.findChild<QSlider*>()->setValue(30);
    player.button("muteButton")->click();
    QCOMPARE(player.settings.value(SettingKeys::volume), 30);
    QCOMPARE(player.settings.value(SettingKeys::muted), true);
    QVERIFY(player.controls.isMuted());

    // The player comes later and takes what was set before, then follows.
    const std::vector<int> samples = longSound();
    player.load(samples);
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

void tst_PlaybackController::startsWithStoredVolume_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("volume");
    QTest::newRow("nothing") << QVariant() << 99;
    QTest::newRow("some") << QVariant(40) << 40;
    QTest::newRow("too much") << QVariant(500) << 100;
    QTest::newRow("negative") << QVariant(-1) << 0;
    QTest::newRow("text") << QVariant(QStringLiteral("loud")) << 0;
}

void tst_PlaybackController::startsWithStoredVolume()
{
    QFETCH(QVariant, stored);
    if (stored.isValid())
        QSettings().setValue(QStringLiteral("volume"), stored);
    const Player player;
    QTEST(player.controls.volume(), "volume");
    QVERIFY(!player.controls.isMuted());
}

void tst_PlaybackController::playsOnceToTheEnd()
{
    Player player;
    const std::vector<int> samples = shortSound();
    player.loadAndShow(samples);
    QTRY_COMPARE(player.label.last().first().toString(), QStringLiteral("00:00.000 / 00:00.250"));
    player.button("playButton")->click();
    QCOMPARE(player.controls.state(), QMediaPlayer::PlayingState);
    QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
    QVERIFY(player.timesPlayed(1));
    QCOMPARE(player.visible.last(), QVariantList{false});
    QVERIFY(std::any_of(player.cursor.cbegin(), player.cursor.cend(),
                        [](const QVariantList& seconds) { return seconds == QVariantList{0.25}; }));
}

void tst_PlaybackController::playsTheShownRange()
{
    Player player;
    player.settings.setValue(SettingKeys::undersampling, 1);
    player.settings.setValue(SettingKeys::playbackRate, 4);
    const std::vector<int> samples = longSound();
    player.loadAndShow(samples);
    player.controller->setRange(2, 2.5);
    player.controller->play();
    const PlaybackWav::Source source{&samples, sampleRate, 16, 1, 0.5};
    QCOMPARE(player.sound(), PlaybackWav::make(source, 2, 2.5, 1, 4).bytes);
    QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
    // Five seconds of slowed sound ran over half a second of the recording.
    QCOMPARE(player.media()->duration(), qint64(5000));
    player.controller->positionChanged(2500);
    QCOMPARE(player.cursor.last(), QVariantList{2.25});
    QCOMPARE(player.label.last().first().toString(), QStringLiteral("00:00.250 / 00:00.500"));
}

void tst_PlaybackController::doesNothingWithoutARecording()
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

void tst_PlaybackController::playsNothingOfAnEmptyRecording()
{
    Player player;
    player.settings.setValue(SettingKeys::loop, true);
    player.settings.setValue(SettingKeys::autoplay, true);
    const std::vector<int> samples;
    player.loadAndShow(samples);
    QTRY_VERIFY(player.media() != nullptr);
    QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
    const int states = player.visible.count();
    QTest::qWait(100);
    QCOMPARE(player.visible.count(), states);
}

void tst_PlaybackController::survivesSoundsThatCannotBePlayed_data()
{
    QTest::addColumn<int>("rate");
    QTest::newRow("no rate") << 0;
    QTest::newRow("declared as 0 Hz") << 20;
    QTest::newRow("a few Hz") << 300;
}

void tst_PlaybackController::survivesSoundsThatCannotBePlayed()
{
    QFETCH(int, rate);
    Player player;
    player.settings.setValue(SettingKeys::undersampling, 5);
    player.settings.setValue(SettingKeys::playbackRate, 6);
    const std::vector<int> samples = shortSound();
    player.controller->setRecording(&samples, rate, 16, 1, 0.5);
    player.controller->spectrogramShown();
    player.controller->play();
    QTest::qWait(50);
    player.controller->stop();
    QCOMPARE(player.controls.state(), QMediaPlayer::StoppedState);

    const std::vector<int> next = shortSound();
    player.settings.setValue(SettingKeys::playbackRate, 0);
    player.loadAndShow(next);
    player.controller->play();
    QCOMPARE(player.controls.state(), QMediaPlayer::PlayingState);
    QTRY_COMPARE(player.media()->mediaStatus(), QMediaPlayer::EndOfMedia);
}

void tst_PlaybackController::waitsForTheSpectrogram()
{
    Player player;
    player.settings.setValue(SettingKeys::autoplay, true);
    const std::vector<int> samples = longSound();
    for (int round = 1; round <= 2; ++round) {
        player.load(samples);
        player.controller->setRange(0, 100 + round);
        QTest::qWait(150);
        QVERIFY(player.timesPlayed(round - 1));
        player.controller->spectrogramShown();
        QTRY_VERIFY(player.timesPlayed(round));
    }
}

void tst_PlaybackController::playsAtOnceAfterAZoom()
{
    Player player;
    player.settings.setValue(SettingKeys::autoplay, true);
    const std::vector<int> samples = shortSound();
    player.loadAndShow(samples);
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

void tst_PlaybackController::rebuildsWithoutPlayingByItself()
{
    Player player;
    const std::vector<int> samples = shortSound();
    player.loadAndShow(samples);
    QTRY_COMPARE(player.sound().size(), 44 + sampleRate / 2);
    player.controller->setRange(0.05, 0.15);
    player.settings.setValue(SettingKeys::undersampling, 1);
    player.controller->audioControlsChanged();
    QTRY_COMPARE(player.sound().size(), 44 + sampleRate / 10);
    QTest::qWait(30);
    QVERIFY(player.timesPlayed(0));
}

void tst_PlaybackController::startsAgainInALoop()
{
    Player player;
    player.settings.setValue(SettingKeys::loop, true);
    const std::vector<int> samples = shortSound();
    player.loadAndShow(samples);
    player.controller->play();
    const auto rounds = [&player] {
        return std::count(player.cursor.cbegin(), player.cursor.cend(), QVariantList{0.25});
    };
    QTRY_VERIFY(rounds() >= 3);
    QVERIFY(player.timesPlayed(1)); // the cursor does not flicker between the rounds
    player.settings.setValue(SettingKeys::loop, false);
    QTRY_COMPARE(player.controls.state(), QMediaPlayer::StoppedState);
}

void tst_PlaybackController::hidesTheCursorWhenStopped()
{
    Player player;
    const std::vector<int> samples = longSound();
    player.load(samples);
    player.controller->setAudioPlayerState(QMediaPlayer::PlayingState);
    player.controller->setAudioPlayerState(QMediaPlayer::PausedState);
    QCOMPARE(player.visible.count(), 1);
    player.controller->setAudioPlayerState(QMediaPlayer::StoppedState);
    QCOMPARE(player.visible.last(), QVariantList{false});

    player.controller->togglePlay();
    QCOMPARE(player.controls.state(), QMediaPlayer::PlayingState);
    player.controller->togglePlay();
    QCOMPARE(player.controls.state(), QMediaPlayer::PausedState);
    player.button("stopButton")->click();
    QCOMPARE(player.controls.state(), QMediaPlayer::StoppedState);
    QCOMPARE(player.visible.last(), QVariantList{false});
}

void tst_PlaybackController::stopsForTheNextRecording()
{
    Player player;
    const std::vector<int> first = longSound();
    player.loadAndShow(first);
    player.controller->play();
    player.controller->clearRecording();
    QCOMPARE(player.controls.state(), QMediaPlayer::StoppedState);
    QVERIFY(!player.button("playButton")->isEnabled());
    QVERIFY(player.sound().isEmpty());
    QCOMPARE(player.label.last().first().toString(), QStringLiteral("00:00.000 / 00:00.000"));

    const std::vector<int> second = longSound(7);
    player.loadAndShow(second);
    QVERIFY(player.button("playButton")->isEnabled());
    player.controller->play();
    const PlaybackWav::Source source{&second, sampleRate, 16, 1, 0.5};
    QCOMPARE(player.sound(), PlaybackWav::make(source, 0, 200, 0, 0).bytes);
}

void tst_PlaybackController::survivesManySounds()
{
    Player player;
    player.settings.setValue(SettingKeys::autoplay, true);
    const std::vector<int> samples = longSound();
    player.loadAndShow(samples);
    player.controller->play();
    QSignalSpy errors(player.media(), QOverload<QMediaPlayer::Error>::of(&QMediaPlayer::error));
    for (int swap = 0; swap < 200; ++swap) {
        const std::vector<int> next(sampleRate + 2 * swap, swap);
        player.loadAndShow(next);
        QTest::qWait(swap % 8);
        if (swap % 3 == 0)
            player.controller->setRange(0.1, 0.9);
        QTest::qWait(swap % 5);
        player.controller->clearRecording();
    }
    const std::vector<int> last = shortSound();
    player.loadAndShow(last);
    player.controller->play();
    QTRY_COMPARE(player.media()->mediaStatus(), QMediaPlayer::EndOfMedia);
    QCOMPARE(errors.count(), 0);
}

void tst_PlaybackController::survivesItsControls()
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

void tst_PlaybackController::tellsWhyNothingIsHeard()
{
    Player player;
    const std::vector<int> samples = longSound();
    player.loadAndShow(samples);
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

QTEST_MAIN(tst_PlaybackController)
#include "tst_PlaybackController.moc"
