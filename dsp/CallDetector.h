#ifndef SONAVIA_DSP_CALLDETECTOR_H
#define SONAVIA_DSP_CALLDETECTOR_H

#include "dsp/Blob.h"
#include "dsp/MyBatCall.h"

#include <QList>
#include <QStringList>

#include <unordered_map>

class AmplitudeImage;

/// Finds calls in the amplitude image of a recording and proposes a class for each of them.
class CallDetector
{
public:
    /// Conditions `image` in place (afterwards it holds what is left of each cell once background and echoes
    /// are removed), finds the connected regions that are left, and measures and classifies the strongest.
    ///
    /// image       linear amplitudes, as many bins as a transform of 2 x (bins + 1) samples gives
    /// overlap     overlap of the frames in percent, below 100
    /// sampleRate  in Hz
    /// sampleSize  length of the recording in samples; allows 20 regions per started second
    /// blobs       the regions, by label; labels grow with the first frame (then the first bin) of a region
    /// classes     one class text per region, in the order of ascending labels
    /// calls       one call per region, parallel to `classes`
    ///
    /// The outputs are replaced; they are empty where nothing is found, the image is empty or a number makes
    /// no sense. Same bits for every instruction set. Runs on the calling thread and keeps no state.
    static void detect(AmplitudeImage& image, float overlap, int sampleRate, int sampleSize,
                       std::unordered_map<int, Blob>& blobs, QStringList& classes, QList<MyBatCall>& calls);
};

#endif
