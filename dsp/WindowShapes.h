#ifndef SONAVIA_DSP_WINDOWSHAPES_H
#define SONAVIA_DSP_WINDOWSHAPES_H

#include <QString>

#include <vector>

/// The coefficients w(0) .. w(length - 1) of the window shape called "Rectangular", "Hann", "Hamming",
/// "Blackman", "Bartlett", "Flattop" or "BlackmanHarris", to be multiplied with samples in double.
///
/// Cosine sums are symmetric (period length - 1). Flattop is not normalised, its peak is about 4.64. Bartlett
/// is centred on the integer (length - 1) / 2 and computed in single precision, so that for an even length
/// the last coefficient is just below 0. Any other text, "Blackman-Harris" with a hyphen too, and lengths
/// without a shape (1, for Bartlett 2 as well) give ones; a length below 1 gives none.
///
/// The coefficients are the same bits on every system.
std::vector<double> windowShape(const QString& name, int length);

#endif
