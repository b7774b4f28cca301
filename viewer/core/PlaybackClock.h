#ifndef SONAVIA_VIEWER_CORE_PLAYBACKCLOCK_H
#define SONAVIA_VIEWER_CORE_PLAYBACKCLOCK_H

#include <QString>

/// Turns the player's position into recording time: a sound played at a tenth of its speed moves the cursor
/// by a tenth of a second each second. Plain value.
class PlaybackClock
{
public:
    PlaybackClock() = default;

    /// For a sound that begins at `startSeconds` of the recording, is `durationMs` of recording time long and
    /// is played at `ratePerMille` thousandths of its speed.
    PlaybackClock(double startSeconds, double durationMs, int ratePerMille);

    /// Where the play cursor stands in the recording (s) when the player is at this position (ms). Moves in
    /// whole milliseconds and never behind the end of the sound.
    double cursorSeconds(qint64 positionMs) const;

    /// Time since the start of the sound and its duration, both as "mm:ss.zzz" and joined by " / "; as
    /// "hh:mm:ss.zzz" when the sound is longer than an hour.
    QString label(qint64 positionMs) const;

private:
    qint64 elapsedMs(qint64 positionMs) const;

    double m_startSeconds = 0;
    qint64 m_durationMs = 0;
    int m_ratePerMille = 1000;
};

#endif
