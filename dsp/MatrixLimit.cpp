#include "dsp/MatrixLimit.h"

#include "dsp/SpectrogramGeometry.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<double, 7> ladder{98.4375, 96.875, 93.75, 87.5, 75, 50, 0};

double stepDown(double percent)
{
    const auto step = std::find(ladder.begin(), ladder.end(), percent);
    return step == ladder.end() || step + 1 == ladder.end() ? 0.0 : *(step + 1);
}

qint64 estimatedCells(qint64 sampleCount, int windowSize, int sharedSamples)
{
    const qint64 frames = (sampleCount - windowSize) / (windowSize - sharedSamples + 1);
    return frames * (windowSize / 2 - 1);
}

/// Steps down while the matrix is too large; sharedSamples(percent) says how the overlap is evaluated.
template <typename SharedSamples>
double reducedPercent(qint64 sampleCount, int windowSize, double percent, SharedSamples sharedSamples)
{
    while (percent != 0 &&
           estimatedCells(sampleCount, windowSize, sharedSamples(percent)) > MatrixLimit::cells)
        percent = stepDown(percent);
    return percent;
}

} // namespace

MatrixLimit::Overlap MatrixLimit::reduced(qint64 sampleCount, int windowSize, double percent)
{
    const double result = reducedPercent(sampleCount, windowSize, percent, [windowSize](double overlap) {
        return overlapSamples(windowSize, overlap);
    });
    return {result, result != percent};
}

float MatrixLimit::reducedForVantor(qint64 sampleCount, float percent)
{
    constexpr int windowSize = 512;
    const double result = reducedPercent(sampleCount, windowSize, percent, [](double overlap) {
        return overlapSamplesSingle(windowSize, static_cast<float>(overlap));
    });
    return static_cast<float>(result);
}

QString MatrixLimit::message(double percent)
{
    return QStringLiteral("Current spectrogram matrix size is over the limit.\n Overlap for this spectrogram "
                          "calculation is reduced to ") +
           QString::number(percent) + QLatin1Char('%');
}

int MatrixLimit::nextIndex(int storedIndex)
{
    return std::clamp(storedIndex, 0, 5) + 1;
}
