#ifndef SONAVIA_VIEWER_CORE_SCALEBOUNDS_H
#define SONAVIA_VIEWER_CORE_SCALEBOUNDS_H

/// Whole-number limits of a scale, as two spin boxes show them.
struct ScaleLimits
{
    int lower;
    int upper;
};

inline bool operator==(const ScaleLimits& a, const ScaleLimits& b)
{
    return a.lower == b.lower && a.upper == b.upper;
}

/// How stored limits become ones that can be shown: whole numbers within a range, lower below upper.
namespace ScaleBounds {

// Range of the amplitude scale in dBFS.
inline constexpr int lowestLevel = -200;
inline constexpr int highestLevel = 0;

/// Highest frequency limit in kHz that makes sense at a sample rate in Hz: the Nyquist frequency, 150 while
/// the rate is unknown (0 or less), never under 1 so that there is room for a lower limit.
int highestFrequency(int sampleRate);

/// Stored limits rounded and moved into minimum … maximum (at least 1 apart). The upper limit decides: a
/// lower limit that reaches it is shown one below. Not-a-number counts as the lowest value.
ScaleLimits shown(double lower, double upper, int minimum, int maximum);

} // namespace ScaleBounds

#endif
