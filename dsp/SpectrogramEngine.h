#ifndef SONAVIA_DSP_SPECTROGRAMENGINE_H
#define SONAVIA_DSP_SPECTROGRAMENGINE_H

#include "dsp/AmplitudeImage.h"
#include "dsp/SpectrogramGeometry.h"

#include <QString>
#include <QVector>

#include <atomic>
#include <functional>
#include <utility>

/// What a computation works on. The samples stay the caller's and must not change meanwhile.
struct SpectrogramInput
{
    const int* samples = nullptr; ///< as many as the geometry was made for
    int bitsPerSample = 16;       ///< sets full scale; 8, 16, 24 or 32
    SpectrogramGeometry geometry;
    QString window; ///< name of the shape, see windowShape()
};

/// What a computation makes.
struct Spectrogram
{
    /// Decibels relative to full scale, minus infinity where the amplitude is 0. One row of frames per
    /// frequency: the value of bin i in frame k has index i x frames + k.
    QVector<double> decibels;
    AmplitudeImage image;
    int frames = 0;
    double minimum = 0.0;     ///< of the decibels, at most 0 and at least -100
    double maximum = -5000.0; ///< of the decibels; -5000 where there is nothing
};

/// Computes spectrograms: windowed frames, their Fourier transforms, amplitudes and decibels.
///
/// A value is the same, bit for bit, for every number of threads and on every processor. compute() runs on
/// the calling thread and on helper threads of its own, which are gone when it returns. Nothing is kept
/// between two computations.
class SpectrogramEngine
{
public:
    enum class Outcome {
        Complete,
        Stopped, ///< by the stop flag
        TooLarge ///< the result does not fit into its types or into the memory
    };
    enum Output { Decibels = 1, Image = 2, Both = 3 };

    /// At most this many threads compute at the same time; 0, the default, is one for each processor core.
    void setThreadCount(int count) { m_threadCount = count; }

    /// A computation returns soon after the flag was set, within some hundred frames. The flag outlives the
    /// engine.
    void setStopFlag(const std::atomic<bool>* flag) { m_stop = flag; }

    /// Called on the thread that computes, with 0 .. 99: from 100 frames on, for every frame whose number is
    /// a multiple of a hundredth of the frames (rounded down), in ascending order.
    void setProgress(std::function<void(int percent)> progress) { m_progress = std::move(progress); }

    /// Makes the outputs asked for; `result` is empty unless the outcome is Complete. A window size that is
    /// no power of two is logged and gives silence.
    Outcome compute(const SpectrogramInput& input, Output outputs, Spectrogram& result) const;

private:
    int m_threadCount = 0;
    const std::atomic<bool>* m_stop = nullptr;
    std::function<void(int)> m_progress;
};

#endif
