// Building the WAV in memory that a recording of 60 s at 500 kHz is played from, against copying as many
// bytes into fresh memory. Both take turns within one run; times are medians. Argument: undersampling factor.
#include "benchmarks/TimedRounds.h"
#include "viewer/core/PlaybackWav.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <random>

namespace {

constexpr int sampleRate = 500000;
constexpr int seconds = 60;

std::vector<int> recording()
{
    std::vector<int> samples(static_cast<std::size_t>(seconds) * sampleRate);
    std::minstd_rand random(5);
    for (int& sample : samples)
        sample = static_cast<int>(random() % 20000) - 10000;
    return samples;
}

void playbackWav(benchmark::State& state)
{
    static const std::vector<int> samples = recording();
    const PlaybackWav::Source source{&samples, sampleRate, 16, 1, 1.1 * 10000 / 32767};
    const int factorIndex = static_cast<int>(state.range(0) / 2);
    const QByteArray ready = PlaybackWav::make(source, 0, seconds, factorIndex, 0).bytes;

    TimedRounds make;
    TimedRounds copy;
    for (auto _ : state) {
        make.run([&] {
            const PlaybackWav wav = PlaybackWav::make(source, 0, seconds, factorIndex, 0);
            benchmark::DoNotOptimize(wav.bytes.constData());
        });
        copy.run([&] {
            QByteArray bytes(ready.size(), Qt::Uninitialized);
            std::memcpy(bytes.data(), ready.constData(), static_cast<std::size_t>(ready.size()));
            benchmark::DoNotOptimize(bytes.constData());
        });
    }
    state.counters["make_ms"] = make.median();
    state.counters["MB/s"] = ready.size() * 1e-3 / make.median();
    state.counters["make/memcpy"] = make.median() / copy.median();
}

} // namespace

BENCHMARK(playbackWav)->ArgName("factor")->Arg(1)->Arg(2)->Arg(10)->Arg(30)->Iterations(21);

BENCHMARK_MAIN();
