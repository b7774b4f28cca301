#ifndef SONAVIA_DSP_MATRIXLIMIT_H
#define SONAVIA_DSP_MATRIXLIMIT_H

#include <QString>

/// The guard against spectrograms that take too much memory: a matrix estimated at more than 80 million cells
/// is computed with less overlap.
///
/// The estimate has its own formula, a little below the count of frames that are computed in the end.
namespace MatrixLimit {

inline constexpr qint64 cells = 80'000'000;

/// The overlap that keeps the limit.
struct Overlap
{
    double percent = 0;
    bool reduced = false; ///< tell the user, see message(), and store the next index, see nextIndex()
};

/// The overlap to compute with: `percent`, or the first below it on the way 98.4375, 96.875, 93.75, 87.5, 75,
/// 50, 0 whose matrix keeps the limit; 0 where none does. A value that is not on the way goes to 0.
Overlap reduced(qint64 sampleCount, int windowSize, double percent);

/// The same for the fixed parameters of the evaluation tool: 512 samples, and the shared samples evaluated in
/// single precision.
float reducedForVantor(qint64 sampleCount, float percent);

/// What the user reads after a reduction to `percent`.
QString message(double percent);

/// The index of the overlap list to store after a reduction, whatever it was reduced to: one step further
/// down the list, at most its last entry.
int nextIndex(int storedIndex);

} // namespace MatrixLimit

#endif
