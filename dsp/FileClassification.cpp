#include "dsp/FileClassification.h"

#include "dsp/Blob.h"
#include "dsp/CallDetector.h"
#include "dsp/MatrixLimit.h"
#include "dsp/MyBatCall.h"

#include <QList>

#include <unordered_map>

namespace {

float fileClassOverlap(qint64 sampleCount)
{
    return MatrixLimit::reducedForVantor(sampleCount, 87.5F);
}

} // namespace

SpectrogramGeometry fileClassGeometry(qint64 sampleCount)
{
    return SpectrogramGeometry::ofSingle(sampleCount, 512, 100, fileClassOverlap(sampleCount));
}

SpectrogramEngine::Outcome detectFileClasses(const std::vector<int>& samples, int bitsPerSample,
                                             int sampleRate, const std::atomic<bool>& stop,
                                             QStringList* classes)
{
    classes->clear();
    const auto sampleCount = static_cast<qint64>(samples.size());
    SpectrogramInput input;
    input.samples = samples.data();
    input.bitsPerSample = bitsPerSample;
    input.window = QStringLiteral("Hamming");
    input.geometry = fileClassGeometry(sampleCount);

    SpectrogramEngine engine;
    engine.setStopFlag(&stop);
    Spectrogram result;
    const auto outcome = engine.compute(input, SpectrogramEngine::Image, result);
    if (outcome != SpectrogramEngine::Outcome::Complete)
        return outcome;
    std::unordered_map<int, Blob> blobs;
    QList<MyBatCall> calls;
    CallDetector::detect(result.image, fileClassOverlap(sampleCount), sampleRate,
                         static_cast<int>(sampleCount), blobs, *classes, calls);
    return outcome;
}
