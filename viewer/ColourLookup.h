#ifndef SONAVIA_VIEWER_COLOURLOOKUP_H
#define SONAVIA_VIEWER_COLOURLOOKUP_H

#include <QColor>
#include <qwt_color_map.h>
#include <qwt_interval.h>

#include <vector>

/// The colours of a linear colour map over an interval, tabulated for many look-ups: rgb(v) equals
/// map.rgb(interval, v) for every v, infinities and NaN (transparent) included.
///
/// A linear map is a staircase: between two stops each channel only rises or only falls, so some hundred
/// values at which the colour changes describe it completely. They are found by asking the map
/// itself, which makes the table exact however the map rounds. The map is not needed after construction.
class ColourLookup
{
public:
    /// Valid for nothing.
    ColourLookup() = default;

    /// `interval` must be valid. About a millisecond.
    ColourLookup(const QwtLinearColorMap& map, const QwtInterval& interval);

    /// False where the interval is too narrow, too wide or not finite; then rgb() must not be called.
    bool isValid() const { return !m_colours.empty(); }

    /// No colour lets the canvas show through.
    bool isOpaque() const { return m_isOpaque; }

    /// Whether this table was made for an equal map and interval.
    bool isFor(const QwtLinearColorMap& map, const QwtInterval& interval) const;

    QRgb rgb(double value) const
    {
        std::size_t step = m_firstStep[bucket(value)];
        while (value >= m_starts[step + 1])
            ++step;
        return value == value ? m_colours[step] : 0U;
    }

private:
    static constexpr int bucketCount = 1 << 14;

    /// Never falls while the value rises; the first bucket for NaN.
    int bucket(double value) const
    {
        const double position = (value - m_lower) * m_bucketsPerUnit;
        const double positive = position > 0.0 ? position : 0.0;
        return static_cast<int>(positive < bucketCount - 1 ? positive : bucketCount - 1);
    }
    static std::vector<QRgb> fingerprint(const QwtLinearColorMap& map);
    void addRamp(const QwtColorMap& map, double from, double to);
    void addStep(double start, QRgb colour);
    void fillBuckets();

    QwtInterval m_interval;
    QwtLinearColorMap::Mode m_mode = QwtLinearColorMap::ScaledColors;
    QVector<double> m_stops;
    std::vector<QRgb> m_fingerprint;
    bool m_isOpaque = false;

    double m_lower = 0.0;
    double m_bucketsPerUnit = 0.0;
    std::vector<quint16> m_firstStep; ///< per bucket: the step that its lowest values belong to
    std::vector<double> m_starts; ///< per step: the least value on it; then one NaN, which ends every search
    std::vector<QRgb> m_colours;  ///< per step
};

#endif
