// Call detection against the plain step-by-step version, on the image of a recording of 60 s at 500 kHz with
// windows of 512 samples and 87.5 % overlap. Both run in turn on copies of the same image; the ratio is that
// of the best times. A result that differs in one bit fails the run.
#include "dsp/CallDetector.h"
#include "dsp/InstructionSet.h"
#include "tests/support/DetectionResult.h"
#include "tests/support/PlainDetector.h"
#include "tests/support/SyntheticImage.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <limits>

namespace {

constexpr int sampleRate = 500000;
constexpr int sampleSize = 60 * sampleRate;
constexpr int windowSize = 512;
constexpr float overlap = 87.5F;
constexpr int bins = windowSize / 2 - 1;
constexpr int frames = (sampleSize - windowSize) / (windowSize / 8) + 1;

struct Run
{
    double seconds = 0;
    quint64 imageDigest = 0;
    DetectionResult result;
};

template <class Detect>
Run run(Detect detect, const AmplitudeImage& original, AmplitudeImage& work)
{
    std::memcpy(work.row(0), original.row(0), original.cells() * sizeof(float));
    Run run;
    DetectionResult& result = run.result;
    const auto begin = std::chrono::steady_clock::now();
    detect(work, overlap, sampleRate, sampleSize, result.blobs, result.classes, result.calls);
    run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    run.imageDigest = digest(work);
    return run;
}

const AmplitudeImage& original()
{
    static const AmplitudeImage image = syntheticImage(frames, bins, 1);
    return image;
}

void detection(benchmark::State& state)
{
    useInstructionSet(static_cast<InstructionSet>(state.range(0)));
    AmplitudeImage work(frames, bins);
    double plain = std::numeric_limits<double>::max();
    double fast = plain;
    while (state.KeepRunning()) {
        const Run expected = run(PlainDetector::detect, original(), work);
        const Run actual = run(CallDetector::detect, original(), work);
        state.SetIterationTime(actual.seconds);
        plain = std::min(plain, expected.seconds);
        fast = std::min(fast, actual.seconds);
        state.counters["regions"] = static_cast<double>(actual.result.blobs.size());
        if (actual.imageDigest != expected.imageDigest ||
            !difference(actual.result, expected.result).isEmpty()) {
            state.SkipWithError("the results differ from those of the plain version");
            break;
        }
    }
    useInstructionSet(bestInstructionSet());
    state.counters["plain_ms"] = plain * 1e3;
    state.counters["fast_ms"] = fast * 1e3;
    state.counters["ratio"] = fast / plain;
    state.SetLabel("equal to the bit");
}

} // namespace

BENCHMARK(detection)
    ->ArgName("instructionSet")
    ->Arg(static_cast<int>(InstructionSet::Avx2))
    ->Arg(static_cast<int>(InstructionSet::Sse2))
    ->Arg(static_cast<int>(InstructionSet::Portable))
    ->Iterations(4)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
