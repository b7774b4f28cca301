#include "viewer/PlayerControls.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QSlider>
#include <QStyle>
#include <QToolButton>

namespace {

QIcon icon(const QWidget& widget, const char* name, QStyle::StandardPixmap standard)
{
    const QIcon own(QStringLiteral(":/images/%1.png").arg(QLatin1String(name)));
    return own.availableSizes().isEmpty() ? widget.style()->standardIcon(standard) : own;
}

/// Text that both a pointing user and a screen reader get.
void describe(QWidget* widget, const QString& text)
{
    widget->setToolTip(text);
    widget->setAccessibleName(text);
}

QToolButton* makeButton(QWidget* parent, const char* objectName)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(QLatin1String(objectName));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

PlayerControls::PlayerControls(QWidget* parent)
    : QWidget(parent),
      m_playButton(makeButton(this, "playButton")),
      m_stopButton(makeButton(this, "stopButton")),
      m_muteButton(makeButton(this, "muteButton")),
      m_volumeSlider(new QSlider(Qt::Horizontal, this))
{
    m_stopButton->setIcon(icon(*this, "player_stop", QStyle::SP_MediaStop));
    describe(m_stopButton, tr("Stop"));
    m_volumeSlider->setObjectName(QStringLiteral("volumeSlider"));
    m_volumeSlider->setRange(0, 100);
    m_volumeSlider->setPageStep(10);
    m_volumeSlider->setMaximumWidth(8 * fontMetrics().height());
    describe(m_volumeSlider, tr("Volume"));
    showPlayButton();
    showMuteButton();
    setPlayable(false);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* control : {static_cast<QWidget*>(m_playButton), static_cast<QWidget*>(m_stopButton),
                             static_cast<QWidget*>(m_muteButton), static_cast<QWidget*>(m_volumeSlider)})
        layout->addWidget(control);

    connect(m_playButton, &QToolButton::clicked, this, &PlayerControls::playClicked);
    connect(m_stopButton, &QToolButton::clicked, this, &PlayerControls::stop);
    connect(m_muteButton, &QToolButton::clicked, this, &PlayerControls::muteClicked);
    connect(m_volumeSlider, &QSlider::valueChanged, this, &PlayerControls::changeVolume);
}

int PlayerControls::volume() const
{
    return m_volumeSlider->value();
}

void PlayerControls::setPlayable(bool playable)
{
    m_playButton->setEnabled(playable);
    m_stopButton->setEnabled(playable);
}

void PlayerControls::setPlayToolTip(const QString& reason)
{
    m_silenceReason = reason;
    showPlayButton();
}

void PlayerControls::setState(QMediaPlayer::State state)
{
    m_state = state;
    showPlayButton();
}

void PlayerControls::setVolume(int volume)
{
    m_volumeSlider->setValue(volume);
}

void PlayerControls::setMuted(bool muted)
{
    m_muted = muted;
    showMuteButton();
}

void PlayerControls::playClicked()
{
    if (m_state == QMediaPlayer::PlayingState)
        emit pause();
    else
        emit play();
}

void PlayerControls::muteClicked()
{
    emit changeMuting(!m_muted);
}

void PlayerControls::showPlayButton()
{
    const bool playing = m_state == QMediaPlayer::PlayingState;
    m_playButton->setIcon(playing ? icon(*this, "player_pause", QStyle::SP_MediaPause)
                                  : icon(*this, "player_play", QStyle::SP_MediaPlay));
    describe(m_playButton, playing ? tr("Pause") : tr("Play"));
    m_playButton->setAccessibleDescription(m_silenceReason);
    if (!m_silenceReason.isEmpty())
        m_playButton->setToolTip(m_silenceReason);
}

void PlayerControls::showMuteButton()
{
    m_muteButton->setIcon(m_muted ? icon(*this, "player_muted", QStyle::SP_MediaVolumeMuted)
                                  : icon(*this, "player_volume", QStyle::SP_MediaVolume));
    describe(m_muteButton, m_muted ? tr("Unmute") : tr("Mute"));
}
