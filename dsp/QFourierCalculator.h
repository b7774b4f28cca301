#ifndef SONAVIA_DSP_QFOURIERCALCULATOR_H
#define SONAVIA_DSP_QFOURIERCALCULATOR_H

/// A real Fourier transform of one size. Spectra stand in N floats for N samples:
///
///     spectrum[0] = Re X[0], spectrum[k] = Re X[k] for k = 1 .. N/2,
///     spectrum[N/2 + k] = Im X[k] for k = 1 .. N/2 - 1,
///
/// where X[k] is the sum of x[n] e^(-2 pi i k n / N), not scaled.
///
/// The arrays are the caller's, hold size() floats each, may lie at any address and must not overlap. A
/// calculator is used by one thread at a time; it allocates nothing while it transforms.
class QFourierCalculator
{
public:
    QFourierCalculator() = default;
    QFourierCalculator(const QFourierCalculator&) = delete;
    QFourierCalculator& operator=(const QFourierCalculator&) = delete;
    virtual ~QFourierCalculator();

    /// Where the next operations read and write. To be set before any of them; kept until set again.
    virtual void setData(float* input, float* output) = 0;

    /// Prepares for transforms of `size` samples, a power of two. A calculator of a fixed size keeps its own.
    virtual void setSize(int size) = 0;

    /// The number of samples of one transform.
    virtual int size() const = 0;

    /// Samples in input to spectrum in output; input stays as it is.
    virtual void forward() = 0;

    /// Spectrum in input to samples in output, size() times too large until rescale(); input stays as it is.
    virtual void inverse() = 0;

    /// Multiplies every value of output by 1 / size().
    virtual void rescale() = 0;
};

#endif
