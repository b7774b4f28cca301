#include "tools/Soundscape.h"

#include "tools/AirPath.h"
#include "tools/CallSynthesis.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double twoPi = 6.28318530717958647692;
constexpr double clippingMargin = 0.95;

double fromDecibels(double level)
{
    return std::pow(10.0, level / 20.0);
}

} // namespace

Soundscape::Soundscape(int sampleRate, double length, std::uint32_t seed)
    : m_sampleRate(sampleRate),
      m_samples(static_cast<std::size_t>(std::lround(length * sampleRate))),
      m_random(seed)
{
    setSurroundings({});
}

void Soundscape::setSurroundings(const Surroundings& surroundings)
{
    m_surroundings = surroundings;
    m_foliage.clear();
    if (surroundings.foliageGain <= 0.0) {
        return;
    }
    // Rings of leaves: one distance, and so one spectrum, serves a whole ring.
    constexpr int rings = 4;
    constexpr int leavesPerRing = 24;
    for (int ring = 0; ring < rings; ++ring) {
        std::vector<Leaf> leaves;
        for (int leaf = 0; leaf < leavesPerRing; ++leaf) {
            const double delay =
                0.001 + surroundings.foliageDecay * (ring + m_random.uniform()); // s after the call itself
            const double gain = surroundings.foliageGain * std::exp(-delay / surroundings.foliageDecay);
            leaves.push_back({delay, static_cast<float>(gain * m_random.between(-1.7, 1.7))});
        }
        m_foliage.push_back(leaves);
    }
}

void Soundscape::addPass(const Voice& voice, const BatPass& pass)
{
    for (const ArrivingCall& call : callsOfPass(voice, pass, length(), m_random)) {
        addArriving(call);
    }
}

void Soundscape::addArriving(const ArrivingCall& call)
{
    const auto arriving = [&](double detour) {
        return synthesiseCall(call.shape, m_sampleRate, call.amplitude,
                              AirPath(call.distance + detour, call.cosOffAxis));
    };
    addAt(call.time, arriving(0.0), 1.0F);
    if (m_surroundings.echoGain > 0.0) {
        addAt(call.time + m_surroundings.echoDetour / AirPath::soundSpeed,
              arriving(m_surroundings.echoDetour), static_cast<float>(m_surroundings.echoGain));
    }
    for (std::size_t ring = 0; ring < m_foliage.size(); ++ring) {
        const double delay = m_surroundings.foliageDecay * (static_cast<double>(ring) + 0.5);
        const std::vector<float> echo = arriving(delay * AirPath::soundSpeed);
        for (const Leaf& leaf : m_foliage[ring]) {
            addAt(call.time + leaf.delay, echo, leaf.gain);
        }
    }
}

void Soundscape::addAt(double time, const std::vector<float>& sound, float gain)
{
    const long long begin = std::llround(time * m_sampleRate);
    const auto size = static_cast<long long>(m_samples.size());
    const long long first = std::max(begin, 0LL);
    const long long last = std::min(begin + static_cast<long long>(sound.size()), size);
    for (long long i = first; i < last; ++i) {
        m_samples[static_cast<std::size_t>(i)] += gain * sound[static_cast<std::size_t>(i - begin)];
    }
}

void Soundscape::addNoiseFloor(double level)
{
    const auto white = static_cast<float>(fromDecibels(level));
    const auto smoothing = static_cast<float>(1.0 - std::exp(-twoPi * 4000.0 / m_sampleRate));
    float low = 0.0F;
    for (float& sample : m_samples) {
        const float noise = white * m_random.noise();
        low += smoothing * (noise - low);
        sample += noise + 2.5F * low;
    }
}

void Soundscape::addWind(double level)
{
    const double cutoff = 220.0; // Hz
    const double smoothing = 1.0 - std::exp(-twoPi * cutoff / m_sampleRate);
    const double amplitude = fromDecibels(level) * 2.0 / std::sqrt(smoothing);
    const double slow = m_random.between(0.3, 0.6); // gusts a second
    const double quick = m_random.between(1.1, 1.9);
    const double offset = m_random.uniform();
    double first = 0.0;
    double second = 0.0;
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
        const double time = static_cast<double>(i) / m_sampleRate;
        const double gust = 0.55 + 0.3 * std::sin(twoPi * (slow * time + offset)) +
                            0.15 * std::sin(twoPi * (quick * time + 2.0 * offset));
        first += smoothing * (static_cast<double>(m_random.noise()) - first);
        second += smoothing * (first - second);
        m_samples[i] += static_cast<float>(amplitude * gust * second);
    }
}

void Soundscape::addRain(double dropsPerSecond)
{
    const auto drops = static_cast<int>(std::lround(dropsPerSecond * length()));
    for (int drop = 0; drop < drops; ++drop) {
        const double time = m_random.between(0.0, length());
        const double amplitude = fromDecibels(m_random.between(-54.0, -9.0));
        const double decay = m_random.between(0.05e-3, 0.35e-3); // s
        const double softness = m_random.between(0.0, 0.93); // what it falls on swallows the high frequencies
        const double splashHz = m_random.between(2e3, 9e3);
        std::vector<float> click(static_cast<std::size_t>(8.0 * decay * m_sampleRate));
        double crack = 0.0;
        for (std::size_t i = 0; i < click.size(); ++i) {
            const double since = static_cast<double>(i) / m_sampleRate;
            crack = softness * crack +
                    std::sqrt(1.0 - softness * softness) * static_cast<double>(m_random.noise());
            const double sound = 0.5 * crack * std::exp(-since / decay) +
                                 0.6 * std::sin(twoPi * splashHz * since) * std::exp(-since / (2.0 * decay));
            click[i] = static_cast<float>(amplitude * sound);
        }
        addAt(time, click, 1.0F);
    }
}

void Soundscape::addCrickets(double carrierHz, double chirpsPerSecond, double level)
{
    const double amplitude = fromDecibels(level);
    double time = m_random.between(-1.0, 0.0) / chirpsPerSecond;
    while (time < length()) {
        for (int syllable = 0; syllable < 3; ++syllable) {
            addSyllable(time + 0.021 * syllable, carrierHz, amplitude * (0.5 + 0.25 * syllable));
        }
        time += m_random.around(0.08) / chirpsPerSecond;
    }
}

void Soundscape::addSyllable(double time, double carrierHz, double amplitude)
{
    // The file of the wing is drawn over the scraper: every tooth makes the wing ring for a moment.
    constexpr double duration = 0.014;
    constexpr double ringing = 0.4e-3;
    double tooth = 0.0;
    while (tooth < duration) {
        const double part = tooth / duration;
        const double peak = amplitude * std::sin(0.5 * twoPi * part) * m_random.between(0.5, 1.0);
        const double hz = carrierHz * m_random.around(0.03);
        std::vector<float> ring(static_cast<std::size_t>(6.0 * ringing * m_sampleRate));
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const double since = static_cast<double>(i) / m_sampleRate;
            const double swell = 1.0 - std::exp(-since / (0.5 * ringing));
            ring[i] = static_cast<float>(2.0 * peak * swell * std::exp(-since / ringing) *
                                         std::sin(twoPi * hz * since));
        }
        addAt(time + tooth, ring, 1.0F);
        tooth += m_random.between(0.35e-3, 0.6e-3);
    }
}

std::vector<std::int16_t> Soundscape::toPcm() const
{
    float peak = 0.0F;
    for (const float sample : m_samples) {
        peak = std::max(peak, std::abs(sample));
    }
    const double loudest = static_cast<double>(peak);
    const double scale = 32767.0 * (loudest > clippingMargin ? clippingMargin / loudest : 1.0);
    std::vector<std::int16_t> pcm(m_samples.size());
    std::transform(m_samples.begin(), m_samples.end(), pcm.begin(), [scale](float sample) {
        return static_cast<std::int16_t>(std::lround(scale * static_cast<double>(sample)));
    });
    return pcm;
}
