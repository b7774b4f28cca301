// The curves of the axis plots of a recording of 60 s at 500 kHz, against plain loops on one thread. Both
// take turns within one run; times are medians.
#include "benchmarks/TimedRounds.h"
#include "dsp/QRealFourier.h"
#include "dsp/WindowShapes.h"
#include "viewer/core/LevelCurve.h"
#include "viewer/core/MatrixMaxima.h"
#include "viewer/core/TimeCurve.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

namespace {

constexpr int sampleRate = 500000;
constexpr int seconds = 60;
constexpr int bits = 16;
constexpr int plotWidth = 1600;

const std::vector<int>& recording()
{
    static const std::vector<int> samples = [] {
        std::vector<int> result(static_cast<std::size_t>(seconds) * sampleRate);
        std::minstd_rand random(5);
        for (int& sample : result)
            sample = static_cast<int>(random() % 20000) - 10000;
        return result;
    }();
    return samples;
}

void report(benchmark::State& state, const TimedRounds& own, const TimedRounds& plain)
{
    state.counters["own_ms"] = own.median();
    state.counters["own_best_ms"] = own.best();
    state.counters["plain_ms"] = plain.median();
    state.counters["own/plain"] = own.median() / plain.median();
}

TimeCurve plainEnvelope(const std::vector<int>& samples)
{
    TimeCurve curve;
    const std::size_t block = samples.size() / plotWidth;
    for (std::size_t first = 0; first + block <= samples.size(); first += block) {
        double maximum = -1;
        double minimum = 1;
        double squares = 0;
        for (std::size_t i = first; i < first + block; ++i) {
            const double value = samples[i] / 32767.0;
            maximum = std::max(maximum, value);
            minimum = std::min(minimum, value);
            squares += value * value;
        }
        const double time = static_cast<double>(first + block - 1) / sampleRate;
        const double rms = std::sqrt(squares / static_cast<double>(block));
        curve.maximum.append(QPointF(time, maximum));
        curve.minimum.append(QPointF(time, minimum));
        curve.positiveRms.append(QPointF(time, rms));
        curve.negativeRms.append(QPointF(time, -rms));
    }
    return curve;
}

void envelope(benchmark::State& state)
{
    const std::vector<int>& samples = recording();
    TimedRounds own;
    TimedRounds plain;
    for (auto _ : state) {
        own.run([&] {
            const TimeCurve curve =
                TimeCurve::envelope(samples, sampleRate, bits, {0, samples.size()}, plotWidth);
            benchmark::DoNotOptimize(curve.maximum.constData());
        });
        plain.run([&] {
            const TimeCurve curve = plainEnvelope(samples);
            benchmark::DoNotOptimize(curve.maximum.constData());
        });
    }
    report(state, own, plain);
}

std::vector<double> plainPower(const std::vector<int>& samples)
{
    constexpr std::size_t size = 4096;
    const std::vector<double> window = windowShape(QStringLiteral("Hamming"), size);
    std::vector<float> input(size);
    std::vector<float> output(size);
    std::vector<double> power(size / 2 + 1);
    QRealFourier fourier(size);
    for (std::size_t first = 0; first + size <= samples.size(); first += size) {
        for (std::size_t i = 0; i < size; ++i)
            input[i] = static_cast<float>(samples[first + i] / 32767.0 * window[i]);
        fourier.forward(input.data(), output.data());
        for (std::size_t k = 1; k < size / 2; ++k) {
            const double real = output[k];
            const double imaginary = output[size / 2 + k];
            power[k] += real * real + imaginary * imaginary;
        }
    }
    return power;
}

void powerDensity(benchmark::State& state)
{
    const std::vector<int>& samples = recording();
    TimedRounds own;
    TimedRounds plain;
    for (auto _ : state) {
        own.run([&] {
            const QVector<QPointF> curve = LevelCurve::powerDensity(
                samples, sampleRate, bits, {0, samples.size()}, QStringLiteral("Hamming"));
            benchmark::DoNotOptimize(curve.constData());
        });
        plain.run([&] {
            const std::vector<double> power = plainPower(samples);
            benchmark::DoNotOptimize(power.data());
        });
    }
    report(state, own, plain);
}

/// A matrix as large as the program makes them: 8e7 cells.
struct LargestMatrix
{
    static constexpr int rows = 511;
    static constexpr int columns = 156555;
    std::vector<double> values = std::vector<double>(static_cast<std::size_t>(rows) * columns, -80.0);
    DecibelMatrix view{values.data(), rows, columns, 60.0 / columns, 250.0 / rows};
};

LargestMatrix& largestMatrix()
{
    static LargestMatrix matrix;
    return matrix;
}

void matrixMaxima(benchmark::State& state)
{
    const DecibelMatrix& matrix = largestMatrix().view;
    TimedRounds own;
    TimedRounds plain;
    for (auto _ : state) {
        own.run([&] {
            const MatrixMaxima maxima(matrix);
            benchmark::DoNotOptimize(maxima.columns().data());
        });
        plain.run([&] {
            std::vector<double> columns(matrix.columns, -300.0);
            std::vector<double> rows(matrix.rows, -300.0);
            for (int row = 0; row < matrix.rows; ++row)
                for (int column = 0; column < matrix.columns; ++column) {
                    const double level = matrix.row(row)[column];
                    columns[column] = std::max(columns[column], level);
                    rows[row] = std::max(rows[row], level);
                }
            benchmark::DoNotOptimize(columns.data());
            benchmark::DoNotOptimize(rows.data());
        });
    }
    report(state, own, plain);
}

/// What a zoom costs: both curves of the largest levels over nine tenths of the columns.
void largestLevels(benchmark::State& state)
{
    const DecibelMatrix& matrix = largestMatrix().view;
    const MatrixMaxima maxima(matrix);
    const ColumnRange range{matrix.columns / 20, matrix.columns / 20 * 19};
    TimedRounds own;
    TimedRounds plain;
    for (auto _ : state) {
        own.run([&] {
            const TimeCurve time = TimeCurve::largestLevels(matrix, maxima, range, plotWidth);
            const QVector<QPointF> level = LevelCurve::largestLevels(matrix, maxima, range, 1000);
            benchmark::DoNotOptimize(time.maximum.constData());
            benchmark::DoNotOptimize(level.constData());
        });
        plain.run([&] {
            QVector<QPointF> level;
            for (int row = 0; row < matrix.rows; ++row) {
                const double* values = matrix.row(row);
                level.append(QPointF(*std::max_element(values + range.first, values + range.end), row));
            }
            benchmark::DoNotOptimize(level.constData());
        });
    }
    report(state, own, plain);
}

} // namespace

BENCHMARK(envelope)->Iterations(21);
BENCHMARK(powerDensity)->Iterations(11);
BENCHMARK(matrixMaxima)->Iterations(7);
BENCHMARK(largestLevels)->Iterations(7);

BENCHMARK_MAIN();
