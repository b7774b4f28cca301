#include "viewer/ColourLookup.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

double justBelow(double value)
{
    return std::nextafter(value, -infinity);
}

/// The least value in (from, to] whose colour is not `colour`, which `from` has and `to` has not.
double firstOther(const QwtColorMap& map, const QwtInterval& interval, QRgb colour, double from, double to)
{
    for (;;) {
        const double middle = from + (to - from) / 2;
        if (middle <= from || middle >= to)
            return to;
        if (map.rgb(interval, middle) == colour)
            from = middle;
        else
            to = middle;
    }
}

} // namespace

ColourLookup::ColourLookup(const QwtLinearColorMap& map, const QwtInterval& interval)
    : m_interval(interval),
      m_mode(map.mode()),
      m_stops(map.colorStops()),
      m_fingerprint(fingerprint(map)),
      m_lower(interval.minValue()),
      m_bucketsPerUnit(bucketCount / interval.width())
{
    if (!std::isnormal(m_bucketsPerUnit) || !std::isfinite(interval.width()))
        return;

    const double upper = interval.maxValue();
    addStep(-infinity, static_cast<const QwtColorMap&>(map).rgb(interval, m_lower));
    for (int i = 0; i + 1 < m_stops.size(); ++i) {
        const double from = m_lower + m_stops[i] * interval.width();
        const double to = m_lower + m_stops[i + 1] * interval.width();
        addRamp(map, from, justBelow(std::min(to, upper)));
    }
    addRamp(map, upper, upper);
    m_starts.push_back(std::numeric_limits<double>::quiet_NaN());
    fillBuckets();
    m_isOpaque = std::all_of(m_colours.begin(), m_colours.end(), [](QRgb c) { return qAlpha(c) == 255; });
}

bool ColourLookup::isFor(const QwtLinearColorMap& map, const QwtInterval& interval) const
{
    return isValid() && interval == m_interval && map.mode() == m_mode && map.colorStops() == m_stops &&
           fingerprint(map) == m_fingerprint;
}

// A map does not give its stops' colours away; the colours at the stops and shortly before them tell.
std::vector<QRgb> ColourLookup::fingerprint(const QwtLinearColorMap& map)
{
    const QwtInterval unit(0.0, 1.0);
    const QwtColorMap& colours = map;
    std::vector<QRgb> result;
    for (const double stop : map.colorStops()) {
        result.push_back(colours.rgb(unit, stop));
        result.push_back(colours.rgb(unit, justBelow(stop)));
    }
    return result;
}

/// The steps of a stretch within which every channel only rises or only falls.
void ColourLookup::addRamp(const QwtColorMap& map, double from, double to)
{
    if (from > to)
        return;
    QRgb colour = map.rgb(m_interval, from);
    if (colour != m_colours.back())
        addStep(from, colour);
    const QRgb last = map.rgb(m_interval, to);
    while (colour != last) {
        from = firstOther(map, m_interval, colour, from, to);
        colour = map.rgb(m_interval, from);
        addStep(from, colour);
    }
}

void ColourLookup::addStep(double start, QRgb colour)
{
    m_starts.push_back(start);
    m_colours.push_back(colour);
}

// A step that starts in an earlier bucket starts below every value of this one, because bucket() never falls.
void ColourLookup::fillBuckets()
{
    m_firstStep.resize(bucketCount);
    std::size_t step = 0;
    for (int i = 0; i < bucketCount; ++i) {
        while (step + 1 < m_colours.size() && bucket(m_starts[step + 1]) < i)
            ++step;
        m_firstStep[static_cast<std::size_t>(i)] = static_cast<quint16>(step);
    }
}
