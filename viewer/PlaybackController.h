#ifndef SONAVIA_VIEWER_PLAYBACKCONTROLLER_H
#define SONAVIA_VIEWER_PLAYBACKCONTROLLER_H

#include "viewer/core/PlaybackClock.h"
#include "viewer/core/PlaybackWav.h"

#include <QMediaPlayer>
#include <QObject>
#include <QTimer>

#include <memory>

class PlayerControls;
class QBuffer;
class SettingsStore;

/// Plays the shown range of the loaded recording, slowed down as the settings say, and tells where the play
/// cursor stands. Owns the player and the sound it plays; nothing is written to disk.
///
/// The player is made when the first spectrogram has been shown or the user wants to play, because loading
/// its plug-ins takes a moment. The sound is built once per turn of the event loop, after the last change.
/// Where no sound can come (no output device, no decoder, no media service) everything still works and the
/// tool tip of the play button says why nothing is heard. GUI thread.
class PlaybackController : public QObject
{
    Q_OBJECT

public:
    /// Connects the controls and sets them to the stored volume and mute state. Controls and settings are not
    /// owned. The controls may go first when the program ends; the settings must outlive the controller.
    PlaybackController(PlayerControls& controls, SettingsStore& settings, QObject* parent = nullptr);
    ~PlaybackController() override;

    /// Takes a recording that was loaded and shows all of it: stops what is playing and waits for
    /// spectrogramShown(). The samples are not owned and only read; they must not change or go before
    /// clearRecording() or the next setRecording(). `displayPeak` is that of TimeCurve::displayPeak().
    void setRecording(const std::vector<int>* samples, int sampleRate, int bitsPerSample, int channels,
                      double displayPeak);

    /// Stops and lets go of the samples; the first thing to do when another recording is to be loaded.
    void clearRecording();

    /// The shown range (s) changed. Ends what is playing; begins anew where autoplay is on.
    void setRange(double startSeconds, double endSeconds);

    /// The spectrogram of the recording has arrived: builds its sound and plays it where autoplay is on.
    void spectrogramShown();

    void play();
    void pause();
    void stop();
    void togglePlay(); ///< the key for play and pause

    // Answers to the player, which reaches them through the main window's slots of the same names: connect
    // playerPositionChanged() and playerStateChanged() to them.
    /// The player's position changed (ms): tells where the cursor stands.
    void positionChanged(qint64 progress);
    /// The player's state changed: hides the cursor when stopped.
    void setAudioPlayerState(QMediaPlayer::State state);
    /// Undersampling or playback rate changed: builds the sound anew.
    void audioControlsChanged();

signals:
    void playerPositionChanged(qint64 progress); ///< ms
    void playerStateChanged(QMediaPlayer::State state);
    void cursorMoved(double seconds); ///< in the recording
    void cursorVisible(bool visible);
    void timeLabelChanged(const QString& text);

private:
    void setVolume(int volume);
    void setMuted(bool muted);
    void scheduleRebuild();
    void rebuild();
    void unload();
    QMediaPlayer& player(); ///< made at the first call
    void connectPlayer();
    void mediaStatusChanged(QMediaPlayer::MediaStatus status);
    QString silenceReason() const;
    void showSilenceReason();

    PlayerControls& m_controls;
    SettingsStore& m_settings;
    QMediaPlayer* m_player = nullptr;
    std::unique_ptr<QBuffer> m_buffer;
    QTimer m_rebuildTimer;
    PlaybackWav::Source m_source;
    double m_startSeconds = 0;
    double m_endSeconds = 0;
    PlaybackClock m_clock;
    bool m_waitingForSpectrogram = true; ///< autoplay has to wait
    bool m_stale = false;                ///< the sound does not belong to range and settings any more
};

#endif
