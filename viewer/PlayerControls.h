#ifndef SONAVIA_VIEWER_PLAYERCONTROLS_H
#define SONAVIA_VIEWER_PLAYERCONTROLS_H

#include <QMediaPlayer>
#include <QWidget>

class QSlider;
class QToolButton;

/// The buttons and the volume slider of a player. Knows no player: it asks by signals and shows what it is
/// told by slots. GUI thread.
class PlayerControls : public QWidget
{
    Q_OBJECT

public:
    explicit PlayerControls(QWidget* parent = nullptr);

    QMediaPlayer::State state() const { return m_state; }
    int volume() const; ///< 0..100
    bool isMuted() const { return m_muted; }

    /// Whether there is something to play. Volume and mute can be set without.
    void setPlayable(bool playable);

    /// The tool tip of the play button for as long as no sound comes, telling why; an empty text brings the
    /// usual one back.
    void setPlayToolTip(const QString& reason);

public slots:
    void setState(QMediaPlayer::State state);
    void setVolume(int volume); ///< values outside 0..100 count as the nearer end
    void setMuted(bool muted);

signals:
    void play();
    void pause();
    void stop();
    void changeVolume(int volume);
    void changeMuting(bool muted);

private slots:
    void playClicked();
    void muteClicked();

private:
    void showPlayButton();
    void showMuteButton();

    QMediaPlayer::State m_state = QMediaPlayer::StoppedState;
    bool m_muted = false;
    QString m_silenceReason;
    QToolButton* m_playButton;
    QToolButton* m_stopButton;
    QToolButton* m_muteButton;
    QSlider* m_volumeSlider;
};

#endif
