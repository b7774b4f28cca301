// The computation of a spectrogram as the worker does it, result in fresh memory, against a plain loop around
// FFTW. All versions take turns within one run; the counters are medians in ms and their ratios to the plain
// loop. Arguments: length of the recording in s, overlap in tenths of a percent.
#include "dsp/InstructionSet.h"
#include "dsp/SpectrogramEngine.h"
#include "dsp/WindowShapes.h"

#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <fftw3.h>
#include <functional>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int windowSize = 1024;
constexpr int sampleRate = 500000;
constexpr int bits = 16;

/// Noise with a few sweeping tones, 16 bits.
std::vector<int> recording(int seconds)
{
    std::vector<int> samples(static_cast<std::size_t>(seconds) * sampleRate);
    std::minstd_rand random(3);
    double phase = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        phase += 0.2 + 0.3 * static_cast<double>(i % 50000) / 50000.0;
        samples[i] = static_cast<int>(8000 * std::sin(phase)) + static_cast<int>(random() % 64) - 32;
    }
    return samples;
}

SpectrogramInput inputFor(const std::vector<int>& samples, double overlap)
{
    SpectrogramInput input;
    input.samples = samples.data();
    input.bitsPerSample = bits;
    input.window = QStringLiteral("Hamming");
    input.geometry = SpectrogramGeometry::of(static_cast<qint64>(samples.size()), windowSize, 100, overlap);
    return input;
}

/// The peer: one thread, nothing prepared but the window table and the plan.
class PlainLoop
{
public:
    PlainLoop()
        : m_plan(fftwf_plan_dft_r2c_1d(windowSize, m_frame.get(), m_spectrum.get(), FFTW_MEASURE)),
          m_window(windowShape(QStringLiteral("Hamming"), windowSize))
    {}
    ~PlainLoop() { fftwf_destroy_plan(m_plan); }
    PlainLoop(const PlainLoop&) = delete;
    PlainLoop& operator=(const PlainLoop&) = delete;

    void compute(const SpectrogramInput& input)
    {
        const SpectrogramGeometry& geometry = input.geometry;
        const float fullScale = std::pow(2.0F, static_cast<float>(bits)) * 0.5F - 1;
        const std::unique_ptr<double[]> matrix(new double[static_cast<std::size_t>(geometry.cells())]);
        double minimum = 0;
        double maximum = -5000;
        for (qint64 k = 0; k < geometry.frames; ++k) {
            for (int i = 0; i < windowSize; ++i)
                m_frame.get()[i] = static_cast<float>(input.samples[geometry.hop * k + i] * m_window[i]);
            fftwf_execute(m_plan);
            for (int i = 0; i < geometry.bins; ++i) {
                const float real = m_spectrum.get()[i][0] / windowSize;
                const float imaginary = m_spectrum.get()[i][1] / windowSize;
                const float amplitude = 2 * std::sqrt(real * real + imaginary * imaginary) / fullScale;
                const double value = 20.0 * std::log10(static_cast<double>(amplitude));
                matrix[i * geometry.frames + k] = value;
                minimum = std::min(minimum, value);
                maximum = std::max(maximum, value);
            }
        }
        benchmark::DoNotOptimize(matrix.get());
        benchmark::DoNotOptimize(minimum);
        benchmark::DoNotOptimize(maximum);
    }

private:
    struct Release
    {
        void operator()(void* block) const { fftwf_free(block); }
    };
    std::unique_ptr<float, Release> m_frame{fftwf_alloc_real(windowSize)};
    std::unique_ptr<fftwf_complex, Release> m_spectrum{fftwf_alloc_complex(windowSize / 2 + 1)};
    fftwf_plan m_plan;
    std::vector<double> m_window;
};

template <typename Work>
double milliseconds(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) * 1e-6;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void compute(const SpectrogramInput& input, int threads, InstructionSet set)
{
    useInstructionSet(set);
    SpectrogramEngine engine;
    engine.setThreadCount(threads);
    Spectrogram result;
    engine.compute(input, SpectrogramEngine::Decibels, result);
    benchmark::DoNotOptimize(result.decibels.constData());
    useInstructionSet(bestInstructionSet());
}

void spectrogram(benchmark::State& state)
{
    const std::vector<int> samples = recording(static_cast<int>(state.range(0)));
    const SpectrogramInput input = inputFor(samples, static_cast<double>(state.range(1)) / 10);
    PlainLoop plain;
    const std::array<std::function<void()>, 4> versions{
        [&] { plain.compute(input); },
        [&] { compute(input, 1, bestInstructionSet()); },
        [&] { compute(input, 2, bestInstructionSet()); },
        [&] { compute(input, 1, InstructionSet::Sse2); },
    };
    std::array<std::vector<double>, 4> times;
    std::array<std::size_t, 4> order{0, 1, 2, 3};
    std::minstd_rand random(1);
    while (state.KeepRunning()) {
        // What one version leaves behind in the system's memory, the next one pays for.
        std::shuffle(order.begin(), order.end(), random);
        for (const std::size_t version : order)
            times[version].push_back(milliseconds(versions[version]));
    }
    const double peer = median(times[0]);
    state.counters["plain_ms"] = peer;
    state.counters["one_ms"] = median(times[1]);
    state.counters["one/plain"] = median(times[1]) / peer;
    state.counters["two/plain"] = median(times[2]) / peer;
    state.counters["sse2/plain"] = median(times[3]) / peer;
}

} // namespace

BENCHMARK(spectrogram)->ArgNames({"s", "overlap"})->Args({5, 500})->Args({5, 875})->Iterations(16);
BENCHMARK(spectrogram)->ArgNames({"s", "overlap"})->Args({60, 500})->Args({60, 875})->Iterations(8);

BENCHMARK_MAIN();
