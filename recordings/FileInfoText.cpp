#include "recordings/FileInfoText.h"

QString recordingLengthText(quint32 sampleCount, quint32 sampleRate, const QLocale& locale)
{
    const double seconds = sampleRate == 0 ? 0.0 : double(sampleCount) / double(sampleRate);
    return locale.toString(seconds, 'f', 3);
}

QString fileInfoText(int bitsPerSample, int sampleRate, int sampleSize, const QString& date,
                     const QString& time, const QLocale& locale)
{
    const QString length =
        recordingLengthText(static_cast<quint32>(sampleSize), static_cast<quint32>(sampleRate), locale);
    return QString::number(bitsPerSample) + QStringLiteral("bit; ") + QString::number(sampleRate) +
           QStringLiteral("Hz; ") + length + QStringLiteral("s; ") + date + QStringLiteral("; ") + time;
}
