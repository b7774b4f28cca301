#ifndef SONAVIA_TOOLS_RANDOMSOURCE_H
#define SONAVIA_TOOLS_RANDOMSOURCE_H

#include <cstdint>
#include <random>

/// Random numbers that are the same on every machine: the Mersenne Twister's raw output, whose values the C++
/// standard fixes, without the library's distributions, whose values it leaves open.
/// Draw once a statement: in which order a function's arguments are evaluated is open as well.
class RandomSource
{
public:
    explicit RandomSource(std::uint32_t seed) : m_engine(seed) {}

    /// Even in [0, 1).
    double uniform() { return static_cast<double>(m_engine()) / 4294967296.0; }

    /// Even in [low, high).
    double between(double low, double high) { return low + (high - low) * uniform(); }

    /// A factor near 1: even in [1 - spread, 1 + spread).
    double around(double spread) { return between(1.0 - spread, 1.0 + spread); }

    /// Close to normal with mean 0 and variance 1 (a sum of four even numbers, so never beyond 3.47).
    float noise();

private:
    std::mt19937 m_engine;
};

#endif
