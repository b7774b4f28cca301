#ifndef SONAVIA_TESTS_SUPPORT_PLAINDETECTOR_H
#define SONAVIA_TESTS_SUPPORT_PLAINDETECTOR_H

#include "dsp/AmplitudeImage.h"
#include "dsp/Blob.h"
#include "dsp/MyBatCall.h"

#include <QList>
#include <QStringList>

#include <unordered_map>
#include <vector>

/// Call detection written down step after step with no thought of speed: what
/// CallDetector has to give to the bit, and what it is timed against. Shares the class table with it, nothing
/// else. Arguments as for CallDetector::detect().
class PlainDetector
{
public:
    static void detect(AmplitudeImage& image, float overlap, int sampleRate, int sampleSize,
                       std::unordered_map<int, Blob>& blobs, QStringList& classes, QList<MyBatCall>& calls);

    /// The image cleaned of background and echoes, with an empty border.
    static void condition(AmplitudeImage& image, int sampleRate);

    /// A label for each cell, 0 where the image is 0, by flood fill over 8 neighbours.
    static std::vector<int> label(const AmplitudeImage& image, int* regionCount);

    /// The extent, size and score of each region; label 1 first.
    static std::vector<Blob> measureRegions(const AmplitudeImage& image, const std::vector<int>& labels,
                                            int regionCount);
};

#endif
