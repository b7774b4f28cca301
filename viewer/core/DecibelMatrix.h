#ifndef SONAVIA_VIEWER_CORE_DECIBELMATRIX_H
#define SONAVIA_VIEWER_CORE_DECIBELMATRIX_H

#include <cstddef>

/// A look at a spectrogram matrix in dB, row-major by frequency: index = frequency row x columns + time
/// column. Does not own the values: whoever made it keeps them alive and unchanged. Values may be -infinity.
struct DecibelMatrix
{
    const double* values = nullptr;
    int rows = 0;
    int columns = 0;
    double secondsPerColumn = 0; ///< column k stands at k x secondsPerColumn
    double kilohertzPerRow = 0;  ///< row i stands at i x kilohertzPerRow

    bool isEmpty() const { return values == nullptr || rows <= 0 || columns <= 0; }
    const double* row(int index) const
    {
        return values + static_cast<std::size_t>(index) * static_cast<std::size_t>(columns);
    }

    /// The level below which the curves of the axis plots do not go (dB).
    static constexpr double floor = -300.0;
};

/// Columns of a matrix from `first` up to, not including, `end`.
struct ColumnRange
{
    int first = 0;
    int end = 0;
};

#endif
