#include "dsp/QFourierVariableCalculator.h"

QFourierVariableCalculator::QFourierVariableCalculator() = default;

QFourierVariableCalculator::~QFourierVariableCalculator() = default;

void QFourierVariableCalculator::setData(float* input, float* output)
{
    m_input = input;
    m_output = output;
}

void QFourierVariableCalculator::setSize(int size)
{
    if (size == m_size)
        return;
    m_size = 0; // stays so if memory fails
    m_transform = size > 4 ? std::make_unique<ffft::FFTReal<float>>(size) : nullptr;
    m_size = size;
}

void QFourierVariableCalculator::forward()
{
    const float* x = m_input;
    float* f = m_output;
    switch (m_size) {
    case 0:
        break;
    case 1:
        f[0] = x[0];
        break;
    case 2:
        f[0] = x[0] + x[1];
        f[1] = x[0] - x[1];
        break;
    case 4: {
        const float even = x[0] + x[2];
        const float odd = x[1] + x[3];
        f[0] = even + odd;
        f[1] = x[0] - x[2];
        f[2] = even - odd;
        f[3] = x[3] - x[1];
        break;
    }
    default:
        m_transform->do_fft(f, x);
    }
}

void QFourierVariableCalculator::inverse()
{
    const float* f = m_input;
    float* x = m_output;
    switch (m_size) {
    case 0:
        break;
    case 1:
        x[0] = f[0];
        break;
    case 2:
        x[0] = f[0] + f[1];
        x[1] = f[0] - f[1];
        break;
    case 4: {
        const float even = f[0] + f[2];
        const float odd = f[0] - f[2];
        x[0] = even + 2.0f * f[1];
        x[1] = odd - 2.0f * f[3];
        x[2] = even - 2.0f * f[1];
        x[3] = odd + 2.0f * f[3];
        break;
    }
    default:
        m_transform->do_ifft(f, x);
    }
}

void QFourierVariableCalculator::rescale()
{
    const float factor = m_size > 0 ? 1.0f / static_cast<float>(m_size) : 1.0f;
    for (int i = 0; i < m_size; ++i)
        m_output[i] *= factor;
}
