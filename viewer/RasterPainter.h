#ifndef SONAVIA_VIEWER_RASTERPAINTER_H
#define SONAVIA_VIEWER_RASTERPAINTER_H

#include "viewer/ColourLookup.h"

#include <QImage>
#include <QVector>
#include <qwt_matrix_raster_data.h>
#include <qwt_scale_map.h>

#include <cstddef>
#include <vector>

/// Fills an image with the colours of a value matrix, row by row on one thread. What each pixel column and
/// each pixel row shows is worked out beforehand, once for the image.
class RasterPainter
{
public:
    /// Where a pixel column (or row) takes its values from along one axis of the matrix.
    struct Sample
    {
        int cell = -1; ///< -1: the pixel lies outside
        int next = -1; ///< interpolation: the second cell
        double weight =
            1.0; ///< interpolation: share of the first cell, outside 0..1 beyond the outer centres
    };

    /// One for each pixel, whose positions are map.invTransform(0), (1), ... They are the cells and weights
    /// of QwtMatrixRasterData::value(), computed with the same operations in the same order, since a
    /// difference in the last bit would show as a different colour somewhere.
    static std::vector<Sample> samplesAlong(Qt::Axis axis, const QwtScaleMap& map, int pixels,
                                            const QwtMatrixRasterData& raster);

    /// Shares the matrix of `raster`, which must not be empty where a sample names a cell. `colours` has to
    /// be valid and to outlive the painter.
    RasterPainter(const QwtMatrixRasterData& raster, const std::vector<Sample>& columns,
                  const ColourLookup& colours);

    /// `image` has 32 bits per pixel, as many columns as were given to the constructor and as many rows as
    /// `rows`. Pixels outside the matrix are left as they are; a NaN becomes 0, which is transparent.
    void paint(const std::vector<Sample>& rows, QImage& image);

private:
    struct InterpolatedRow
    {
        int row = -1;
        std::vector<double> values;
    };

    void paintNearest(const Sample& row, QRgb* line);
    void paintInterpolated(const Sample& row, QRgb* line);
    void paintLine(QRgb* line) const;
    const double* interpolatedRow(int row, int needed);
    const double* matrixRow(int row) const
    {
        return m_values.constData() + static_cast<std::ptrdiff_t>(row) * m_matrixColumns;
    }

    const QVector<double> m_values;
    const int m_matrixColumns;
    const bool m_isInterpolated;
    const ColourLookup& m_colours;
    std::size_t m_left = 0; ///< pixels left of the matrix
    std::vector<Sample> m_columns;
    std::vector<double> m_line; ///< values of one pixel row
    InterpolatedRow m_kept[2];
};

#endif
