#ifndef SONAVIA_DSP_QFOURIERFIXEDCALCULATOR_H
#define SONAVIA_DSP_QFOURIERFIXEDCALCULATOR_H

#include "dsp/FourierKernel.h"
#include "dsp/QFourierCalculator.h"

/// Transforms of 2^E samples, E = 3 .. 14, by passes made for this size. The tables of factors are made once
/// per size, at the first need, and shared by all calculators.
template <int E>
class QFourierFixedCalculator : public QFourierCalculator
{
public:
    void setData(float* input, float* output) override;

    /// Leaves the size; chooses the kernel for the active instruction set and readies the tables. The first
    /// transform does so itself if need be.
    void setSize(int size) override;

    int size() const override { return 1 << E; }
    void forward() override;
    void inverse() override;
    void rescale() override;

private:
    const float* m_input = nullptr;
    float* m_output = nullptr;
    FourierKernel m_kernel = nullptr;
    const FourierFactors* m_factors = nullptr;
};

extern template class QFourierFixedCalculator<3>;
extern template class QFourierFixedCalculator<4>;
extern template class QFourierFixedCalculator<5>;
extern template class QFourierFixedCalculator<6>;
extern template class QFourierFixedCalculator<7>;
extern template class QFourierFixedCalculator<8>;
extern template class QFourierFixedCalculator<9>;
extern template class QFourierFixedCalculator<10>;
extern template class QFourierFixedCalculator<11>;
extern template class QFourierFixedCalculator<12>;
extern template class QFourierFixedCalculator<13>;
extern template class QFourierFixedCalculator<14>;

#endif
