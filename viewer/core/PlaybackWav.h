#ifndef SONAVIA_VIEWER_CORE_PLAYBACKWAV_H
#define SONAVIA_VIEWER_CORE_PLAYBACKWAV_H

#include <QByteArray>

#include <array>
#include <vector>

/// What a range of a recording is played from: a complete WAV file in memory.
///
/// Ultrasound becomes audible in two ways that can be combined. Undersampling keeps every n-th sample and
/// declares the rate that belongs to them, so that high frequencies fold down at the recording's own speed.
/// A playback rate below 1 declares a lower rate still, which stretches the time and lowers the pitch.
///
/// The samples are brought to 0.8 of full scale, measured on the whole recording, so that a quiet range stays
/// quieter than a loud one. They are always 16-bit: recordings of other widths are scaled.
/// Plain values, any thread.
struct PlaybackWav
{
    /// Undersampling factors by the stored index; what is not in the list counts as the first.
    static constexpr std::array<int, 16> factors = {1,  2,  4,  6,  8,  10, 12, 14,
                                                    16, 18, 20, 22, 24, 26, 28, 30};
    /// Playback rates by the stored index in thousandths; what is not in the list counts as the first.
    static constexpr std::array<int, 7> ratesPerMille = {1000, 500, 250, 200, 100, 50, 10};

    static int factorAt(int index);
    static int ratePerMilleAt(int index);

    /// The recording that is played. The samples are not owned and only read while a WAV is made.
    struct Source
    {
        const std::vector<int>* samples = nullptr; ///< signed values of `bitsPerSample` bits
        int sampleRate = 0;                        ///< Hz
        int bitsPerSample = 16;
        int channels = 1;
        double displayPeak = 0; ///< 1.1 x the largest amplitude of the whole recording, 1.0 is full scale
    };

    QByteArray bytes;      ///< header of 44 bytes and the samples, little-endian
    double durationMs = 0; ///< length of the range in recording time, whatever the playback rate

    /// The WAV of the samples between two times (s) of the recording. A range outside the recording is cut;
    /// an empty or reversed one, a recording without samples or one whose rate is below the factor gives a
    /// WAV with an empty data chunk.
    static PlaybackWav make(const Source& source, double startSeconds, double endSeconds, int factorIndex,
                            int rateIndex);
};

#endif
