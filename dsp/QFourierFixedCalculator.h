#ifndef SONAVIA_DSP_QFOURIERFIXEDCALCULATOR_H
#define SONAVIA_DSP_QFOURIERFIXEDCALCULATOR_H

#include "dsp/FFTReal.h"
#include "dsp/QFourierCalculator.h"

/// Transforms of 2^E samples, E = 3 .. 14.
template <int E>
class QFourierFixedCalculator : public QFourierCalculator
{
public:
    void setData(float* input, float* output) override
    {
        m_input = input;
        m_output = output;
    }
    void setSize(int) override {}
    int size() const override { return 1 << E; }
    void forward() override { m_transform.do_fft(m_output, m_input); }
    void inverse() override { m_transform.do_ifft(m_input, m_output); }
    void rescale() override { m_transform.rescale(m_output); }

private:
    const float* m_input = nullptr;
    float* m_output = nullptr;
    ffft::FFTReal<float> m_transform{1 << E};
};

#endif
