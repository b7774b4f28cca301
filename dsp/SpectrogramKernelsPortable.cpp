#include "dsp/SpectrogramKernelLoops.h"
#include "dsp/SpectrogramKernelSets.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

/// Eight lanes in plain C++.
struct PortableLanes
{
    template <typename Real>
    struct Eight
    {
        Real lane[8];

        friend Eight operator+(const Eight& a, const Eight& b)
        {
            return combine(a, b, [](Real x, Real y) { return x + y; });
        }
        friend Eight operator-(const Eight& a, const Eight& b)
        {
            return combine(a, b, [](Real x, Real y) { return x - y; });
        }
        friend Eight operator*(const Eight& a, const Eight& b)
        {
            return combine(a, b, [](Real x, Real y) { return x * y; });
        }
        friend Eight operator/(const Eight& a, const Eight& b)
        {
            return combine(a, b, [](Real x, Real y) { return x / y; });
        }
    };
    using Floats = Eight<float>;
    using Doubles = Eight<double>;

    struct Parts
    {
        Doubles mantissa;
        Doubles exponent;
    };

    template <typename Real, typename Operation>
    static Eight<Real> combine(const Eight<Real>& a, const Eight<Real>& b, Operation operation)
    {
        Eight<Real> result;
        for (int i = 0; i < 8; ++i)
            result.lane[i] = operation(a.lane[i], b.lane[i]);
        return result;
    }

    template <typename To, typename From>
    static Eight<To> convert(const From* source)
    {
        Eight<To> result;
        for (int i = 0; i < 8; ++i)
            result.lane[i] = static_cast<To>(source[i]);
        return result;
    }

    template <typename Real>
    static Eight<Real> all(Real value)
    {
        Eight<Real> result;
        for (Real& lane : result.lane)
            lane = value;
        return result;
    }

    template <typename Real>
    static Eight<Real> load(const Real* source)
    {
        Eight<Real> result;
        std::memcpy(result.lane, source, sizeof result.lane);
        return result;
    }

    template <typename Real>
    static void store(Real* target, const Eight<Real>& values)
    {
        std::memcpy(target, values.lane, sizeof values.lane);
    }

    static Floats loadInts(const int* source) { return convert<float>(source); }
    static void prefetch(const double*) {}
    static Doubles widen(const Floats& values) { return convert<double>(values.lane); }
    static Floats narrow(const Doubles& values) { return convert<float>(values.lane); }

    static Floats squareRoot(const Floats& values)
    {
        Floats result;
        for (int i = 0; i < 8; ++i)
            result.lane[i] = std::sqrt(values.lane[i]);
        return result;
    }

    static Doubles minimum(const Doubles& a, const Doubles& b)
    {
        return combine(a, b, [](double x, double y) { return y < x ? y : x; });
    }
    static Doubles maximum(const Doubles& a, const Doubles& b)
    {
        return combine(a, b, [](double x, double y) { return y > x ? y : x; });
    }

    static Parts split(const Doubles& values)
    {
        Parts parts;
        for (int i = 0; i < 8; ++i) {
            std::int64_t bits;
            std::memcpy(&bits, values.lane + i, sizeof bits);
            bits += DoubleBits::one - DoubleBits::rootOfHalf;
            parts.exponent.lane[i] =
                static_cast<double>((bits >> DoubleBits::exponentShift) - DoubleBits::exponentBias);
            bits = (bits & DoubleBits::mantissa) + DoubleBits::rootOfHalf;
            std::memcpy(parts.mantissa.lane + i, &bits, sizeof bits);
        }
        return parts;
    }

    static Doubles minusInfinityWhereZero(const Doubles& test, const Doubles& values)
    {
        return combine(test, values, [](double tested, double value) {
            return tested == 0 ? DoubleBits::minusInfinity : value;
        });
    }

    static void transpose(Floats (&rows)[8])
    {
        for (int i = 0; i < 8; ++i) {
            for (int j = 0; j < i; ++j) {
                const float swapped = rows[i].lane[j];
                rows[i].lane[j] = rows[j].lane[i];
                rows[j].lane[i] = swapped;
            }
        }
    }
};

} // namespace

const SpectrogramKernels portableSpectrogramKernels = SpectrogramKernelLoops<PortableLanes>::kernels();
