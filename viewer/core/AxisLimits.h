#ifndef SONAVIA_VIEWER_CORE_AXISLIMITS_H
#define SONAVIA_VIEWER_CORE_AXISLIMITS_H

/// The range that an axis of the spectrogram shows, and the rules that choose it. Stored limits come from the
/// settings; which default stands for a missing one is up to the caller, since the keys have two.
struct AxisLimits
{
    double lower = 0.0;
    double upper = 0.0;

    /// False for an empty or inverted range and for limits that are no numbers. The levels of a recording
    /// that is silent or shorter than one window give such a range (0 to -5000 dB): it is neither drawn nor
    /// stored.
    bool isValid() const { return lower < upper; }

    /// Frequency axis in kHz. The whole range 0 to `nyquist`, or where the scale is fixed the stored limits:
    /// a lower one above `nyquist` becomes nyquist - 1, an upper one above it `nyquist`. Limits that
    /// contradict each other come back as they are.
    static AxisLimits frequency(bool fixed, double storedLower, double storedUpper, int nyquist);

    /// Amplitude (colour) axis in dBFS: the stored limits where the scale is fixed, else the least and
    /// greatest level of the result, which the caller also stores if they are valid.
    static AxisLimits amplitude(bool fixed, const AxisLimits& stored, const AxisLimits& result);

    /// What the axes show while there is no recording.
    static AxisLimits emptyTime() { return {0.0, 1.0}; } ///< seconds
    static AxisLimits emptyFrequency()
    {
        return {0.0, 150.0};
    } ///< kHz, after a WAV file that cannot be loaded
    static AxisLimits emptyRawFrequency() { return {0.0, 1e5}; } ///< the same after a RAW file
};

#endif
