#include "tests/support/SyntheticImage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

/// A linear congruential generator (Knuth's MMIX constants): quick, and the same everywhere.
class Dice
{
public:
    explicit Dice(unsigned seed) : m_state(seed) {}
    /// Uniform in [0, 1).
    float roll()
    {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<float>(m_state >> 40) / 16777216.0F;
    }
    int below(int end) { return std::min(static_cast<int>(roll() * static_cast<float>(end)), end - 1); }
    /// Roughly normal with mean 0 and variance 1.
    float bell() { return (roll() + roll() + roll() + roll() - 2) * 1.7320508F; }

private:
    std::uint64_t m_state;
};

void fillWithNoise(AmplitudeImage& image, Dice& dice)
{
    constexpr float memory = 0.85F; // of one frame for the one before, in each part of a complex spectrum
    const float fresh = std::sqrt(1 - memory * memory);
    const int bins = image.bins();
    std::vector<float> real(bins);
    std::vector<float> imaginary(bins);
    for (int bin = 0; bin < bins; ++bin) {
        real[bin] = dice.bell();
        imaginary[bin] = dice.bell();
    }
    for (int frame = 0; frame < image.frames(); ++frame) {
        float* row = image.row(frame);
        for (int bin = 0; bin < bins; ++bin) {
            real[bin] = memory * real[bin] + fresh * dice.bell();
            imaginary[bin] = memory * imaginary[bin] + fresh * dice.bell();
            row[bin] = 2e-5F * std::sqrt(real[bin] * real[bin] + imaginary[bin] * imaginary[bin]);
        }
    }
}

void addCall(AmplitudeImage& image, int firstFrame, Dice& dice)
{
    const int length = 8 + dice.below(30 + dice.below(300));
    const float sweep = dice.roll() < 0.3F ? 0 : dice.roll() * 0.3F;
    const float low = 0.06F + 0.5F * dice.roll();
    const float loudness = 1e-3F * std::pow(300.0F, dice.roll());
    const int echoDelay = 20 + dice.below(40);
    for (int i = 0; i < length; ++i) {
        const float time = static_cast<float>(i) / static_cast<float>(length);
        const float pitch = (low + sweep * (1 - time) * (1 - time)) * static_cast<float>(image.bins());
        const float swell = loudness * std::sin(3.1415927F * (time + 0.5F / static_cast<float>(length)));
        for (int bin = 0; bin < image.bins(); ++bin) {
            const float away = (static_cast<float>(bin) - pitch) / 1.2F;
            const float add = std::abs(away) < 6 ? swell * std::exp(-away * away / 2) : 0.0F;
            if (firstFrame + i < image.frames())
                image.row(firstFrame + i)[bin] += add;
            if (firstFrame + i + echoDelay < image.frames())
                image.row(firstFrame + i + echoDelay)[bin] += 0.2F * add;
        }
    }
}

} // namespace

AmplitudeImage syntheticImage(int frames, int bins, unsigned seed)
{
    AmplitudeImage image(frames, bins);
    Dice dice(seed);
    fillWithNoise(image, dice);
    for (int frame = 5 + dice.below(100); frame < frames; frame += 100 + dice.below(600))
        addCall(image, frame, dice);
    return image;
}
