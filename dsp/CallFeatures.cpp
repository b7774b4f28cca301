#include "dsp/CallFeatures.h"

#include "dsp/AmplitudeImage.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>

namespace {

constexpr double negligible = static_cast<double>(FLT_EPSILON);

/// Goes through a region frame by frame and gathers the spectrum and the jumps of the centroid.
class RegionMeasure
{
public:
    explicit RegionMeasure(const AmplitudeImage& image)
        : m_image(image),
          m_weights(image.bins()),
          m_spectrum(image.bins(), 0.0),
          m_jumps(2 * m_spectrum.size(), 0.0)
    {}

    using RunIterator = std::vector<RegionLabelling::Run>::const_iterator;
    void addFrame(RunIterator begin, RunIterator end);
    CallFeatures features() const;

private:
    void addJump(double centroid, RunIterator begin, RunIterator end);
    void measureSpectrum(CallFeatures& features) const;
    void measureJumps(CallFeatures& features) const;

    const AmplitudeImage& m_image;
    std::vector<double> m_weights; ///< of the frame at hand; valid where the region is
    std::vector<double> m_spectrum;
    std::vector<double> m_jumps; ///< weight by jump size + bins
    bool m_counted = false;
    long m_previous = 0; ///< rounded centroid of the frame before, 0 when that did not count
    double m_startFreq = 0;
    double m_endFreq = 0;
};

void RegionMeasure::addFrame(RunIterator begin, RunIterator end)
{
    const float* row = m_image.row(begin->frame);
    double sum = 0;
    double moment = 0;
    for (auto run = begin; run != end; ++run) {
        for (int bin = run->firstBin; bin <= run->lastBin; ++bin) {
            const auto weight = static_cast<float>(std::log10(20.0 * static_cast<double>(row[bin]) + 1.0));
            m_weights[bin] = static_cast<double>(weight);
            sum += m_weights[bin];
            moment += bin * m_weights[bin];
        }
    }
    // An amplitude beyond all numbers must not become an index.
    if (!(sum > negligible) || !std::isfinite(moment)) {
        m_previous = 0;
        return;
    }
    const double centroid = moment / sum;
    if (!m_counted)
        m_startFreq = centroid;
    m_endFreq = centroid;
    m_counted = true;
    const int lastBin = m_image.bins() - 1;
    for (auto run = begin; run != end; ++run) {
        for (int bin = std::max(run->firstBin, 1); bin <= std::min(run->lastBin, lastBin - 1); ++bin)
            m_spectrum[bin] += m_weights[bin];
    }
    addJump(centroid, begin, end);
}

void RegionMeasure::addJump(double centroid, RunIterator begin, RunIterator end)
{
    const long rounded = std::lround(centroid);
    if (rounded > 0 && m_previous > 0) {
        const bool inside = std::any_of(begin, end, [rounded](const RegionLabelling::Run& run) {
            return run.firstBin <= rounded && rounded <= run.lastBin;
        });
        if (inside)
            m_jumps[rounded - m_previous + m_image.bins()] += m_weights[rounded];
    }
    m_previous = rounded;
}

CallFeatures RegionMeasure::features() const
{
    CallFeatures features;
    if (!m_counted)
        return features;
    features.measured = true;
    features.startFreq = m_startFreq;
    features.endFreq = m_endFreq;
    measureSpectrum(features);
    measureJumps(features);
    return features;
}

void RegionMeasure::measureSpectrum(CallFeatures& features) const
{
    const int last = m_image.bins() - 2;
    double sum = 0;
    double moment = 0;
    for (int bin = 1; bin <= last; ++bin) {
        sum += m_spectrum[bin];
        moment += bin * m_spectrum[bin];
    }
    features.centroid = sum > 0 ? moment / sum : 0;
    const int start = static_cast<int>(features.centroid);

    int above = 0;
    for (int bin = start; bin <= last && m_spectrum[bin] != 0; ++bin)
        ++above;
    features.maxFreq = features.centroid + above;

    // Downwards the gap that ends the walk is counted too, upwards it is not.
    int below = 0;
    for (int bin = start; bin >= 1; --bin) {
        ++below;
        if (m_spectrum[bin] == 0)
            break;
    }
    features.minFreq = features.centroid - below;
}

void RegionMeasure::measureJumps(CallFeatures& features) const
{
    const auto none = m_jumps.begin() + m_image.bins();
    const auto isJump = [](double weight) { return weight != 0; };
    features.negHist = static_cast<int>(std::count_if(m_jumps.begin(), none, isJump));
    features.posHist = static_cast<int>(std::count_if(none + 1, m_jumps.end(), isJump));

    features.switchCount = -1;
    for (std::size_t i = 1; i < m_jumps.size(); ++i) {
        if (m_jumps[i - 1] == 0 && m_jumps[i] != 0)
            ++features.switchCount;
    }

    const auto matters = [](double weight) { return weight > negligible; };
    const auto first = std::find_if(m_jumps.begin(), m_jumps.end(), matters);
    const auto last = std::find_if(m_jumps.rbegin(), std::make_reverse_iterator(first), matters).base();
    features.zeroCount =
        static_cast<int>(std::count_if(first, last, [](double weight) { return weight < negligible; }));
}

} // namespace

CallFeatures measureFeatures(const AmplitudeImage& image, const std::vector<RegionLabelling::Run>& runs)
{
    RegionMeasure measure(image);
    for (auto begin = runs.begin(); begin != runs.end();) {
        const auto end = std::find_if(begin, runs.end(), [begin](const RegionLabelling::Run& run) {
            return run.frame != begin->frame;
        });
        measure.addFrame(begin, end);
        begin = end;
    }
    return measure.features();
}
