#ifndef SONAVIA_VIEWER_MATRIXSPECTROGRAM_H
#define SONAVIA_VIEWER_MATRIXSPECTROGRAM_H

#include "viewer/ColourLookup.h"
#include "viewer/RasterPainter.h"
#include "viewer/core/AxisLimits.h"

#include <QImage>
#include <qwt_matrix_raster_data.h>
#include <qwt_plot_spectrogram.h>

#include <array>

/// The spectrogram of one recording as a plot item: a matrix of decibel values, drawn through a colour map.
///
/// Draws the same picture as its base class with the same QwtMatrixRasterData and QwtLinearColorMap, pixel
/// for pixel, in a fraction of the time: positions are computed once per column and row, colours are
/// tabulated, and the rows of the matrix that a pixel row needs are read once. On a display with several
/// device pixels per pixel it is the picture for a plot of that many pixels. The picture on the screen is
/// kept, so that moving something over it costs one copy. Other kinds of colour maps, contour lines and
/// translucency are left to the base class.
///
/// Change data and limits through the functions below: changing the raster data itself leaves a stale
/// picture. GUI thread only.
class MatrixSpectrogram : public QwtPlotSpectrogram
{
public:
    explicit MatrixSpectrogram(const QString& title = QString());

    /// Shares `matrix`, so no copy is made: levels in dBFS (minus infinity is the lowest colour, NaN is
    /// transparent), one row per frequency from 0 upwards, `columns` frames per row, index = row x columns +
    /// column. The first column begins at 0 s, the last ends at `durationSeconds`; the rows span 0 kHz to
    /// `nyquist` kHz. Without values this is clear().
    void setMatrix(const QVector<double>& matrix, int columns, double durationSeconds, double nyquist);

    /// Draws nothing from now on and releases the matrix.
    void clear();

    /// The levels (dBFS) of the first and the last colour; without valid limits nothing is drawn.
    void setAmplitudeLimits(const AxisLimits& limits);

    /// Interpolates between cells instead of showing the cell under each pixel.
    void setSmoothing(bool on);

    const QwtMatrixRasterData& raster() const { return *m_raster; }

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;

protected:
    /// One colour per pixel, ARGB32; no image where there is nothing to draw.
    QImage renderImage(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& area,
                       const QSize& imageSize) const override;

private:
    using QwtPlotSpectrogram::setData;

    /// What a picture was painted for: both maps, the canvas, device pixels per pixel.
    using PictureKey = std::array<double, 13>;

    struct Probe;

    bool canKeepPicture(const QPainter& painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap) const;
    void paintPicture(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect) const;
    std::vector<RasterPainter::Sample> samplesOnCanvas(Qt::Axis axis, QwtScaleMap xMap, QwtScaleMap yMap,
                                                       QRectF canvasRect) const;
    const ColourLookup* currentColours() const;
    void pictureChanged();

    QwtMatrixRasterData* m_raster;     ///< owned by the base class
    mutable ColourLookup m_colours;    ///< of the last painting
    mutable QImage m_picture;          ///< of the last painting on the screen
    mutable PictureKey m_pictureKey{}; ///< what the picture shows
    mutable bool m_isPictureValid = false;
    mutable Probe* m_probe = nullptr; ///< set while the base class draws for it
};

#endif
