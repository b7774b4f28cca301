#ifndef SONAVIA_DSP_QFOURIERVARIABLECALCULATOR_H
#define SONAVIA_DSP_QFOURIERVARIABLECALCULATOR_H

#include "dsp/FFTReal.h"
#include "dsp/QFourierCalculator.h"

#include <memory>

/// Transforms of any power of two. setSize() makes the tables, 8 bytes per sample, and throws std::bad_alloc
/// where memory does not suffice.
class QFourierVariableCalculator : public QFourierCalculator
{
public:
    QFourierVariableCalculator();
    ~QFourierVariableCalculator() override;

    void setData(float* input, float* output) override;
    void setSize(int size) override;
    int size() const override { return m_size; }
    void forward() override;
    void inverse() override;
    void rescale() override;

private:
    int m_size = 0;
    const float* m_input = nullptr;
    float* m_output = nullptr;
    std::unique_ptr<ffft::FFTReal<float>> m_transform; ///< for sizes above 4
};

#endif
