#include "viewer/core/LevelCurve.h"

#include "dsp/QRealFourier.h"
#include "dsp/WindowShapes.h"
#include "viewer/core/FullScale.h"
#include "viewer/core/ParallelRanges.h"
#include "viewer/core/Prefetch.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int frameSize = 4096;
constexpr int half = frameSize / 2;
constexpr int bins = half + 1;
// Frames whose powers are added in single precision; the sums of these groups are added in double.
constexpr std::size_t framesPerGroup = 64;

double decibels(double power)
{
    return std::max(10.0 * std::log10(power), DecibelMatrix::floor);
}

/// The factors that make windowed samples relative to full scale out of sample values.
std::vector<float> coefficients(const QString& window, int length, int bitsPerSample)
{
    const bool hyphened = window == QLatin1String("Blackman-Harris");
    const std::vector<double> shape =
        windowShape(hyphened ? QStringLiteral("BlackmanHarris") : window, length);
    const double scale = 1.0 / fullScale(bitsPerSample);
    std::vector<float> result(shape.size());
    std::transform(shape.begin(), shape.end(), result.begin(),
                   [scale](double value) { return static_cast<float>(value * scale); });
    return result;
}

/// Transforms frames and adds up the squared magnitudes of their bins. One for each thread.
class PowerSum
{
public:
    explicit PowerSum(const std::vector<float>& window)
        : m_window(window), m_fourier(frameSize), m_input(frameSize, 0.0F), m_output(frameSize)
    {}

    /// Adds the frame of as many samples as the window is long to `powers`.
    void add(const int* samples, float* powers)
    {
        windowed(samples);
        m_fourier.forward(m_input.data(), m_output.data());

        const float* real = m_output.data();
        const float* imaginary = real + half;
        powers[0] += real[0] * real[0];
        for (int k = 1; k < half; ++k)
            powers[k] += real[k] * real[k] + imaginary[k] * imaginary[k];
        powers[half] += real[half] * real[half];
    }

private:
    void windowed(const int* samples)
    {
        constexpr std::size_t group = 16; // a cache line
        const float* window = m_window.data();
        float* input = m_input.data();
        const std::size_t length = m_window.size();
        std::size_t i = 0;
        for (; i + group <= length; i += group) {
            prefetchAhead(samples + i);
            for (std::size_t k = i; k < i + group; ++k)
                input[k] = static_cast<float>(samples[k]) * window[k];
        }
        for (; i < length; ++i)
            input[i] = static_cast<float>(samples[i]) * window[i];
    }

    const std::vector<float>& m_window;
    QRealFourier m_fourier;
    std::vector<float> m_input;
    std::vector<float> m_output;
};

/// The squared magnitudes of each bin, summed over consecutive frames as long as the window.
std::vector<double> summedPowers(const int* samples, std::size_t frames, const std::vector<float>& window)
{
    const std::size_t groups = (frames + framesPerGroup - 1) / framesPerGroup;
    std::vector<float> groupPowers(groups * bins, 0.0F);
    inParallelRanges(groups, 1, [&](std::size_t firstGroup, std::size_t endGroup) {
        PowerSum sum(window);
        for (std::size_t group = firstGroup; group < endGroup; ++group) {
            const std::size_t end = std::min((group + 1) * framesPerGroup, frames);
            for (std::size_t frame = group * framesPerGroup; frame < end; ++frame)
                sum.add(samples + frame * window.size(), groupPowers.data() + group * bins);
        }
    });
    std::vector<double> powers(bins, 0.0);
    for (std::size_t group = 0; group < groups; ++group)
        for (int k = 0; k < bins; ++k)
            powers[k] += groupPowers[group * bins + k];
    return powers;
}

/// One point for each block of rows; levelOf(row) is the level of one.
template <typename LevelOf>
QVector<QPointF> thinned(const DecibelMatrix& matrix, int plotHeight, const LevelOf& levelOf)
{
    QVector<QPointF> curve;
    const int block = std::max(matrix.rows / std::max(plotHeight, 1), 1);
    curve.reserve(matrix.rows / block + 1);
    for (int first = 0; first < matrix.rows; first += block) {
        const int end = std::min(first + block, matrix.rows);
        double level = DecibelMatrix::floor;
        for (int row = first; row < end; ++row)
            level = std::max(level, levelOf(row));
        curve.append(QPointF(level, (end - 1) * matrix.kilohertzPerRow));
    }
    return curve;
}

} // namespace

QVector<QPointF> LevelCurve::powerDensity(const std::vector<int>& samples, int sampleRate, int bitsPerSample,
                                          SampleRange range, const QString& window)
{
    range.end = std::min(range.end, samples.size());
    const std::size_t count = range.count();
    if (count == 0 || sampleRate <= 0)
        return {};

    const std::size_t length = std::min<std::size_t>(count, frameSize);
    const std::size_t frames = count / length;
    const std::vector<double> powers = summedPowers(
        samples.data() + range.first, frames, coefficients(window, static_cast<int>(length), bitsPerSample));
    const double scale = 1.0 / (static_cast<double>(frames * length) * sampleRate);

    QVector<QPointF> curve;
    curve.reserve(bins);
    for (int k = 0; k < bins; ++k) {
        const double power = (k == 0 ? 1.0 : 2.0) * powers[k] * scale;
        curve.append(QPointF(decibels(power), k * (sampleRate / 1000.0) / frameSize));
    }
    return curve;
}

QVector<QPointF> LevelCurve::columnLevels(const DecibelMatrix& matrix, int column, int plotHeight)
{
    if (matrix.isEmpty() || column < 0 || column >= matrix.columns)
        return {};
    return thinned(matrix, plotHeight, [&](int row) { return matrix.row(row)[column]; });
}

QVector<QPointF> LevelCurve::largestLevels(const DecibelMatrix& matrix, const MatrixMaxima& maxima,
                                           ColumnRange range, int plotHeight)
{
    if (matrix.isEmpty())
        return {};
    return thinned(matrix, plotHeight, [&](int row) { return maxima.row(matrix, row, range); });
}
