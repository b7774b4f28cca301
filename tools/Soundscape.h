#ifndef SONAVIA_TOOLS_SOUNDSCAPE_H
#define SONAVIA_TOOLS_SOUNDSCAPE_H

#include "tools/BatPass.h"
#include "tools/RandomSource.h"
#include "tools/Voice.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// One recording in the making: sounds are laid over each other in floating-point samples (full scale 1) and
/// turned into 16-bit samples at the end. The same calls in the same order with the same seed give the same
/// samples.
class Soundscape
{
public:
    /// What throws the calls back. Echoes come later and from farther away, so they lack the high
    /// frequencies.
    struct Surroundings
    {
        double echoDetour = 1.7;     ///< m that the echo from the ground or a wall flies more
        double echoGain = 0.16;      ///< 0: no such echo
        double foliageGain = 0.017;  ///< of each of many leaves; 0: none
        double foliageDecay = 0.012; ///< s
    };

    /// Silence of `length` s at `sampleRate` Hz.
    Soundscape(int sampleRate, double length, std::uint32_t seed);

    int sampleRate() const { return m_sampleRate; }
    double length() const { return static_cast<double>(m_samples.size()) / m_sampleRate; }
    RandomSource& random() { return m_random; }
    const std::vector<float>& samples() const { return m_samples; }

    /// For the passes added after this.
    void setSurroundings(const Surroundings& surroundings);

    void addPass(const Voice& voice, const BatPass& pass);

    /// The microphone's own noise: white, and somewhat more of it at low frequencies. `level` is its root
    /// mean square in dB of full scale, as in the functions below.
    void addNoiseFloor(double level);
    /// Rumble below a few hundred Hz that comes in gusts.
    void addWind(double level);
    /// Drops that fall on and around the microphone: short broad-band clicks of very different loudness.
    void addRain(double dropsPerSecond);
    /// Bush-crickets: chirps of a few syllables in a narrow band around `carrierHz`, `chirpsPerSecond` of
    /// them. `level` is about that of their peaks.
    void addCrickets(double carrierHz, double chirpsPerSecond, double level);

    /// Rounded to 16 bits. Where the sum is louder than 95 % of full scale, all of it is turned down.
    std::vector<std::int16_t> toPcm() const;

private:
    struct Leaf
    {
        double delay; ///< s
        float gain;
    };

    void addAt(double time, const std::vector<float>& sound, float gain);
    void addArriving(const ArrivingCall& call);
    void addSyllable(double time, double carrierHz, double amplitude);

    int m_sampleRate;
    std::vector<float> m_samples;
    RandomSource m_random;
    Surroundings m_surroundings;
    std::vector<std::vector<Leaf>> m_foliage; ///< by distance, nearest ring first
};

#endif
