#include "dsp/ConditioningKernel.h"

namespace {

/// Four lanes in plain C++; compilers make vectors of it where the processor has them.
struct FourLanes
{
    static constexpr int width = 4;
    float v[width];

    template <class Operation>
    static FourLanes each(Operation operation)
    {
        return {{operation(0), operation(1), operation(2), operation(3)}};
    }

    static FourLanes load(const float* from)
    {
        return each([&](int i) { return from[i]; });
    }
    static FourLanes all(float value) { return {{value, value, value, value}}; }
    void store(float* to) const { std::memcpy(to, v, sizeof v); }
    FourLanes operator+(const FourLanes& b) const
    {
        return each([&](int i) { return v[i] + b.v[i]; });
    }
    FourLanes operator-(const FourLanes& b) const
    {
        return each([&](int i) { return v[i] - b.v[i]; });
    }
    FourLanes operator*(const FourLanes& b) const
    {
        return each([&](int i) { return v[i] * b.v[i]; });
    }
    FourLanes operator/(const FourLanes& b) const
    {
        return each([&](int i) { return v[i] / b.v[i]; });
    }
    FourLanes absolute() const
    {
        return each([&](int i) { return v[i] < 0 ? -v[i] : v[i]; });
    }
    static FourLanes larger(const FourLanes& a, const FourLanes& b)
    {
        return each([&](int i) { return a.v[i] > b.v[i] ? a.v[i] : b.v[i]; });
    }
    FourLanes clearedWhereLess(const FourLanes& a, const FourLanes& b) const
    {
        return each([&](int i) { return a.v[i] < b.v[i] ? 0.0F : v[i]; });
    }
    unsigned positiveBits() const
    {
        return (v[0] > 0 ? 1U : 0U) | (v[1] > 0 ? 2U : 0U) | (v[2] > 0 ? 4U : 0U) | (v[3] > 0 ? 8U : 0U);
    }
    static void transpose(FourLanes (&tile)[width])
    {
        for (int i = 0; i < width; ++i) {
            for (int j = 0; j < i; ++j) {
                const float kept = tile[i].v[j];
                tile[i].v[j] = tile[j].v[i];
                tile[j].v[i] = kept;
            }
        }
    }
};

} // namespace

void conditionPortable(const ConditioningRows& block)
{
    conditionWith<FourLanes>(block);
}
