#include "viewer/core/ResolutionText.h"

#include <cmath>

namespace {

QString line(const char* title, bool known, const QString& number, const char* unit)
{
    const QString value = known ? number + QLatin1Char(' ') + QLatin1String(unit) : QString(QChar(0x2013));
    return QLatin1String(title) + value;
}

} // namespace

namespace ResolutionText {

QString temporal(int windowSize, double overlap, int sampleRate)
{
    // Without overlap the quotient below would divide by zero; there the whole window is new.
    const double shared = overlap > 0 ? std::floor(windowSize / (100.0 / overlap)) : 0.0;
    const double milliseconds = (windowSize - shared) / sampleRate * 1000.0;
    return line("Temporal Resolution: ", windowSize > 0 && sampleRate > 0, QString::number(milliseconds),
                "ms");
}

QString frequency(int windowSize, int sampleRate, const QLocale& locale)
{
    const bool known = windowSize > 0 && sampleRate > 0;
    const double hertz = known ? sampleRate * 0.5 / windowSize : 0.0;
    return line("Frequency Resolution: ", known, locale.toString(hertz, 'f', 1), "Hz");
}

} // namespace ResolutionText
