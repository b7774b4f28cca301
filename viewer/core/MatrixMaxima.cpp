#include "viewer/core/MatrixMaxima.h"

#include "viewer/core/ParallelRanges.h"
#include "viewer/core/Prefetch.h"

#include <algorithm>

namespace {

double larger(double a, double b)
{
    return a > b ? a : b;
}

// Running maxima side by side, so that they need not wait for each other; a cache line of values.
constexpr int lanes = 8;

/// The largest of the values, at least the floor.
double largest(const double* values, int count)
{
    double lane[lanes];
    std::fill_n(lane, lanes, DecibelMatrix::floor);
    int i = 0;
    for (; i + lanes <= count; i += lanes)
        for (int k = 0; k < lanes; ++k)
            lane[k] = larger(values[i + k], lane[k]);
    for (; i < count; ++i)
        lane[0] = larger(values[i], lane[0]);
    return *std::max_element(lane, lane + lanes);
}

/// The same, and raises the columns' maxima to the values.
double largest(const double* values, int count, double* columns)
{
    double lane[lanes];
    std::fill_n(lane, lanes, DecibelMatrix::floor);
    int i = 0;
    for (; i + lanes <= count; i += lanes) {
        prefetchAhead(values + i);
        for (int k = 0; k < lanes; ++k) {
            lane[k] = larger(values[i + k], lane[k]);
            columns[i + k] = larger(values[i + k], columns[i + k]);
        }
    }
    for (; i < count; ++i) {
        lane[0] = larger(values[i], lane[0]);
        columns[i] = larger(values[i], columns[i]);
    }
    return *std::max_element(lane, lane + lanes);
}

} // namespace

MatrixMaxima::MatrixMaxima(const DecibelMatrix& matrix)
{
    if (matrix.isEmpty())
        return;
    m_blocks = (matrix.columns - 1) / columnsPerBlock + 1;
    m_columns.assign(static_cast<std::size_t>(matrix.columns), DecibelMatrix::floor);
    m_rowBlocks.resize(static_cast<std::size_t>(matrix.rows) * static_cast<std::size_t>(m_blocks));
    const std::size_t cellsPerBlock = static_cast<std::size_t>(matrix.rows) * columnsPerBlock;
    constexpr std::size_t worthAThread = 1U << 20;
    inParallelRanges(static_cast<std::size_t>(m_blocks), worthAThread / cellsPerBlock + 1,
                     [this, &matrix](std::size_t first, std::size_t end) {
                         addBlocks(matrix, static_cast<int>(first), static_cast<int>(end));
                     });
}

void MatrixMaxima::addBlocks(const DecibelMatrix& matrix, int firstBlock, int endBlock)
{
    // A strip of columns keeps its maxima in the cache while the rows pass by, and is wide enough for the
    // memory to be read in long runs.
    constexpr int blocksPerStrip = 32;
    for (int strip = firstBlock; strip < endBlock; strip += blocksPerStrip) {
        const int stripEnd = std::min(strip + blocksPerStrip, endBlock);
        for (int row = 0; row < matrix.rows; ++row) {
            for (int block = strip; block < stripEnd; ++block) {
                const int column = block * columnsPerBlock;
                const int count = std::min(columnsPerBlock, matrix.columns - column);
                m_rowBlocks[static_cast<std::size_t>(row) * m_blocks + block] =
                    largest(matrix.row(row) + column, count, m_columns.data() + column);
            }
        }
    }
}

double MatrixMaxima::row(const DecibelMatrix& matrix, int row, ColumnRange range) const
{
    const int first = std::max(range.first, 0);
    const int end = std::min(range.end, matrix.columns);
    if (first >= end)
        return DecibelMatrix::floor;

    const double* values = matrix.row(row);
    const int firstWhole = (first + columnsPerBlock - 1) / columnsPerBlock;
    const int endWhole = end == matrix.columns ? m_blocks : end / columnsPerBlock;
    if (firstWhole >= endWhole)
        return largest(values + first, end - first);

    const double* blocks = m_rowBlocks.data() + static_cast<std::size_t>(row) * m_blocks;
    const double whole = largest(blocks + firstWhole, endWhole - firstWhole);
    const double before = largest(values + first, firstWhole * columnsPerBlock - first);
    const int behind = std::min(endWhole * columnsPerBlock, end);
    return std::max({whole, before, largest(values + behind, end - behind)});
}
