#include "viewer/MatrixSpectrogram.h"

#include <QPaintEngine>
#include <QPainter>
#include <QtMath>
#include <qwt_scale_map.h>

namespace {

/// The map of a canvas of `ratio` times as many pixels.
QwtScaleMap magnified(QwtScaleMap map, double ratio)
{
    map.setPaintInterval(map.p1() * ratio, map.p2() * ratio);
    return map;
}

} // namespace

/// Finds out which samples end up at the pixels of a canvas. The library decides, depending on the size of
/// the cells, whether it renders one pixel per cell or per pixel, and how it blows cells up. It decides that
/// for each axis apart, so it is made to draw a narrow strip along one axis, in which the pixels of the image
/// that it asks for are numbered.
struct MatrixSpectrogram::Probe
{
    Qt::Axis axis;
    std::vector<RasterPainter::Sample> samples; ///< of the image that the library asked for

    QImage numberedImage(const QSize& size) const
    {
        QImage image(size, QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y) {
            auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x)
                line[x] = 0xff000000U | static_cast<QRgb>(axis == Qt::XAxis ? x : y);
        }
        return image;
    }

    /// What was drawn at a pixel along the strip: where the strip is only partly covered, any line of it
    /// tells.
    RasterPainter::Sample sampleAt(int pixel, const QImage& strip) const
    {
        for (int line = 0; line < thickness; ++line) {
            const QRgb number = axis == Qt::XAxis ? strip.pixel(pixel, line) : strip.pixel(line, pixel);
            if (qAlpha(number) != 0)
                return samples[number & 0xffffffU];
        }
        return {};
    }

    static constexpr int thickness = 3;
};

MatrixSpectrogram::MatrixSpectrogram(const QString& title)
    : QwtPlotSpectrogram(title), m_raster(new QwtMatrixRasterData)
{
    setData(m_raster);
}

void MatrixSpectrogram::setMatrix(const QVector<double>& matrix, int columns, double durationSeconds,
                                  double nyquist)
{
    // The library reads outside an empty matrix, so none is ever shown.
    if (columns <= 0 || matrix.size() < columns) {
        clear();
        return;
    }
    m_raster->setValueMatrix(matrix, columns);
    m_raster->setInterval(Qt::XAxis, QwtInterval(0.0, durationSeconds));
    m_raster->setInterval(Qt::YAxis, QwtInterval(0.0, nyquist));
    pictureChanged();
}

void MatrixSpectrogram::clear()
{
    m_raster->setInterval(Qt::XAxis, QwtInterval());
    m_raster->setInterval(Qt::YAxis, QwtInterval());
    m_raster->setValueMatrix(QVector<double>(), 0);
    pictureChanged();
}

void MatrixSpectrogram::setAmplitudeLimits(const AxisLimits& limits)
{
    m_raster->setInterval(Qt::ZAxis,
                          limits.isValid() ? QwtInterval(limits.lower, limits.upper) : QwtInterval());
    pictureChanged();
}

void MatrixSpectrogram::setSmoothing(bool on)
{
    m_raster->setResampleMode(on ? QwtMatrixRasterData::BilinearInterpolation
                                 : QwtMatrixRasterData::NearestNeighbour);
    pictureChanged();
}

void MatrixSpectrogram::pictureChanged()
{
    m_isPictureValid = false;
    itemChanged();
}

// The library's own PaintCache would keep the image before its cells are blown up to pixels, which takes
// longer than everything else here, and would render for the pixels of the plot instead of those of the
// device.
void MatrixSpectrogram::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                             const QRectF& canvasRect) const
{
    if (!m_raster->interval(Qt::ZAxis).isValid() || m_raster->numRows() <= 0)
        return;
    if (!canKeepPicture(*painter, xMap, yMap)) {
        QwtPlotSpectrogram::draw(painter, xMap, yMap, canvasRect);
        return;
    }
    const double ratio = painter->device()->devicePixelRatioF();
    const PictureKey key{
        xMap.s1(),          xMap.s2(),        xMap.p1(),          xMap.p2(), yMap.s1(),
        yMap.s2(),          yMap.p1(),        yMap.p2(),          ratio,     canvasRect.left(),
        canvasRect.right(), canvasRect.top(), canvasRect.bottom()};
    if (!m_isPictureValid || key != m_pictureKey) {
        const QRectF deviceRect(canvasRect.topLeft() * ratio, canvasRect.size() * ratio);
        paintPicture(magnified(xMap, ratio), magnified(yMap, ratio), deviceRect);
        m_picture.setDevicePixelRatio(ratio);
        m_pictureKey = key;
        m_isPictureValid = true;
    }
    painter->drawImage(QPointF(0.0, 0.0), m_picture);
}

/// Only what is painted on the screen or grabbed from it comes again and is worth keeping. Forgets the
/// picture if its colours are outdated.
bool MatrixSpectrogram::canKeepPicture(const QPainter& painter, const QwtScaleMap& xMap,
                                       const QwtScaleMap& yMap) const
{
    const auto isPlain = [](const QwtScaleMap& map) {
        return !map.transformation() && map.pDist() > 0.0 && map.sDist() > 0.0;
    };
    const ColourLookup* colours = currentColours();
    const bool isOpaque = colours && colours->isOpaque() && (alpha() < 0 || alpha() >= 255);
    return isOpaque && testDisplayMode(ImageMode) && !testDisplayMode(ContourMode) && isPlain(xMap) &&
           isPlain(yMap) && painter.transform().isIdentity() &&
           painter.paintEngine()->type() == QPaintEngine::Raster;
}

/// Makes the picture, which reaches from the origin of the canvas to the end of `canvasRect`. All in device
/// pixels.
void MatrixSpectrogram::paintPicture(const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                                     const QRectF& canvasRect) const
{
    const QSize size(qCeil(canvasRect.right()), qCeil(canvasRect.bottom()));
    if (m_picture.size() != size)
        m_picture = QImage(size, QImage::Format_ARGB32_Premultiplied);
    if (m_picture.isNull())
        return;
    m_picture.fill(Qt::transparent);
    const std::vector<RasterPainter::Sample> columns = samplesOnCanvas(Qt::XAxis, xMap, yMap, canvasRect);
    const std::vector<RasterPainter::Sample> rows = samplesOnCanvas(Qt::YAxis, xMap, yMap, canvasRect);
    RasterPainter(*m_raster, columns, *currentColours()).paint(rows, m_picture);
}

/// One for each pixel from the origin to the end of the canvas.
std::vector<RasterPainter::Sample>
MatrixSpectrogram::samplesOnCanvas(Qt::Axis axis, QwtScaleMap xMap, QwtScaleMap yMap, QRectF canvasRect) const
{
    const bool alongX = axis == Qt::XAxis;
    const int pixels = qCeil(alongX ? canvasRect.right() : canvasRect.bottom());
    std::vector<RasterPainter::Sample> samples(static_cast<std::size_t>(pixels));

    // The strip lies in the middle of what can be seen; it is moved to the origin so that its image can be
    // small.
    const QRectF visible = canvasRect & QwtScaleMap::transform(xMap, yMap, boundingRect()).normalized();
    if (visible.isEmpty())
        return samples;
    const QPoint middle(qFloor(visible.center().x()), qFloor(visible.center().y()));
    QSize size;
    if (alongX) {
        yMap.setPaintInterval(yMap.p1() - middle.y() + 1, yMap.p2() - middle.y() + 1);
        canvasRect = QRectF(canvasRect.left(), 0.0, canvasRect.width(), Probe::thickness);
        size = QSize(pixels, Probe::thickness);
    } else {
        xMap.setPaintInterval(xMap.p1() - middle.x() + 1, xMap.p2() - middle.x() + 1);
        canvasRect = QRectF(0.0, canvasRect.top(), Probe::thickness, canvasRect.height());
        size = QSize(Probe::thickness, pixels);
    }

    QImage strip(size, QImage::Format_ARGB32_Premultiplied);
    strip.fill(Qt::transparent);
    Probe probe{axis, {}};
    m_probe = &probe;
    QPainter painter(&strip);
    QwtPlotSpectrogram::draw(&painter, xMap, yMap, canvasRect);
    painter.end();
    m_probe = nullptr;
    for (int i = 0; i < pixels; ++i)
        samples[static_cast<std::size_t>(i)] = probe.sampleAt(i, strip);
    return samples;
}

QImage MatrixSpectrogram::renderImage(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& area,
                                      const QSize& size) const
{
    if (size.isEmpty() || m_raster->numRows() <= 0 || !m_raster->interval(Qt::ZAxis).isValid())
        return QImage();
    if (m_probe) {
        const bool alongX = m_probe->axis == Qt::XAxis;
        m_probe->samples = RasterPainter::samplesAlong(m_probe->axis, alongX ? xMap : yMap,
                                                       alongX ? size.width() : size.height(), *m_raster);
        return m_probe->numberedImage(size);
    }
    const ColourLookup* colours = currentColours();
    if (!colours)
        return QwtPlotSpectrogram::renderImage(xMap, yMap, area, size);

    QImage image(size, QImage::Format_ARGB32);
    if (image.isNull())
        return image;
    image.fill(0U);
    RasterPainter(*m_raster, RasterPainter::samplesAlong(Qt::XAxis, xMap, size.width(), *m_raster), *colours)
        .paint(RasterPainter::samplesAlong(Qt::YAxis, yMap, size.height(), *m_raster), image);
    return image;
}

/// Null for colour maps and limits that cannot be tabulated.
const ColourLookup* MatrixSpectrogram::currentColours() const
{
    const auto* map = dynamic_cast<const QwtLinearColorMap*>(colorMap());
    const QwtInterval amplitude = m_raster->interval(Qt::ZAxis);
    if (!map || map->format() != QwtColorMap::RGB || !amplitude.isValid())
        return nullptr;
    if (!m_colours.isFor(*map, amplitude)) {
        m_colours = ColourLookup(*map, amplitude);
        m_isPictureValid = false;
    }
    return m_colours.isValid() ? &m_colours : nullptr;
}
