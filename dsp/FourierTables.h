#ifndef SONAVIA_DSP_FOURIERTABLES_H
#define SONAVIA_DSP_FOURIERTABLES_H

#include "dsp/FourierKernel.h"

#include <vector>

/// The factors of one size of the fixed transforms, the same bits on every machine.
class FourierTables
{
public:
    /// For 2^exponent samples, exponent from 3 to 14.
    explicit FourierTables(int exponent);
    FourierTables(const FourierTables&) = delete;
    FourierTables& operator=(const FourierTables&) = delete;

    /// Valid as long as the tables live. Any thread.
    const FourierFactors& factors() const { return m_factors; }

private:
    struct alignas(64) Line
    {
        float values[16];
    };

    std::vector<Line> m_lines; ///< all tables, one after the other
    FourierFactors m_factors;
};

#endif
