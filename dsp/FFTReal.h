#ifndef SONAVIA_DSP_FFTREAL_H
#define SONAVIA_DSP_FFTREAL_H

#include "dsp/UnitRoot.h"

#include <cstddef>
#include <vector>

namespace ffft {

/// The real Fourier transform of any power of two from 4 on, by radix-2 passes over tables made at set-up.
/// The layout of spectra is that of QFourierCalculator.
///
/// N samples are taken as N/2 complex numbers, even samples as real and odd ones as imaginary parts. The real
/// parts of their transform fill the first half of the spectrum, the imaginary parts the second, and one pass
/// turns this into the transform of the samples in place (Press et al., Numerical Recipes, 12.3).
///
/// Works on any thread, on several at once too; arrays must not overlap. The tables take 4 bytes + one T per
/// sample.
template <typename T>
class FFTReal
{
public:
    explicit FFTReal(int length) : m_length(static_cast<std::size_t>(length))
    {
        const std::size_t half = m_length / 2;
        m_bitReversed.resize(half);
        for (std::size_t i = 1; i < half; ++i)
            m_bitReversed[i] = m_bitReversed[i / 2] / 2 + (i % 2 != 0 ? static_cast<unsigned>(half / 2) : 0u);
        m_cosines.resize(half);
        m_sines.resize(half);
        for (std::size_t k = 0; k < half; ++k) {
            const UnitRoot root = unitRoot(static_cast<std::int64_t>(k), length);
            m_cosines[k] = static_cast<T>(root.cosine);
            m_sines[k] = static_cast<T>(root.sine);
        }
    }

    int length() const { return static_cast<int>(m_length); }

    /// Samples to spectrum, not scaled.
    void do_fft(T* spectrum, const T* samples) const
    {
        transform(spectrum, [samples](std::size_t i) { return samples[i]; });
    }

    /// Spectrum to samples, length() times too large.
    ///
    /// Summing Re X and -Im X as if they were samples transforms back as well: with H[k] = Re X[k] - Im X[k]
    /// over all N bins, x[n] = Re F[n] - Im F[n] for the transform F of H (Bracewell's Hartley transform).
    void do_ifft(const T* spectrum, T* samples) const
    {
        const std::size_t half = m_length / 2;
        transform(samples, [spectrum, half, length = m_length](std::size_t k) {
            if (k % half == 0)
                return spectrum[k];
            return k < half ? spectrum[k] - spectrum[half + k]
                            : spectrum[length - k] + spectrum[half + length - k];
        });
        differencesOfParts(samples, m_length);
    }

    /// Multiplies by 1 / length().
    void rescale(T* values) const
    {
        const T factor = T(1) / static_cast<T>(m_length);
        for (std::size_t i = 0; i < m_length; ++i)
            values[i] *= factor;
    }

    /// Turns the spectrum F of `length` values into Re F[n] - Im F[n] for n = 0 .. length - 1, in place.
    static void differencesOfParts(T* spectrum, std::size_t length)
    {
        const std::size_t half = length / 2;
        for (std::size_t n = 1; n < (half + 1) / 2; ++n) {
            const std::size_t mirrored = half - n;
            const T low[2] = {spectrum[n], spectrum[half + n]};
            const T high[2] = {spectrum[mirrored], spectrum[half + mirrored]};
            spectrum[n] = low[0] - low[1];
            spectrum[half + mirrored] = low[0] + low[1];
            spectrum[mirrored] = high[0] - high[1];
            spectrum[half + n] = high[0] + high[1];
        }
        if (half >= 2) {
            const T middle[2] = {spectrum[half / 2], spectrum[half + half / 2]};
            spectrum[half / 2] = middle[0] - middle[1];
            spectrum[half + half / 2] = middle[0] + middle[1];
        }
    }

private:
    /// `sample(i)` gives sample i.
    template <typename Sample>
    void transform(T* spectrum, Sample sample) const
    {
        const std::size_t half = m_length / 2;
        T* const real = spectrum;
        T* const imaginary = spectrum + half;
        for (std::size_t i = 0; i < half; ++i) {
            real[i] = sample(2 * m_bitReversed[i]);
            imaginary[i] = sample(2 * m_bitReversed[i] + 1);
        }
        for (std::size_t width = 1; width < half; width *= 2)
            radix2Pass(real, imaginary, width);
        separate(real, imaginary);
    }

    /// Joins pairs of neighbouring transforms of `width` values.
    void radix2Pass(T* real, T* imaginary, std::size_t width) const
    {
        const std::size_t half = m_length / 2;
        const std::size_t step = half / width;
        for (std::size_t first = 0; first < half; first += 2 * width) {
            for (std::size_t k = 0; k < width; ++k) {
                const std::size_t a = first + k;
                const std::size_t b = a + width;
                const T c = m_cosines[k * step];
                const T s = m_sines[k * step];
                const T turnedReal = c * real[b] + s * imaginary[b];
                const T turnedImaginary = c * imaginary[b] - s * real[b];
                real[b] = real[a] - turnedReal;
                imaginary[b] = imaginary[a] - turnedImaginary;
                real[a] += turnedReal;
                imaginary[a] += turnedImaginary;
            }
        }
    }

    /// The transforms of the even and the odd samples out of the complex one, and both joined to the result.
    void separate(T* real, T* imaginary) const
    {
        const std::size_t half = m_length / 2;
        const T constant = real[0];
        real[0] = constant + imaginary[0];
        imaginary[0] = constant - imaginary[0]; // the place of Re X[N/2]
        for (std::size_t k = 1; k < half / 2; ++k) {
            const std::size_t m = half - k;
            const T evenReal = (real[k] + real[m]) / 2;
            const T evenImaginary = (imaginary[k] - imaginary[m]) / 2;
            const T oddReal = (imaginary[k] + imaginary[m]) / 2;
            const T oddImaginary = (real[m] - real[k]) / 2;
            const T turnedReal = m_cosines[k] * oddReal + m_sines[k] * oddImaginary;
            const T turnedImaginary = m_cosines[k] * oddImaginary - m_sines[k] * oddReal;
            real[k] = evenReal + turnedReal;
            imaginary[k] = evenImaginary + turnedImaginary;
            real[m] = evenReal - turnedReal;
            imaginary[m] = turnedImaginary - evenImaginary;
        }
        imaginary[half / 2] = -imaginary[half / 2];
    }

    std::size_t m_length;
    std::vector<unsigned> m_bitReversed; ///< for N/2 positions
    std::vector<T> m_cosines;            ///< cos and sin of 2 pi k / N for k < N/2
    std::vector<T> m_sines;
};

} // namespace ffft

#endif
