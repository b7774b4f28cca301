#include "viewer/RasterPainter.h"

#include <algorithm>

namespace {

using Sample = RasterPainter::Sample;

Sample nearestSample(double position, double lower, double cellWidth, int cells)
{
    const int cell = std::min(static_cast<int>((position - lower) / cellWidth), cells - 1);
    return {cell, cell, 1.0};
}

Sample interpolatedSample(double position, double lower, double cellWidth, int cells)
{
    int first = qRound((position - lower) / cellWidth) - 1;
    int second = first + 1;
    if (first < 0)
        first = second;
    else if (second >= cells)
        second = first;
    const double centre = lower + (second + 0.5) * cellWidth;
    return {first, second, (centre - position) / cellWidth};
}

} // namespace

std::vector<RasterPainter::Sample> RasterPainter::samplesAlong(Qt::Axis axis, const QwtScaleMap& map,
                                                               int pixels, const QwtMatrixRasterData& raster)
{
    std::vector<Sample> samples(static_cast<std::size_t>(pixels));
    const QwtInterval interval = raster.interval(axis);
    const int cells = axis == Qt::XAxis ? raster.numColumns() : raster.numRows();
    const bool interpolated = raster.resampleMode() == QwtMatrixRasterData::BilinearInterpolation;
    const double lower = interval.minValue();
    const double cellWidth = interval.width() / cells;
    if (!(cellWidth > 0.0))
        return samples;
    for (int i = 0; i < pixels; ++i) {
        const double position = map.invTransform(i);
        if (qIsNaN(position) || !interval.contains(position))
            continue;
        samples[static_cast<std::size_t>(i)] = interpolated
                                                   ? interpolatedSample(position, lower, cellWidth, cells)
                                                   : nearestSample(position, lower, cellWidth, cells);
    }
    return samples;
}

RasterPainter::RasterPainter(const QwtMatrixRasterData& raster, const std::vector<Sample>& columns,
                             const ColourLookup& colours)
    : m_values(raster.valueMatrix()),
      m_matrixColumns(raster.numColumns()),
      m_isInterpolated(raster.resampleMode() == QwtMatrixRasterData::BilinearInterpolation),
      m_colours(colours)
{
    const auto isInside = [](const Sample& sample) { return sample.cell >= 0; };
    const auto begin = std::find_if(columns.begin(), columns.end(), isInside);
    const auto end = std::find_if_not(begin, columns.end(), isInside);
    m_left = static_cast<std::size_t>(begin - columns.begin());
    m_columns.assign(begin, end);
    m_line.resize(m_columns.size());
}

void RasterPainter::paint(const std::vector<Sample>& rows, QImage& image)
{
    uchar* const pixels = image.bits();
    const auto lineAt = [&](int y) {
        return reinterpret_cast<QRgb*>(pixels + static_cast<std::ptrdiff_t>(y) * image.bytesPerLine()) +
               m_left;
    };
    for (int y = 0; y < image.height(); ++y) {
        const Sample& row = rows[static_cast<std::size_t>(y)];
        if (row.cell < 0)
            continue;
        if (m_isInterpolated)
            paintInterpolated(row, lineAt(y));
        else if (y > 0 && rows[static_cast<std::size_t>(y) - 1].cell == row.cell)
            std::copy_n(lineAt(y - 1), m_line.size(), lineAt(y));
        else
            paintNearest(row, lineAt(y));
    }
}

// Reading apart from computing lets the processor have many cache misses under way at once.
void RasterPainter::paintNearest(const Sample& row, QRgb* line)
{
    const double* cells = matrixRow(row.cell);
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        m_line[i] = cells[m_columns[i].cell];
    paintLine(line);
}

void RasterPainter::paintInterpolated(const Sample& row, QRgb* line)
{
    const double* first = interpolatedRow(row.cell, row.next);
    const double* second = interpolatedRow(row.next, row.cell);
    const double weight = row.weight;
    const double rest = 1.0 - weight;
    for (std::size_t i = 0; i < m_line.size(); ++i)
        m_line[i] = weight * first[i] + rest * second[i];
    paintLine(line);
}

/// The row interpolated between its columns. Neighbouring pixel rows need the same two matrix rows or one of
/// them, so two are kept: the one asked for replaces the one that is not `needed`.
const double* RasterPainter::interpolatedRow(int row, int needed)
{
    for (const InterpolatedRow& kept : m_kept) {
        if (kept.row == row)
            return kept.values.data();
    }
    InterpolatedRow& target = m_kept[0].row == needed ? m_kept[1] : m_kept[0];
    target.row = row;
    target.values.resize(m_columns.size());
    const double* cells = matrixRow(row);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const Sample& column = m_columns[i];
        target.values[i] = column.weight * cells[column.cell] + (1.0 - column.weight) * cells[column.next];
    }
    return target.values.data();
}

void RasterPainter::paintLine(QRgb* line) const
{
    for (std::size_t i = 0; i < m_line.size(); ++i)
        line[i] = m_colours.rgb(m_line[i]);
}
