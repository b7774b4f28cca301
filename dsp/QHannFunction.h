#ifndef SONAVIA_DSP_QHANNFUNCTION_H
#define SONAVIA_DSP_QHANNFUNCTION_H

#include "dsp/QWindowFunction.h"

/// 0.5 (1 - cos(2 pi n / (N - 1))): 0 at both ends and 1 in the middle.
template <typename T>
class QHannFunction : public QWindowFunction<T>
{
public:
    T fill(int n, int N) const override { return static_cast<T>(0.5 * (1.0 - this->cosine(n, N))); }
};

#endif
