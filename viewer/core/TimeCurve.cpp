#include "viewer/core/TimeCurve.h"

#include "viewer/core/FullScale.h"
#include "viewer/core/ParallelRanges.h"
#include "viewer/core/SampleKernels.h"

#include <algorithm>
#include <cmath>
#include <mutex>

namespace {

constexpr std::size_t worthAThread = 1U << 18; ///< samples
constexpr double displayHeadroom = 1.1;

ColumnRange cut(ColumnRange range, int columns)
{
    return {std::clamp(range.first, 0, columns), std::clamp(range.end, 0, columns)};
}

/// One point for each whole step of the levels: `levels` has one value per column of the matrix.
TimeCurve thinned(const double* levels, double secondsPerColumn, ColumnRange range, int plotWidth)
{
    TimeCurve curve;
    const int columns = std::max(range.end - range.first, 0);
    const int step = std::max(columns / std::max(plotWidth, 1), 1);
    curve.maximum.reserve(columns / step);
    for (int last = range.first + step - 1; last < range.end; last += step) {
        double level = DecibelMatrix::floor;
        for (int column = last - step + 1; column <= last; ++column)
            level = std::max(level, levels[column]);
        curve.maximum.append(QPointF(last * secondsPerColumn, level));
    }
    return curve;
}

} // namespace

TimeCurve TimeCurve::envelope(const std::vector<int>& samples, int sampleRate, int bitsPerSample,
                              SampleRange range, int plotWidth)
{
    TimeCurve curve;
    range.end = std::min(range.end, samples.size());
    if (range.count() == 0 || sampleRate <= 0)
        return curve;

    const std::size_t block =
        std::max<std::size_t>(range.count() / static_cast<std::size_t>(std::max(plotWidth, 1)), 1);
    const std::size_t blocks = range.count() / block;
    const double full = fullScale(bitsPerSample);
    const double secondsPerSample = 1.0 / sampleRate;
    for (auto* series : {&curve.maximum, &curve.minimum, &curve.positiveRms, &curve.negativeRms})
        series->resize(static_cast<int>(blocks));

    inParallelRanges(blocks, worthAThread / block + 1,
                     [&, maximum = curve.maximum.data(), minimum = curve.minimum.data(),
                      positiveRms = curve.positiveRms.data(),
                      negativeRms = curve.negativeRms.data()](std::size_t first, std::size_t end) {
                         for (std::size_t i = first; i < end; ++i) {
                             const std::size_t start = range.first + i * block;
                             const SampleKernels::Statistics values =
                                 SampleKernels::statistics(samples.data() + start, block);
                             const double time = static_cast<double>(start + block - 1) * secondsPerSample;
                             const double rms =
                                 std::sqrt(values.sumOfSquares / static_cast<double>(block)) / full;
                             maximum[i] = QPointF(time, values.maximum / full);
                             minimum[i] = QPointF(time, values.minimum / full);
                             positiveRms[i] = QPointF(time, rms);
                             negativeRms[i] = QPointF(time, -rms);
                         }
                     });
    return curve;
}

TimeCurve TimeCurve::rowLevels(const DecibelMatrix& matrix, int row, ColumnRange range, int plotWidth)
{
    if (matrix.isEmpty() || row < 0 || row >= matrix.rows)
        return {};
    return thinned(matrix.row(row), matrix.secondsPerColumn, cut(range, matrix.columns), plotWidth);
}

TimeCurve TimeCurve::largestLevels(const DecibelMatrix& matrix, const MatrixMaxima& maxima, ColumnRange range,
                                   int plotWidth)
{
    const std::vector<double>& levels = maxima.columns();
    return thinned(levels.data(), matrix.secondsPerColumn, cut(range, static_cast<int>(levels.size())),
                   plotWidth);
}

double TimeCurve::displayPeak(const std::vector<int>& samples, int bitsPerSample)
{
    std::mutex mutex;
    double peak = 0;
    if (!samples.empty())
        inParallelRanges(samples.size(), worthAThread, [&](std::size_t first, std::size_t end) {
            const SampleKernels::Statistics values =
                SampleKernels::statistics(samples.data() + first, end - first);
            const std::lock_guard<std::mutex> lock(mutex);
            peak = std::max({peak, std::abs(values.maximum), std::abs(values.minimum)});
        });
    return displayHeadroom * peak / fullScale(bitsPerSample);
}
