#include "viewer/PlaybackController.h"

#include "base/SettingsStore.h"
#include "viewer/AudioOutputName.h"
#include "viewer/PlayerControls.h"

#include <QBuffer>

namespace {

constexpr int cursorIntervalMs = 20;
// Leaves the first spectrogram time to be painted before the player's plug-ins are loaded.
constexpr int firstPlayerDelayMs = 100;

} // namespace

PlaybackController::PlaybackController(PlayerControls& controls, SettingsStore& settings, QObject* parent)
    : QObject(parent), m_controls(controls), m_settings(settings)
{
    controls.setVolume(settings.value(SettingKeys::volume));
    controls.setMuted(settings.value(SettingKeys::muted));
    connect(&controls, &PlayerControls::play, this, &PlaybackController::play);
    connect(&controls, &PlayerControls::pause, this, &PlaybackController::pause);
    connect(&controls, &PlayerControls::stop, this, &PlaybackController::stop);
    connect(&controls, &PlayerControls::changeVolume, this, &PlaybackController::setVolume);
    connect(&controls, &PlayerControls::changeMuting, this, &PlaybackController::setMuted);
    m_rebuildTimer.setSingleShot(true);
    connect(&m_rebuildTimer, &QTimer::timeout, this, &PlaybackController::rebuild);
}

PlaybackController::~PlaybackController()
{
    // Nobody is told about the end: receivers may be half gone.
    if (m_player != nullptr)
        m_player->blockSignals(true);
    unload();
    delete m_player;
}

void PlaybackController::setRecording(const std::vector<int>* samples, int sampleRate, int bitsPerSample,
                                      int channels, double displayPeak)
{
    clearRecording();
    if (samples == nullptr)
        return;
    m_source = {samples, sampleRate, bitsPerSample, channels, displayPeak};
    m_startSeconds = 0;
    m_endSeconds = sampleRate > 0 ? static_cast<double>(samples->size()) / sampleRate : 0;
    m_waitingForSpectrogram = true;
    m_stale = true;
    m_controls.setPlayable(true);
}

void PlaybackController::clearRecording()
{
    m_rebuildTimer.stop();
    unload();
    m_source = {};
    m_stale = false;
    m_clock = {};
    m_controls.setPlayable(false);
    emit timeLabelChanged(m_clock.label(0));
}

void PlaybackController::setRange(double startSeconds, double endSeconds)
{
    if (startSeconds == m_startSeconds && endSeconds == m_endSeconds)
        return;
    m_startSeconds = startSeconds;
    m_endSeconds = endSeconds;
    scheduleRebuild();
}

void PlaybackController::spectrogramShown()
{
    m_waitingForSpectrogram = false;
    if (m_stale)
        scheduleRebuild();
    else if (m_settings.value(SettingKeys::autoplay))
        play();
}

void PlaybackController::play()
{
    if (m_source.samples == nullptr)
        return;
    if (m_stale)
        rebuild();
    player().play();
    showSilenceReason();
}

void PlaybackController::pause()
{
    if (m_player != nullptr)
        m_player->pause();
}

void PlaybackController::stop()
{
    if (m_player != nullptr)
        m_player->stop();
}

void PlaybackController::togglePlay()
{
    if (m_player != nullptr && m_player->state() == QMediaPlayer::PlayingState)
        pause();
    else
        play();
}

void PlaybackController::positionChanged(qint64 progress)
{
    emit cursorMoved(m_clock.cursorSeconds(progress));
    emit timeLabelChanged(m_clock.label(progress));
}

void PlaybackController::setAudioPlayerState(QMediaPlayer::State state)
{
    m_controls.setState(state);
    if (state != QMediaPlayer::PausedState)
        emit cursorVisible(state == QMediaPlayer::PlayingState);
}

void PlaybackController::audioControlsChanged()
{
    scheduleRebuild();
}

void PlaybackController::setVolume(int volume)
{
    m_settings.setValue(SettingKeys::volume, volume);
    m_controls.setVolume(volume);
    if (m_player != nullptr)
        m_player->setVolume(volume);
}

void PlaybackController::setMuted(bool muted)
{
    m_settings.setValue(SettingKeys::muted, muted);
    m_controls.setMuted(muted);
    if (m_player != nullptr)
        m_player->setMuted(muted);
}

void PlaybackController::scheduleRebuild()
{
    if (m_source.samples == nullptr)
        return;
    m_stale = true;
    if (!m_waitingForSpectrogram)
        m_rebuildTimer.start(m_player != nullptr ? 0 : firstPlayerDelayMs);
}

/// The order matters: a player that still knows the old sound while it gets the new one mixes them up.
void PlaybackController::rebuild()
{
    m_rebuildTimer.stop();
    unload();

    const int rateIndex = m_settings.value(SettingKeys::playbackRate);
    const PlaybackWav wav = PlaybackWav::make(m_source, m_startSeconds, m_endSeconds,
                                              m_settings.value(SettingKeys::undersampling), rateIndex);
    m_clock = PlaybackClock(m_startSeconds, wav.durationMs, PlaybackWav::ratePerMilleAt(rateIndex));
    m_stale = false;
    m_buffer = std::make_unique<QBuffer>();
    m_buffer->setData(wav.bytes);
    m_buffer->open(QIODevice::ReadOnly);
    player().setMedia(QMediaContent(), m_buffer.get());
    emit timeLabelChanged(m_clock.label(0));

    if (!m_waitingForSpectrogram && m_settings.value(SettingKeys::autoplay))
        m_player->play();
    showSilenceReason();
}

void PlaybackController::unload()
{
    if (!m_buffer)
        return;
    m_player->stop();
    m_player->setMedia(QMediaContent());
    m_buffer.reset();
}

QMediaPlayer& PlaybackController::player()
{
    if (m_player == nullptr) {
        m_player = new QMediaPlayer(this);
        m_player->setNotifyInterval(cursorIntervalMs);
        m_player->setVolume(m_controls.volume());
        m_player->setMuted(m_controls.isMuted());
        connectPlayer();
    }
    return *m_player;
}

void PlaybackController::connectPlayer()
{
    connect(m_player, &QMediaPlayer::stateChanged, this, &PlaybackController::playerStateChanged);
    connect(m_player, &QMediaPlayer::positionChanged, this, [this](qint64 position) {
        // A stopped player is back at its start, but may report once more where it was.
        const bool isStopped = m_player->state() == QMediaPlayer::StoppedState;
        emit playerPositionChanged(isStopped ? m_player->position() : position);
    });
    connect(m_player, &QMediaPlayer::mediaStatusChanged, this, &PlaybackController::mediaStatusChanged);
    connect(m_player, &QMediaPlayer::volumeChanged, &m_controls, &PlayerControls::setVolume);
    connect(m_player, &QMediaPlayer::mutedChanged, &m_controls, &PlayerControls::setMuted);
    connect(m_player, QOverload<QMediaPlayer::Error>::of(&QMediaPlayer::error), this,
            &PlaybackController::showSilenceReason);
}

void PlaybackController::mediaStatusChanged(QMediaPlayer::MediaStatus status)
{
    // An empty sound ends at once and would be begun again without end.
    if (status != QMediaPlayer::EndOfMedia || m_player->duration() <= 0 ||
        !m_settings.value(SettingKeys::loop))
        return;
    m_player->setPosition(0);
    m_player->play();
}

QString PlaybackController::silenceReason() const
{
    if (!m_player->isAvailable())
        return tr("No sound: this system has no media service that could play it");
    if (m_player->error() != QMediaPlayer::NoError)
        return tr("No sound: %1").arg(m_player->errorString());
    if (!hasOutputDevice())
        return tr("No sound: there is no audio output device");
    return {};
}

void PlaybackController::showSilenceReason()
{
    m_controls.setPlayToolTip(silenceReason());
}
