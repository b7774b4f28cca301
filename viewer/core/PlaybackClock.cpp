#include "viewer/core/PlaybackClock.h"

#include <algorithm>

namespace {

constexpr qint64 hourMs = 3600000;

QString timeText(qint64 ms, bool withHours)
{
    const auto digits = [](qint64 value, int width) {
        return QString::number(value).rightJustified(width, QLatin1Char('0'));
    };
    const qint64 minutes = ms / 60000;
    QString text = digits(withHours ? minutes % 60 : minutes, 2) + QLatin1Char(':') +
                   digits(ms / 1000 % 60, 2) + QLatin1Char('.') + digits(ms % 1000, 3);
    if (withHours)
        text.prepend(digits(ms / hourMs, 2) + QLatin1Char(':'));
    return text;
}

} // namespace

PlaybackClock::PlaybackClock(double startSeconds, double durationMs, int ratePerMille)
    : m_startSeconds(startSeconds),
      m_durationMs(static_cast<qint64>(durationMs)),
      m_ratePerMille(ratePerMille)
{}

qint64 PlaybackClock::elapsedMs(qint64 positionMs) const
{
    // The player's own duration can be longer by what the declared rate lost when it became an integer.
    return std::clamp<qint64>(positionMs * m_ratePerMille / 1000, 0, m_durationMs);
}

double PlaybackClock::cursorSeconds(qint64 positionMs) const
{
    return static_cast<double>(elapsedMs(positionMs)) / 1000.0 + m_startSeconds;
}

QString PlaybackClock::label(qint64 positionMs) const
{
    const bool withHours = m_durationMs > hourMs;
    return timeText(elapsedMs(positionMs), withHours) + QStringLiteral(" / ") +
           timeText(m_durationMs, withHours);
}
