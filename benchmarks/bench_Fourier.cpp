// The forward transform against FFTW (single precision, r2c, FFTW_MEASURE, out of place) and kissfft. In
// every round all of them transform the same samples some hundred times, one after the other; the figures are
// the best rounds in nanoseconds per transform, and the ratios of these.
#include "dsp/InstructionSet.h"
#include "dsp/QRealFourier.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <fftw3.h>
#include <kiss_fftr.h>
#include <memory>
#include <vector>

namespace {

/// The best time of one transform so far, in nanoseconds.
class BestTime
{
public:
    template <typename Transform>
    void run(int count, Transform transform)
    {
        const auto begin = std::chrono::steady_clock::now();
        for (int i = 0; i < count; ++i) {
            transform();
            benchmark::ClobberMemory();
        }
        const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - begin;
        m_best = std::min(m_best, time.count() / count);
    }

    double nanoseconds() const { return m_best; }

private:
    double m_best = 1e30;
};

struct FftwFree
{
    void operator()(void* memory) const { fftwf_free(memory); }
};

std::unique_ptr<QRealFourier> transformFor(int size, InstructionSet set)
{
    useInstructionSet(set);
    auto transform = std::make_unique<QRealFourier>(size);
    useInstructionSet(bestInstructionSet());
    return transform;
}

/// All of them share the aligned arrays that FFTW likes best.
void forward(benchmark::State& state)
{
    const int size = static_cast<int>(state.range(0));
    const auto length = static_cast<std::size_t>(size);
    std::unique_ptr<float, FftwFree> samples(fftwf_alloc_real(length));
    std::unique_ptr<fftwf_complex, FftwFree> bins(fftwf_alloc_complex(length / 2 + 1));
    float* const spectrum = reinterpret_cast<float*>(bins.get());
    const fftwf_plan plan = fftwf_plan_dft_r2c_1d(size, samples.get(), bins.get(), FFTW_MEASURE);
    const kiss_fftr_cfg kiss = kiss_fftr_alloc(size, 0, nullptr, nullptr);
    for (std::size_t i = 0; i < length; ++i) // planning overwrites them
        samples.get()[i] = std::sin(0.1f * static_cast<float>(i * i));

    const auto avx2 = transformFor(size, InstructionSet::Avx2);
    const auto sse2 = transformFor(size, InstructionSet::Sse2);
    const auto portable = transformFor(size, InstructionSet::Portable);
    const int count = 60000 / size + 1;
    BestTime fftwTime;
    BestTime kissTime;
    BestTime avx2Time;
    BestTime sse2Time;
    BestTime portableTime;
    for (auto _ : state) {
        fftwTime.run(count, [&] { fftwf_execute(plan); });
        avx2Time.run(count, [&] { avx2->forward(samples.get(), spectrum); });
        sse2Time.run(count, [&] { sse2->forward(samples.get(), spectrum); });
        portableTime.run(count, [&] { portable->forward(samples.get(), spectrum); });
        kissTime.run(count,
                     [&] { kiss_fftr(kiss, samples.get(), reinterpret_cast<kiss_fft_cpx*>(spectrum)); });
    }
    kiss_fftr_free(kiss);
    fftwf_destroy_plan(plan);

    state.counters["fftw_ns"] = fftwTime.nanoseconds();
    state.counters["kiss_ns"] = kissTime.nanoseconds();
    if (bestInstructionSet() == InstructionSet::Avx2) {
        state.counters["avx2_ns"] = avx2Time.nanoseconds();
        state.counters["avx2/fftw"] = avx2Time.nanoseconds() / fftwTime.nanoseconds();
        state.counters["avx2/kiss"] = avx2Time.nanoseconds() / kissTime.nanoseconds();
    }
    state.counters["sse2_ns"] = sse2Time.nanoseconds();
    state.counters["sse2/fftw"] = sse2Time.nanoseconds() / fftwTime.nanoseconds();
    state.counters["sse2/kiss"] = sse2Time.nanoseconds() / kissTime.nanoseconds();
    state.counters["portable/fftw"] = portableTime.nanoseconds() / fftwTime.nanoseconds();
}

} // namespace

BENCHMARK(forward)->ArgName("N")->RangeMultiplier(2)->Range(64, 2048)->Iterations(400);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::ConsoleReporter table(benchmark::ConsoleReporter::OO_Tabular);
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::Shutdown();
}
