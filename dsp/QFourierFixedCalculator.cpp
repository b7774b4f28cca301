#include "dsp/QFourierFixedCalculator.h"

#include "dsp/FFTReal.h"
#include "dsp/FourierTables.h"

template <int E>
void QFourierFixedCalculator<E>::setData(float* input, float* output)
{
    m_input = input;
    m_output = output;
}

template <int E>
void QFourierFixedCalculator<E>::setSize(int /*size*/)
{
    static const FourierTables tables(E);
    m_factors = &tables.factors();
    m_kernel = fourierKernel(E);
}

template <int E>
void QFourierFixedCalculator<E>::forward()
{
    if (m_kernel == nullptr)
        setSize(size());
    m_kernel(m_input, m_output, *m_factors);
}

template <int E>
void QFourierFixedCalculator<E>::inverse()
{
    if (m_kernel == nullptr)
        setSize(size());
    // Through the forward transform, like FFTReal::do_ifft().
    constexpr int count = 1 << E;
    constexpr int half = count / 2;
    const float* spectrum = m_input;
    float parts[count];
    parts[0] = spectrum[0];
    parts[half] = spectrum[half];
    for (int k = 1; k < half; ++k) {
        parts[k] = spectrum[k] - spectrum[half + k];
        parts[count - k] = spectrum[k] + spectrum[half + k];
    }
    m_kernel(parts, m_output, *m_factors);
    ffft::FFTReal<float>::differencesOfParts(m_output, count);
}

template <int E>
void QFourierFixedCalculator<E>::rescale()
{
    constexpr float factor = 1.0f / (1 << E);
    for (int i = 0; i < (1 << E); ++i)
        m_output[i] *= factor;
}

template class QFourierFixedCalculator<3>;
template class QFourierFixedCalculator<4>;
template class QFourierFixedCalculator<5>;
template class QFourierFixedCalculator<6>;
template class QFourierFixedCalculator<7>;
template class QFourierFixedCalculator<8>;
template class QFourierFixedCalculator<9>;
template class QFourierFixedCalculator<10>;
template class QFourierFixedCalculator<11>;
template class QFourierFixedCalculator<12>;
template class QFourierFixedCalculator<13>;
template class QFourierFixedCalculator<14>;
