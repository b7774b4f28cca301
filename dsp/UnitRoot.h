#ifndef SONAVIA_DSP_UNITROOT_H
#define SONAVIA_DSP_UNITROOT_H

#include <cstdint>

/// The point on the unit circle at k / n of a full turn.
struct UnitRoot
{
    double cosine;
    double sine;
};

/// For n a power of two and k from 0 to n. Made of IEEE additions and multiplications alone: the mathematical
/// libraries of different systems differ in the last bit, and tables of them would, too. The error is below
/// 4e-16; quarters of a turn are exact.
UnitRoot unitRoot(std::int64_t k, std::int64_t n);

#endif
