#ifndef SONAVIA_DSP_QHAMMINGFUNCTION_H
#define SONAVIA_DSP_QHAMMINGFUNCTION_H

#include "dsp/QWindowFunction.h"

/// 0.54 + 0.46 cos(2 pi n / (N - 1)). The plus sign is meant: 1 at both ends and 0.08 in the middle.
template <typename T>
class QHammingFunction : public QWindowFunction<T>
{
public:
    T fill(int n, int N) const override { return static_cast<T>(0.54 + 0.46 * this->cosine(n, N)); }
};

#endif
