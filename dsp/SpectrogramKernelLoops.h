#ifndef SONAVIA_DSP_SPECTROGRAMKERNELLOOPS_H
#define SONAVIA_DSP_SPECTROGRAMKERNELLOOPS_H

#include "dsp/SpectrogramKernels.h"

#include <cstddef>
#include <cstdint>
#include <limits>

#ifdef _MSC_VER // older versions fuse under /arch:AVX2
#pragma fp_contract(off)
#endif

/// For taking a double apart by its bits: adding the difference of the first two moves the border between
/// exponents from 1 to the square root of a half.
namespace DoubleBits {
inline constexpr std::int64_t one = 0x3FF0000000000000;
inline constexpr std::int64_t rootOfHalf = 0x3FE6A09E667F3BCD;
inline constexpr std::int64_t mantissa = 0x000FFFFFFFFFFFFF;
inline constexpr int exponentShift = 52;
inline constexpr int exponentBias = 1023;
inline constexpr double minusInfinity = -std::numeric_limits<double>::infinity();
} // namespace DoubleBits

/// The loops of SpectrogramKernels over eight values at a time, written once for every instruction set.
///
/// `Lanes` supplies the values, `Floats` and `Doubles` of eight each with the arithmetic operators, and
/// loads, stores, conversions and the few functions below. Only for the files that build one instruction set:
/// everything here is a template over their `Lanes`, so that no function built for one set is linked into
/// another.
template <typename Lanes>
struct SpectrogramKernelLoops
{
    using Floats = typename Lanes::Floats;
    using Doubles = typename Lanes::Doubles;

    static constexpr SpectrogramKernels kernels() { return {applyWindow, amplitudes, decibels}; }

private:
    static constexpr int rowsAhead = 4;

    static void applyWindow(const int* samples, const double* window, int length, float* frame)
    {
        int i = 0;
        for (; i + 8 <= length; i += 8) {
            const Doubles exact = Lanes::widen(Lanes::loadInts(samples + i));
            Lanes::store(frame + i, Lanes::narrow(exact * Lanes::load(window + i)));
        }
        for (; i < length; ++i)
            frame[i] = static_cast<float>(static_cast<double>(static_cast<float>(samples[i])) * window[i]);
    }

    static void amplitudes(const float* spectrum, int size, float fullScale, float* result)
    {
        const int half = size / 2;
        const Floats scale = Lanes::all(2.0F / static_cast<float>(size));
        const Floats divisor = Lanes::all(fullScale);
        for (int i = 0; i < half; i += 8) {
            const Floats real = Lanes::load(spectrum + i);
            const Floats imaginary = Lanes::load(spectrum + half + i);
            const Floats magnitude = Lanes::squareRoot(real * real + imaginary * imaginary);
            Lanes::store(result + i, magnitude * scale / divisor);
        }
        // Bin 0 has no imaginary part; another bin's value stands in its place.
        const float magnitude = spectrum[0] < 0 ? -spectrum[0] : spectrum[0];
        result[0] = magnitude * (2.0F / static_cast<float>(size)) / fullScale;
    }

    /// 20 log10(2^e m) = 20 log10(2) e + 40 / ln(10) artanh((m - 1) / (m + 1)), with m within a factor of the
    /// square root of two around 1, so that results near 0 keep all their digits. The polynomial is the best
    /// of its degree for artanh(s) / s in s x s, 1.7e-16 off at most.
    static Doubles decibelsOf(Floats amplitude)
    {
        const Doubles value = Lanes::widen(amplitude);
        const typename Lanes::Parts parts = Lanes::split(value);
        const Doubles one = Lanes::all(1.0);
        const Doubles s = (parts.mantissa - one) / (parts.mantissa + one);
        const Doubles square = s * s;
        Doubles sum = Lanes::all(0x1.766b881ed9725p+0);
        sum = sum * square + Lanes::all(0x1.92f4924538308p+0);
        sum = sum * square + Lanes::all(0x1.ee285a29bbaa7p+0);
        sum = sum * square + Lanes::all(0x1.3da7bea0bd382p+1);
        sum = sum * square + Lanes::all(0x1.bcb7b15dffad5p+1);
        sum = sum * square + Lanes::all(0x1.729913c4ae87fp+2);
        sum = sum * square + Lanes::all(0x1.15f2ced384f2ap+4);
        const Doubles result = sum * s + parts.exponent * Lanes::all(0x1.8151824c7587fp+2);
        return Lanes::minusInfinityWhereZero(value, result);
    }

    static void decibels(const DecibelTile& tile, DecibelRange& range)
    {
        Doubles minima = Lanes::all(range.minimum);
        Doubles maxima = Lanes::all(range.maximum);
        float rows[8][DecibelTile::mostFrames]; // of eight bins
        for (int bin = 0; bin < tile.bins; ++bin) {
            if (bin % 8 == 0)
                transpose(tile, bin, rows);
            const float* row = rows[bin % 8];
            double* cells = tile.decibels + bin * tile.decibelStride;
            // Each row begins in memory far from the last one; what is asked for early arrives in time.
            const std::size_t ahead = bin + rowsAhead < tile.bins ? rowsAhead * tile.decibelStride : 0;
            int frame = 0;
            for (; frame + 8 <= tile.frames; frame += 8) {
                Lanes::prefetch(cells + frame + ahead);
                const Doubles values = decibelsOf(Lanes::load(row + frame));
                Lanes::store(cells + frame, values);
                minima = Lanes::minimum(minima, values);
                maxima = Lanes::maximum(maxima, values);
            }
            if (frame < tile.frames)
                storeSome(cells + frame, decibelsOf(Lanes::load(row + frame)), tile.frames - frame, range);
        }
        widenRange(range, minima, maxima);
    }

    /// Eight bins of the tile, from one row per frame to one row per bin.
    static void transpose(const DecibelTile& tile, int bin, float (&rows)[8][DecibelTile::mostFrames])
    {
        for (int frame = 0; frame < tile.frames; frame += 8) {
            const float* source = tile.amplitudes + frame * tile.amplitudeStride + bin;
            Floats block[8];
            for (int i = 0; i < 8; ++i)
                block[i] = Lanes::load(source + i * tile.amplitudeStride);
            Lanes::transpose(block);
            for (int i = 0; i < 8; ++i)
                Lanes::store(rows[i] + frame, block[i]);
        }
    }

    static void storeSome(double* cells, Doubles values, int count, DecibelRange& range)
    {
        double lanes[8];
        Lanes::store(lanes, values);
        for (int i = 0; i < count; ++i) {
            cells[i] = lanes[i];
            range.minimum = lanes[i] < range.minimum ? lanes[i] : range.minimum;
            range.maximum = lanes[i] > range.maximum ? lanes[i] : range.maximum;
        }
    }

    static void widenRange(DecibelRange& range, Doubles minima, Doubles maxima)
    {
        double lanes[16];
        Lanes::store(lanes, minima);
        Lanes::store(lanes + 8, maxima);
        for (int i = 0; i < 8; ++i) {
            range.minimum = lanes[i] < range.minimum ? lanes[i] : range.minimum;
            range.maximum = lanes[i + 8] > range.maximum ? lanes[i + 8] : range.maximum;
        }
    }
};

#endif
