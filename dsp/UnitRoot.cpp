#include "dsp/UnitRoot.h"

namespace {

constexpr double pi = 3.14159265358979323846;

// Taylor series for angles up to a quarter of pi; the next term is below 1e-17 there.
double cosineSeries(double angle)
{
    const double square = angle * angle;
    double sum = 1.0;
    for (int term = 16; term >= 2; term -= 2)
        sum = 1.0 - sum * square / (term * (term - 1));
    return sum;
}

double sineSeries(double angle)
{
    const double square = angle * angle;
    double sum = 1.0;
    for (int term = 17; term >= 3; term -= 2)
        sum = 1.0 - sum * square / (term * (term - 1));
    return sum * angle;
}

// An angle of at most an eighth of a turn.
UnitRoot firstOctant(std::int64_t k, std::int64_t n)
{
    const double angle = 2.0 * pi * static_cast<double>(k) / static_cast<double>(n);
    return {cosineSeries(angle), sineSeries(angle)};
}

} // namespace

UnitRoot unitRoot(std::int64_t k, std::int64_t n)
{
    if (2 * k > n) { // the lower half: mirrored at the real axis
        const UnitRoot mirrored = unitRoot(n - k, n);
        return {mirrored.cosine, -mirrored.sine};
    }
    if (4 * k > n) { // the second quarter: a quarter turn further than the first
        const UnitRoot first = unitRoot(4 * k - n, 4 * n);
        return {-first.sine, first.cosine};
    }
    if (8 * k > n) { // past the diagonal: mirrored at it
        const UnitRoot mirrored = unitRoot(n - 4 * k, 4 * n);
        return {mirrored.sine, mirrored.cosine};
    }
    return firstOctant(k, n);
}
