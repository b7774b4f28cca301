#ifndef SONAVIA_RECORDINGS_SAMPLECONVERSION_H
#define SONAVIA_RECORDINGS_SAMPLECONVERSION_H

#include <QIODevice>

#include <vector>

/// Reads single-channel PCM of 1 to 4 bytes per sample, little-endian and signed at every width (8 bits too),
/// from the present position of `device` and leaves one value per sample in `samples`.
///
/// The first sample stored is left out and the last value is 0: value i is stored sample i + 1. `byteCount`
/// need not be a multiple of the sample size; what is over is ignored.
///
/// Reads and converts in blocks, so the memory needed is that of the result. False when the device has fewer
/// bytes, or when the samples are more than an int can count or than memory can hold; `samples` is then
/// empty.
bool readSamples(QIODevice& device, qint64 byteCount, int bytesPerSample, std::vector<int>* samples);

#endif
