#ifndef SONAVIA_VIEWER_CORE_MATRIXMAXIMA_H
#define SONAVIA_VIEWER_CORE_MATRIXMAXIMA_H

#include "viewer/core/DecibelMatrix.h"

#include <vector>

/// The largest level of every column and, for any range of columns, of every row of one spectrogram matrix.
///
/// Made once per result: that reads the whole matrix, on all cores, at the speed of the memory (640 MB at the
/// limit of 8e7 cells). After that a curve costs next to nothing: the rows' maxima are kept for blocks of
/// columns, so that a range touches matrix values only at its two ends. Make it on the first use of a curve
/// that needs it, and anew for each result. Plain value, any thread.
class MatrixMaxima
{
public:
    MatrixMaxima() = default;
    explicit MatrixMaxima(const DecibelMatrix& matrix);

    /// One value per column (dB), at least DecibelMatrix::floor. Empty for an empty matrix.
    const std::vector<double>& columns() const { return m_columns; }

    /// The largest level (dB) of one row within the columns, at least DecibelMatrix::floor. `matrix` is the
    /// one that this was made from; columns outside it are left out.
    double row(const DecibelMatrix& matrix, int row, ColumnRange range) const;

private:
    void addBlocks(const DecibelMatrix& matrix, int firstBlock, int endBlock);

    static constexpr int columnsPerBlock = 512;
    int m_blocks = 0;
    std::vector<double> m_columns;
    std::vector<double> m_rowBlocks; ///< row x m_blocks + block
};

#endif
