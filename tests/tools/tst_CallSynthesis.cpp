// The physics of the made-up calls: pitch, spacing, Doppler shift and what the air takes away.
#include "tests/support/Table.h"
#include "tools/AirPath.h"
#include "tools/BatPass.h"
#include "tools/CallSynthesis.h"
#include "tools/RandomSource.h"
#include "tools/Soundscape.h"
#include "tools/Voice.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

/// Amplitude of the frequency `hz` in `samples` (Goertzel's algorithm, Hann-weighted).
double levelAt(const std::vector<float>& samples, double hz, int sampleRate)
{
    const double twoPi = 6.283185307179586;
    const double turn = 2.0 * std::cos(twoPi * hz / sampleRate);
    const double count = static_cast<double>(samples.size());
    double last = 0.0;
    double beforeLast = 0.0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double weight = 1.0 - std::cos(twoPi * static_cast<double>(i) / count);
        const double next = weight * static_cast<double>(samples[i]) + turn * last - beforeLast;
        beforeLast = last;
        last = next;
    }
    const double power = last * last + beforeLast * beforeLast - turn * last * beforeLast;
    return std::sqrt(std::max(power, 0.0)) * 2.0 / count;
}

/// The loudest of the frequencies 8 to 125 kHz, in kHz, in steps of 0.1 kHz.
double peakKiloHertz(const std::vector<float>& samples, int sampleRate)
{
    double peak = 0.0;
    double loudest = 0.0;
    for (int step = 80; step <= 1250; ++step) {
        const double level = levelAt(samples, step * 100.0, sampleRate);
        if (level > loudest) {
            loudest = level;
            peak = step / 10.0;
        }
    }
    return peak;
}

double decibels(double ratio)
{
    return 20.0 * std::log10(ratio);
}

} // namespace

class tst_CallSynthesis : public QObject
{
    Q_OBJECT

    using PeakRow = Table<Voice, int, double, double>; // voice, turn, lowest, highest
    using DistanceRow = Table<Voice, double, double>;  // voice, shortest, longest

private slots:
    void absorptionFollowsTheStandard()
    {
        // ISO 9613-2:1996, table 2: Hz (exact midbands), degrees Celsius, percent; dB per km.
        const double table[][4] = {{1000.0, 20, 70, 5.0},   {3981.1, 20, 70, 22.9},  {7943.3, 20, 70, 76.6},
                                   {7943.3, 10, 70, 117.0}, {7943.3, 15, 20, 202.0}, {7943.3, 15, 80, 82.8}};
        for (const auto& [hz, temperature, humidity, decibelsPerKilometre] : table) {
            const double found = 1000.0 * AirPath::absorption(hz, temperature, humidity);
            QVERIFY2(std::abs(found - decibelsPerKilometre) < 0.01 * decibelsPerKilometre,
                     qPrintable(QString::number(found)));
        }
    }

    void callsPeakWhereTheirGroupDoes_data()
    {
        PeakRow row;
        row("pipistrelle 39", Voice::pipistrelle(38.6e3), 0, 38.5, 41.0);
        row("pipistrelle 45", Voice::pipistrelle(45.6e3), 0, 45.5, 48.0);
        row("pipistrelle 55", Voice::pipistrelle(54.5e3), 0, 54.4, 57.0);
        row("noctule high", Voice::noctule(), 0, 23.5, 26.0);
        row("noctule deep", Voice::noctule(), 1, 18.8, 20.0);
        row("Leisler's bat deep", Voice::leislersBat(), 1, 22.5, 24.5);
        row("serotine", Voice::serotine(), 0, 26.0, 31.0);
        row("northern bat", Voice::northernBat(), 0, 28.5, 30.5);
        row("greater horseshoe bat", Voice::horseshoe(81.5e3), 0, 81.4, 81.6);
        row("lesser horseshoe bat", Voice::horseshoe(110.5e3), 0, 110.4, 110.6);
    }
    void callsPeakWhereTheirGroupDoes()
    {
        const auto& [voice, turn, lowest, highest] = PeakRow::row();
        const CallShape& shape = voice.calls[static_cast<std::size_t>(turn)];
        const double peak = peakKiloHertz(synthesiseCall(shape, 384000, 1.0, AirPath(5.0)), 384000);
        QVERIFY2(peak >= lowest && peak <= highest, qPrintable(QString::number(peak)));
    }

    void harmonicsStandAtTheirLevel()
    {
        CallShape tone;
        tone.sweeps = {{0.05, 30e3, 30e3}};
        tone.harmonics = {1.0, 0.1};
        const AirPath path(4.0);
        const std::vector<float> samples = synthesiseCall(tone, 384000, 1.0, path);
        const double ratio = levelAt(samples, 60e3, 384000) / levelAt(samples, 30e3, 384000);
        const double expected = 0.1 * path.gain(60e3) / path.gain(30e3);
        QVERIFY(std::abs(decibels(ratio / expected)) < 0.1);
        QVERIFY(ratio < 0.1);
    }

    void nothingFoldsBack()
    {
        // At 250 kHz the third harmonic of 165 kHz would come back at 85 kHz.
        const CallShape shape = Voice::horseshoe(110e3).calls[0];
        const std::vector<float> samples = synthesiseCall(shape, 250000, 1.0, AirPath(0.5));
        QVERIFY(levelAt(samples, 110e3, 250000) > 0.0);
        QVERIFY(decibels(levelAt(samples, 85e3, 250000) / levelAt(samples, 110e3, 250000)) < -70.0);
    }

    void farCallsLackHighFrequencies()
    {
        const CallShape shape = Voice::myotis().calls[0];
        const std::vector<float> near = synthesiseCall(shape, 384000, 1.0, AirPath(2.0));
        const std::vector<float> far = synthesiseCall(shape, 384000, 1.0, AirPath(12.0));
        const auto loss = [&](double hz) {
            return decibels(levelAt(near, hz, 384000) / levelAt(far, hz, 384000));
        };
        QVERIFY(loss(40e3) > decibels(6.0)); // spreading alone
        QVERIFY(loss(85e3) > loss(40e3) + 10.0);
        QVERIFY(decibels(AirPath(5.0, -1.0).gain(45e3) / AirPath(5.0, 1.0).gain(45e3)) < -9.0);
    }

    void callsKeepTheirDistance_data()
    {
        DistanceRow row;
        row("pipistrelle 45", Voice::pipistrelle(45e3), 0.075, 0.105);
        row("noctule", Voice::noctule(), 0.16, 0.28);
        row("Myotis", Voice::myotis(), 0.07, 0.095);
        row("greater horseshoe bat", Voice::horseshoe(82e3), 0.075, 0.11);
    }
    void callsKeepTheirDistance()
    {
        const auto& [voice, shortest, longest] = DistanceRow::row();
        RandomSource random(1);
        BatPass pass;
        pass.passTime = 1.5;
        const std::vector<ArrivingCall> calls = callsOfPass(voice, pass, 3.0, random);
        QVERIFY(calls.size() > 10);
        for (std::size_t i = 1; i < calls.size(); ++i) {
            const double interval = calls[i].time - calls[i - 1].time;
            QVERIFY2(interval > shortest && interval < longest, qPrintable(QString::number(interval)));
            QVERIFY(interval > calls[i - 1].shape.duration());
        }
    }

    void aPassRisesAndFalls()
    {
        RandomSource random(2);
        BatPass pass;
        pass.passTime = 1.0;
        pass.closest = 4.0;
        pass.speed = 10.0;
        const Voice voice = Voice::horseshoe(82e3); // its tone shows the Doppler shift
        const std::vector<ArrivingCall> calls = callsOfPass(voice, pass, 2.0, random);
        const auto nearest = std::min_element(
            calls.begin(), calls.end(), [](const auto& a, const auto& b) { return a.distance < b.distance; });
        QVERIFY(std::abs(nearest->time - 1.0) < 0.1);
        QVERIFY(nearest->distance < 4.1);
        QVERIFY(calls.front().distance > 8.0 && calls.back().distance > 8.0);
        // 82 kHz at 10 m/s: up to 2.4 kHz more on the way here, as much less on the way off.
        const double here = 2.0 * calls.front().shape.frequencyAt(0.02);
        const double off = 2.0 * calls.back().shape.frequencyAt(0.02);
        QVERIFY2(here > 83.9e3 && here < 84.5e3, qPrintable(QString::number(here)));
        QVERIFY2(off < 80.1e3 && off > 79.5e3, qPrintable(QString::number(off)));
    }

    void aBuzzEndsTheApproach()
    {
        RandomSource random(3);
        BatPass pass;
        pass.passTime = 1.0;
        pass.buzzAt = 1.0;
        const std::vector<ArrivingCall> calls = callsOfPass(Voice::pipistrelle(45e3), pass, 2.0, random);
        const auto callsBetween = [&](double from, double to) {
            return std::count_if(calls.begin(), calls.end(),
                                 [&](const auto& call) { return call.time >= from && call.time < to; });
        };
        QVERIFY(callsBetween(0.1, 0.3) <= 3);
        QVERIFY(callsBetween(0.8, 1.0) >= 6);
        QVERIFY(callsBetween(1.02, 1.22) >= 24);
        QVERIFY(callsBetween(1.27, 1.38) == 0);
        QVERIFY(callsBetween(1.4, 2.0) >= 4);
    }

    void echoesComeLater()
    {
        Soundscape open(384000, 0.1, 4);
        open.setSurroundings({3.4, 0.0, 0.0, 0.01});
        Soundscape wall(384000, 0.1, 4);
        wall.setSurroundings({3.4, 0.2, 0.0, 0.01});
        BatPass pass;
        pass.closest = 3.0;
        pass.until = 0.01; // one call
        open.addPass(Voice::pipistrelle(45e3), pass);
        wall.addPass(Voice::pipistrelle(45e3), pass);

        const auto energyAfter = [](const Soundscape& scene, double time) {
            const auto begin = scene.samples().begin() + std::lround(time * scene.sampleRate());
            return std::accumulate(begin, scene.samples().end(), 0.0, [](double sum, float sample) {
                return sum + double(sample) * double(sample);
            });
        };
        const double echoTime = (3.0 + 3.4) / AirPath::soundSpeed;
        QVERIFY(energyAfter(open, 0.0) > 0.0);
        QCOMPARE(energyAfter(open, echoTime), 0.0);
        QVERIFY(energyAfter(wall, echoTime) > 0.0);
        QVERIFY(decibels(energyAfter(wall, echoTime) / energyAfter(open, 0.0)) < -2.0 * 14.0); // of energies
    }

    void noiseHasItsLevel()
    {
        RandomSource random(5);
        double sum = 0.0;
        double squares = 0.0;
        const int count = 200000;
        for (int i = 0; i < count; ++i) {
            const double value = double(random.noise());
            sum += value;
            squares += value * value;
        }
        QVERIFY(std::abs(sum / count) < 0.01);
        QVERIFY(std::abs(squares / count - 1.0) < 0.02);
    }

    void loudScenesAreTurnedDown()
    {
        Soundscape scene(250000, 0.2, 6);
        BatPass pass;
        pass.closest = 0.3;
        scene.addPass(Voice::noctule(), pass);
        const std::vector<std::int16_t> pcm = scene.toPcm();
        const auto loudest = std::max_element(
            pcm.begin(), pcm.end(), [](auto a, auto b) { return std::abs(int(a)) < std::abs(int(b)); });
        QVERIFY(*std::max_element(scene.samples().begin(), scene.samples().end()) > 1.0F);
        QCOMPARE(std::abs(int(*loudest)), 31129); // 95 % of 32767
    }
};

QTEST_GUILESS_MAIN(tst_CallSynthesis)
#include "tst_CallSynthesis.moc"
