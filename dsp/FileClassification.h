#ifndef SONAVIA_DSP_FILECLASSIFICATION_H
#define SONAVIA_DSP_FILECLASSIFICATION_H

#include "dsp/SpectrogramEngine.h"

#include <QStringList>

#include <atomic>
#include <vector>

// Calls and class texts of a whole recording with the fixed parameters that classes are proposed with,
// whatever the user looks at: windows of 512 samples, Hamming, 87.5 % overlap (less for long recordings).

/// How a recording of so many samples is cut into frames.
SpectrogramGeometry fileClassGeometry(qint64 sampleCount);

/// The class text of each call, for proposeFileClass(); empty unless the outcome is Complete. Runs on the
/// calling thread and on helpers of its own; ends soon after `stop` was set. `sampleRate` in Hz.
SpectrogramEngine::Outcome detectFileClasses(const std::vector<int>& samples, int bitsPerSample,
                                             int sampleRate, const std::atomic<bool>& stop,
                                             QStringList* classes);

#endif
