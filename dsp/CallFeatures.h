#ifndef SONAVIA_DSP_CALLFEATURES_H
#define SONAVIA_DSP_CALLFEATURES_H

#include "dsp/RegionLabelling.h"

#include <vector>

class AmplitudeImage;

/// What is measured of one region. Frequencies are in bins. "Centroid" of a frame is the mean of the region's
/// bins in it, each weighted with log10(20 x amplitude + 1); frames without weight do not count.
struct CallFeatures
{
    bool measured = false; ///< false where no frame counts; all numbers are 0 then
    double centroid = 0;   ///< of the spectrum summed over the frames
    double maxFreq = 0;    ///< centroid + unbroken bins of that spectrum upwards
    double minFreq = 0;    ///< centroid - unbroken bins downwards, the ending gap included
    double startFreq = 0;  ///< centroid of the first frame that counts
    double endFreq = 0;    ///< centroid of the last frame that counts
    // Of the jumps of the centroid from frame to frame, in whole bins:
    int switchCount = 0; ///< separate runs of jump sizes, minus one
    int zeroCount = 0;   ///< jump sizes that are missing between the smallest and the largest
    int posHist = 0;     ///< different jumps upwards
    int negHist = 0;     ///< different jumps downwards
};

/// Measures the region made of `runs` (in scan order) in the conditioned image. Weights are computed in
/// double and kept in single precision, so that they do not depend on the mathematical library; all sums are
/// in double, by ascending bin, then frame.
CallFeatures measureFeatures(const AmplitudeImage& image, const std::vector<RegionLabelling::Run>& runs);

#endif
