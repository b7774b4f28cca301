#ifndef SONAVIA_VIEWER_CORE_SAMPLEKERNELS_H
#define SONAVIA_VIEWER_CORE_SAMPLEKERNELS_H

#include <QtGlobal>

#include <cstddef>

/// Loops over every sample of a recording, as fast as the memory delivers them. Where there is no SSE2 plain
/// code takes over; the results are the same bits.
namespace SampleKernels {

/// What the samples of a stretch amount to, in steps of the converter.
struct Statistics
{
    double maximum = 0;
    double minimum = 0;
    double sumOfSquares = 0; ///< added up in eight running sums, then these in order
};

/// Of at least one sample.
Statistics statistics(const int* samples, std::size_t count);

/// to[i] = samples[i x step] x gain, truncated to an integer and held within 16 bits; little-endian.
void toSixteenBits(const int* samples, std::size_t step, std::size_t count, double gain, qint16* to);

} // namespace SampleKernels

#endif
