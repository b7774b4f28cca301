#ifndef SONAVIA_VIEWER_CORE_RESOLUTIONTEXT_H
#define SONAVIA_VIEWER_CORE_RESOLUTIONTEXT_H

#include <QLocale>
#include <QString>

/// The two lines that tell the user what a choice of window size and overlap means for a recording.
/// Sizes in samples, rates in Hz. A rate or size of 0 or less, as before the first recording, gives a dash
/// in place of the number.
namespace ResolutionText {

/// Time from one spectrum to the next, "Temporal Resolution: 1.024 ms", with up to six significant digits.
/// The overlap is in percent, 0 up to but not including 100.
QString temporal(int windowSize, double overlap, int sampleRate);

/// "Frequency Resolution: 244.1 Hz", one decimal as `locale` writes it. The figure is half the distance of
/// two neighbouring bins.
QString frequency(int windowSize, int sampleRate, const QLocale& locale = QLocale::system());

} // namespace ResolutionText

#endif
