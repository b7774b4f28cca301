#ifndef SONAVIA_DSP_SPECTROGRAMKERNELS_H
#define SONAVIA_DSP_SPECTROGRAMKERNELS_H

#include "dsp/InstructionSet.h"

#include <cstddef>

/// Minimum and maximum so far.
struct DecibelRange
{
    double minimum = 0.0;
    double maximum = -5000.0;
};

/// A rectangle of amplitudes, one row of bins per frame, and the place in a matrix (one row of frames per
/// bin) where its decibels belong.
struct DecibelTile
{
    static constexpr int mostFrames = 64;

    const float* amplitudes = nullptr; ///< rows are readable up to the next multiple of 8 bins ...
    std::size_t amplitudeStride = 0;   ///< floats from frame to frame
    int frames = 0;                    ///< ... and up to the next multiple of 8 frames
    int bins = 0;
    double* decibels = nullptr;    ///< the cell of bin 0 in the first of the frames
    std::size_t decibelStride = 0; ///< doubles from bin to bin
};

/// The loops around the transform that a spectrogram spends its time in, built for one instruction set. All
/// builds do the same operations in the same order and give the same bits. Arrays may lie at any address.
struct SpectrogramKernels
{
    /// frame[i] = samples[i] x window[i] for i < length, rounded to float once.
    void (*applyWindow)(const int* samples, const double* window, int length, float* frame);

    /// Amplitudes relative to full scale of the bins 0 .. size / 2 - 1 of a spectrum (layout of QRealFourier,
    /// not scaled, readable up to index size + 7): 2 |X| / size / fullScale. Writes up to the next multiple
    /// of 8 bins.
    void (*amplitudes)(const float* spectrum, int size, float fullScale, float* amplitudes);

    /// 20 log10 of the amplitudes, not negative, each within 4e-16 of its size; minus infinity for 0. The
    /// cells that are written widen the range.
    void (*decibels)(const DecibelTile& tile, DecibelRange& range);
};

const SpectrogramKernels& spectrogramKernels(InstructionSet set);

#endif
