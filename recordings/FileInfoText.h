#ifndef SONAVIA_RECORDINGS_FILEINFOTEXT_H
#define SONAVIA_RECORDINGS_FILEINFOTEXT_H

#include <QLocale>

/// Length of a recording in seconds with three decimals, as `locale` writes numbers. A sample rate of 0 gives
/// 0.
QString recordingLengthText(quint32 sampleCount, quint32 sampleRate, const QLocale& locale);

/// The line under a spectrogram: "16bit; 500000Hz; 2.500s; 14/03/24; 18:10:00". Date and time stand as given
/// and may be empty. The length is written in the system's locale unless another is named.
QString fileInfoText(int bitsPerSample, int sampleRate, int sampleSize, const QString& date,
                     const QString& time, const QLocale& locale = QLocale::system());

#endif
