// Call detection against the plain step-by-step version, on the image of a recording of 60 s at 500 kHz with
// windows of 512 samples and 87.5 % overlap. Both run in turn on copies of the same image; the ratio is that
// of the best times. A result that differs in one bit fails the run.
#include "dsp/CallDetector.h"
#include "dsp/ImageConditioning.h"
#include "dsp/InstructionSet.h"
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

struct Detection
{
    double seconds = 0;
    std::uint64_t imageDigest = 0;
    std::unordered_map<int, Blob> blobs;
    QStringList classes;
    QList<MyBatCall> calls;
};

std::uint64_t digest(const AmplitudeImage& image)
{
    std::uint64_t sum = 0;
    for (int frame = 0; frame < image.frames(); ++frame) {
        const float* row = image.row(frame);
        for (int bin = 0; bin < image.bins(); ++bin) {
            std::uint32_t bits = 0;
            std::memcpy(&bits, row + bin, sizeof bits);
            sum = (sum ^ bits) * 0x9e3779b97f4a7c15U;
        }
    }
    return sum;
}

template <class Detect>
Detection run(Detect detect, const AmplitudeImage& original, AmplitudeImage& work)
{
    std::memcpy(work.row(0), original.row(0), original.cells() * sizeof(float));
    Detection result;
    const auto begin = std::chrono::steady_clock::now();
    detect(work, overlap, sampleRate, sampleSize, result.blobs, result.classes, result.calls);
    result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    result.imageDigest = digest(work);
    return result;
}

bool sameBlob(const Blob& a, const Blob& b)
{
    return a.pixelCount == b.pixelCount && a.firstFrame == b.firstFrame && a.lastFrame == b.lastFrame &&
           a.lowestBin == b.lowestBin && a.highestBin == b.highestBin && a.score == b.score;
}

bool sameCall(const MyBatCall& a, const MyBatCall& b)
{
    const auto numbers = [](const MyBatCall& call) {
        return std::array<double, 14>{call.startFreq,
                                      call.endFreq,
                                      call.maxFreq,
                                      call.minFreq,
                                      call.centroid,
                                      call.duration,
                                      double(call.switchCount),
                                      double(call.zeroCount),
                                      double(call.posHist),
                                      double(call.negHist),
                                      call.rectangle.x(),
                                      call.rectangle.y(),
                                      call.rectangle.width(),
                                      call.rectangle.height()};
    };
    return numbers(a) == numbers(b) && a.classText == b.classText;
}

bool same(const Detection& a, const Detection& b)
{
    return a.imageDigest == b.imageDigest && a.classes == b.classes && a.blobs.size() == b.blobs.size() &&
           std::all_of(a.blobs.begin(), a.blobs.end(),
                       [&](const auto& blob) {
                           const auto other = b.blobs.find(blob.first);
                           return other != b.blobs.end() && sameBlob(blob.second, other->second);
                       }) &&
           std::equal(a.calls.begin(), a.calls.end(), b.calls.begin(), b.calls.end(), sameCall);
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
    for (auto _ : state) {
        const Detection expected = run(PlainDetector::detect, original(), work);
        const Detection result = run(CallDetector::detect, original(), work);
        state.SetIterationTime(result.seconds);
        plain = std::min(plain, expected.seconds);
        fast = std::min(fast, result.seconds);
        state.counters["regions"] = static_cast<double>(result.blobs.size());
        if (!same(expected, result)) {
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
