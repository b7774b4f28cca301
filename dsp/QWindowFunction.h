#ifndef SONAVIA_DSP_QWINDOWFUNCTION_H
#define SONAVIA_DSP_QWINDOWFUNCTION_H

#include <QVector>

#include <algorithm>
#include <cmath>

/// A window shape for one number of samples, as a table of coefficients.
template <typename T>
class QWindowFunction
{
public:
    /// The coefficient for sample n of N.
    virtual T fill(int n, int N) const = 0;

    QWindowFunction() = default;
    QWindowFunction(const QWindowFunction&) = delete;
    QWindowFunction& operator=(const QWindowFunction&) = delete;
    virtual ~QWindowFunction() = default;

    /// Fills the table for N samples; 0 empties it.
    void setSize(int N)
    {
        m_coefficients.resize(N);
        for (int n = 0; n < N; ++n)
            m_coefficients[n] = fill(n, N);
    }

    /// Multiplies N samples by their coefficients in place. Samples beyond the size that was set stay as they
    /// are.
    void applyWindow(T* data, int N) const
    {
        const T* coefficients = m_coefficients.constData();
        const int count = std::min(N, m_coefficients.size());
        for (int i = 0; i < count; ++i)
            data[i] *= coefficients[i];
    }

protected:
    /// cos(2 pi n / (N - 1)); a window of a single sample counts as its own start.
    static double cosine(int n, int N);

private:
    QVector<T> m_coefficients;
};

template <typename T>
double QWindowFunction<T>::cosine(int n, int N)
{
    constexpr double turn = 6.283185307179586;
    return N > 1 ? std::cos(turn * n / (N - 1)) : 1.0;
}

#endif
