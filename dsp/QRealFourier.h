#ifndef SONAVIA_DSP_QREALFOURIER_H
#define SONAVIA_DSP_QREALFOURIER_H

#include "dsp/QFourierCalculator.h"
#include "dsp/QFourierVariableCalculator.h"
#include "dsp/QWindowFunction.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>

/// The Fourier transform of real samples, for every power of two, with a window of its own. The layout of
/// spectra is that of QFourierCalculator: real parts of bins 0 .. N/2, then imaginary parts of bins 1 .. N/2
/// - 1.
///
/// Sizes from 8 to 16384 have calculators made for them, the others share a general one, which is slower. The
/// results of the former are the same bits on every processor and for every instruction set.
///
/// A facade is used by one thread at a time; threads that transform at the same time have one each.
/// Transforms allocate nothing. Arrays are the caller's, hold size() floats, may lie at any address and must
/// not overlap.
class QRealFourier
{
public:
    /// Sets the window, then the size. An unknown name, the empty one too, stands for "Rectangular".
    explicit QRealFourier(int size = 0, const QString& functionName = QString());
    ~QRealFourier();
    QRealFourier(const QRealFourier&) = delete;
    QRealFourier& operator=(const QRealFourier&) = delete;

    /// Returns 1 for a size with a calculator of its own (8 .. 16384), 0 for any other power of two, 2 for
    /// what is none; the size is 0 then and transforms do nothing. The window follows the size.
    int setSize(int size);
    int size() const { return m_size; }

    /// Chooses the window by name, "Rectangular" (none), "Hamming" or "Hann", in any case, with or without
    /// blanks around it and the word "function". False for other names, which change nothing.
    bool setWindowFunction(const QString& name);

    /// The names that setWindowFunction() knows.
    const QStringList& windowFunctions() const { return m_windowNames; }

    /// Samples to spectrum, not scaled. Multiplies input by the window in place; without a window input stays
    /// as it is.
    void forward(float* input, float* output);

    /// Spectrum in input, which stays as it is, to samples in output, size() times too large until rescale().
    void inverse(float* input, float* output);

    /// Multiplies size() values by 1 / size() in place.
    void rescale(float* values);

private:
    int m_size = 0;
    std::map<int, std::unique_ptr<QFourierCalculator>> m_fixedCalculators; ///< by exponent of two
    QFourierVariableCalculator m_variableCalculator;
    QFourierCalculator* m_calculator = nullptr; ///< the one in use
    std::unique_ptr<QWindowFunction<float>> m_window;
    QStringList m_windowNames;
};

#endif
