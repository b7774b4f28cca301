#ifndef SONAVIA_DSP_BLOB_H
#define SONAVIA_DSP_BLOB_H

#include <cstdint>

/// One connected region of the conditioned amplitude image. Frames and bins are inclusive; bin i stands for
/// the frequency i x sample rate / window size.
struct Blob
{
    std::uint64_t pixelCount = 0;
    int firstFrame = 0;
    int lastFrame = 0;
    int lowestBin = 0;
    int highestBin = 0;
    float score = 0; ///< sum of the conditioned amplitudes: the strongest regions are kept
};

#endif
