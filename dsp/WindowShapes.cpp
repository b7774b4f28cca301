#include "dsp/WindowShapes.h"

#include <array>
#include <cmath>
#include <cstdlib>

namespace {

/// Taylor polynomials, good to the last bit for an eighth of a turn to either side.
double cosineNearZero(double x)
{
    constexpr std::array<double, 8> inverseFactorials{
        1.0 / 20922789888000.0, -1.0 / 87178291200.0, 1.0 / 479001600.0, -1.0 / 3628800.0,
        1.0 / 40320.0,          -1.0 / 720.0,         1.0 / 24.0,        -1.0 / 2.0};
    const double square = x * x;
    double sum = 0;
    for (const double coefficient : inverseFactorials)
        sum = (sum + coefficient) * square;
    return 1.0 + sum;
}

double sineNearZero(double x)
{
    constexpr std::array<double, 7> inverseFactorials{
        -1.0 / 1307674368000.0, 1.0 / 6227020800.0, -1.0 / 39916800.0, 1.0 / 362880.0,
        -1.0 / 5040.0,          1.0 / 120.0,        -1.0 / 6.0};
    const double square = x * x;
    double sum = 0;
    for (const double coefficient : inverseFactorials)
        sum = (sum + coefficient) * square;
    return x + x * sum;
}

/// The cosine for 0 <= x < 30. Not that of the mathematical library: its last bit depends on the system and
/// on whether the processor has fused operations, and the last bits of a spectrogram would with it.
double cosine(double x)
{
    constexpr double quarterTurn = 0x1.921fb54442p+0; // short enough for an exact multiple
    constexpr double quarterTurnRest = 0x1.a308d313198a3p-41;
    const int quarters = static_cast<int>(std::lround(x * 0.63661977236758134));
    const double rest = (x - quarters * quarterTurn) - quarters * quarterTurnRest;
    switch (quarters % 4) {
    case 0:
        return cosineNearZero(rest);
    case 1:
        return -sineNearZero(rest);
    case 2:
        return -cosineNearZero(rest);
    default:
        return sineNearZero(rest);
    }
}

/// Amplitudes of the constant and of one to four periods over the window.
struct CosineSum
{
    const char* name;
    std::array<double, 5> amplitudes;
};

constexpr std::array<CosineSum, 5> cosineSums{{
    {"Hann", {0.5, -0.5, 0, 0, 0}},
    {"Hamming", {0.54, -0.46, 0, 0, 0}},
    {"Blackman", {0.42, -0.5, 0.08, 0, 0}},
    {"Flattop", {1, -1.93, 1.29, -0.388, 0.028}},
    {"BlackmanHarris", {0.35875, -0.48829, 0.14128, -0.01168, 0}},
}};

double cosineSum(const CosineSum& shape, int n, int period)
{
    constexpr double fullTurn = 6.283185307179586;
    double sum = shape.amplitudes[0];
    for (int turns = 1; turns < 5; ++turns) {
        if (shape.amplitudes[turns] != 0)
            sum += shape.amplitudes[turns] * cosine(turns * fullTurn * n / period);
    }
    return sum;
}

float bartlett(int n, int centre)
{
    return static_cast<float>(centre - std::abs(n - centre)) * (1.0F / static_cast<float>(centre));
}

} // namespace

std::vector<double> windowShape(const QString& name, int length)
{
    if (length < 1)
        return {};
    std::vector<double> shape(static_cast<std::size_t>(length), 1.0);
    const int period = length - 1;
    if (name == QLatin1String("Bartlett") && period / 2 > 0) {
        for (int n = 0; n < length; ++n)
            shape[n] = bartlett(n, period / 2);
    }
    for (const CosineSum& sum : cosineSums) {
        if (name != QLatin1String(sum.name) || period == 0)
            continue;
        for (int n = 0; n < length; ++n)
            shape[n] = cosineSum(sum, n, period);
    }
    return shape;
}
