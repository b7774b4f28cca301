#include "tests/support/PlainDetector.h"

#include "dsp/CallFeatures.h"
#include "dsp/ClassProposal.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <utility>

namespace {

constexpr double negligible = static_cast<double>(FLT_EPSILON);

void smoothFrequencies(float* row, int bins)
{
    const std::vector<float> t(row, row + bins);
    for (int bin = 1; bin <= bins - 2; ++bin)
        row[bin] = t[bin - 1] + 2 * t[bin] + t[bin + 1];
}

void removeBackground(float* row, int bins)
{
    float mean = 0;
    for (int bin = 0; bin < bins; ++bin) {
        const float x = row[bin];
        const float d = x - 1.5F * mean;
        row[bin] = (std::abs(d) + d) / 2;
        mean += (x - mean) / static_cast<float>(bin + 1);
    }
}

/// `peaks` are those of the frames before.
void suppressEchoes(float* row, int bins, std::vector<float>& peaks)
{
    for (int bin = 0; bin < bins; ++bin) {
        const float x = row[bin];
        peaks[bin] = std::max(x, 0.9F * peaks[bin] + (1 - 0.9F) * x);
        if (2 * x < peaks[bin])
            row[bin] = 0;
    }
}

void clearEdges(AmplitudeImage& image, int sampleRate)
{
    const int bins = image.bins();
    const int nyquist = sampleRate / 2000;
    const int low = nyquist == 0 ? bins : static_cast<int>(std::min<long long>(bins, bins * 8LL / nyquist));
    for (int frame = 0; frame < image.frames(); ++frame) {
        const bool border = frame == 0 || frame == image.frames() - 1;
        for (int bin = 0; bin < bins; ++bin) {
            if (border || bin < 3 || bin >= bins - 3 || bin < low)
                image.row(frame)[bin] = 0;
        }
    }
}

/// Sub-image of one region, each value replaced by log10(20 v + 1), one row per frame.
std::vector<std::vector<double>> cutOut(const AmplitudeImage& image, const std::vector<int>& labels,
                                        int label, const Blob& blob)
{
    std::vector<std::vector<double>> rows;
    for (int frame = blob.firstFrame; frame <= blob.lastFrame; ++frame) {
        rows.emplace_back(image.bins(), 0.0);
        for (int bin = 0; bin < image.bins(); ++bin) {
            if (labels[std::size_t(frame) * image.bins() + bin] == label)
                rows.back()[bin] = double(float(std::log10(20.0 * double(image.row(frame)[bin]) + 1.0)));
        }
    }
    return rows;
}

void walkSpectrum(const std::vector<double>& acc, CallFeatures& features)
{
    const int bins = static_cast<int>(acc.size());
    double sum = 0;
    double moment = 0;
    for (int bin = 1; bin <= bins - 2; ++bin) {
        sum += acc[bin];
        moment += bin * acc[bin];
    }
    features.centroid = moment / sum;
    int up = 0;
    const int start = static_cast<int>(std::floor(features.centroid));
    for (int bin = start; bin <= bins - 2 && acc[bin] != 0; ++bin)
        ++up;
    int down = 0;
    for (int bin = start; bin >= 1; --bin) {
        ++down;
        if (acc[bin] == 0)
            break;
    }
    features.maxFreq = features.centroid + up;
    features.minFreq = features.centroid - down;
}

void countJumps(std::vector<double> hist, int bins, CallFeatures& features)
{
    features.switchCount = -1;
    for (int i = 0; i < 2 * bins; ++i) {
        if (i >= 1 && hist[i - 1] == 0 && hist[i] != 0)
            ++features.switchCount;
        if (i < bins && hist[i] != 0)
            ++features.negHist;
        if (i > bins && hist[i] != 0)
            ++features.posHist;
    }
    while (!hist.empty() && hist.back() <= negligible)
        hist.pop_back();
    while (!hist.empty() && hist.front() <= negligible)
        hist.erase(hist.begin());
    for (const double weight : hist)
        features.zeroCount += weight < negligible ? 1 : 0;
}

CallFeatures measure(const std::vector<std::vector<double>>& rows, int bins)
{
    CallFeatures features;
    std::vector<double> acc(bins, 0.0);
    std::vector<double> hist(2 * std::size_t(bins), 0.0);
    long previous = 0;
    for (const auto& v : rows) {
        double s = 0;
        double x = 0;
        for (int bin = 0; bin < bins; ++bin) {
            s += v[bin];
            x += bin * v[bin];
        }
        if (s <= negligible) {
            previous = 0;
            continue;
        }
        const double c = x / s;
        if (!features.measured)
            features.startFreq = c;
        features.measured = true;
        features.endFreq = c;
        for (int bin = 1; bin <= bins - 2; ++bin)
            acc[bin] += v[bin];
        const long ci = std::lround(c);
        if (ci > 0 && previous > 0)
            hist[ci - previous + bins] += v[ci];
        previous = ci;
    }
    if (features.measured) {
        walkSpectrum(acc, features);
        countJumps(hist, bins, features);
    }
    return features;
}

/// The labels of as many regions as the recording may have, by ascending label.
std::vector<int> strongest(const std::vector<Blob>& regions, int sampleRate, int sampleSize)
{
    std::vector<int> order;
    for (int i = 1; i <= static_cast<int>(regions.size()); ++i)
        order.push_back(i);
    std::sort(order.begin(), order.end(), [&](int a, int b) {
        const float scoreA = regions[a - 1].score;
        const float scoreB = regions[b - 1].score;
        return scoreA != scoreB ? scoreA > scoreB : a > b;
    });
    const int seconds = sampleSize / sampleRate;
    const int limit = static_cast<int>((double(float(seconds)) + 1.0) * 20.0);
    order.resize(std::min(order.size(), std::size_t(limit)));
    std::sort(order.begin(), order.end());
    return order;
}

} // namespace

void PlainDetector::condition(AmplitudeImage& image, int sampleRate)
{
    std::vector<float> peaks(image.bins(), 0.0F);
    for (int frame = 0; frame < image.frames(); ++frame) {
        smoothFrequencies(image.row(frame), image.bins());
        removeBackground(image.row(frame), image.bins());
        suppressEchoes(image.row(frame), image.bins(), peaks);
    }
    clearEdges(image, sampleRate);
}

std::vector<int> PlainDetector::label(const AmplitudeImage& image, int* regionCount)
{
    const int bins = image.bins();
    std::vector<int> labels(image.cells(), 0);
    std::vector<std::pair<int, int>> open;
    int count = 0;
    const auto visit = [&](int frame, int bin) {
        const std::size_t cell = std::size_t(frame) * bins + bin;
        if (labels[cell] != 0 || image.row(frame)[bin] == 0)
            return;
        labels[cell] = count;
        open.emplace_back(frame, bin);
    };
    for (int frame = 0; frame < image.frames(); ++frame) {
        for (int bin = 0; bin < bins; ++bin) {
            if (image.row(frame)[bin] == 0 || labels[std::size_t(frame) * bins + bin] != 0)
                continue;
            ++count;
            visit(frame, bin);
            while (!open.empty()) {
                const auto [atFrame, atBin] = open.back();
                open.pop_back();
                for (int f = std::max(atFrame - 1, 0); f <= std::min(atFrame + 1, image.frames() - 1); ++f) {
                    for (int b = std::max(atBin - 1, 0); b <= std::min(atBin + 1, bins - 1); ++b)
                        visit(f, b);
                }
            }
        }
    }
    *regionCount = count;
    return labels;
}

std::vector<Blob> PlainDetector::measureRegions(const AmplitudeImage& image, const std::vector<int>& labels,
                                                int regionCount)
{
    std::vector<Blob> blobs(regionCount);
    std::vector<double> scores(regionCount, 0.0);
    const int bins = image.bins();
    for (int frame = 0; frame < image.frames(); ++frame) {
        const float* row = image.row(frame);
        const int* rowLabels = labels.data() + std::size_t(frame) * bins;
        double run = 0;
        for (int bin = 0; bin < bins; ++bin) {
            if (rowLabels[bin] == 0)
                continue;
            Blob& blob = blobs[rowLabels[bin] - 1];
            if (blob.pixelCount == 0)
                blob = {0, frame, frame, bin, bin, 0};
            ++blob.pixelCount;
            blob.lastFrame = frame;
            blob.lowestBin = std::min(blob.lowestBin, bin);
            blob.highestBin = std::max(blob.highestBin, bin);
            run += static_cast<double>(row[bin]);
            if (bin == bins - 1 || rowLabels[bin + 1] == 0) {
                scores[rowLabels[bin] - 1] += run;
                run = 0;
            }
        }
    }
    for (int i = 0; i < regionCount; ++i)
        blobs[i].score = static_cast<float>(scores[i]);
    return blobs;
}

void PlainDetector::detect(AmplitudeImage& image, float overlap, int sampleRate, int sampleSize,
                           std::unordered_map<int, Blob>& blobs, QStringList& classes,
                           QList<MyBatCall>& calls)
{
    blobs.clear();
    classes.clear();
    calls.clear();
    condition(image, sampleRate);
    int regionCount = 0;
    const std::vector<int> labels = label(image, &regionCount);
    if (regionCount == 0)
        return;
    const std::vector<Blob> regions = measureRegions(image, labels, regionCount);

    const double o = static_cast<double>(overlap);
    const double windowSize = 2.0 * (image.bins() + 1);
    const double kiloHertzPerBin = sampleRate / 2000.0 / image.bins();
    for (const int label : strongest(regions, sampleRate, sampleSize)) {
        const Blob& blob = regions[label - 1];
        if (double(blob.pixelCount) <= 0.9 / (4.0 - o * 0.04) * 40.0)
            continue;
        blobs[label] = blob;
        const double duration =
            (blob.lastFrame - blob.firstFrame + 1) * ((100 - o) / 100) * windowSize / sampleRate;
        const CallFeatures f = measure(cutOut(image, labels, label, blob), image.bins());
        const double start = f.startFreq * kiloHertzPerBin;
        const double end = f.endFreq * kiloHertzPerBin;
        const double lowest = f.minFreq * kiloHertzPerBin;
        const QStringList proposal = classify(duration, start, end);
        MyBatCall call;
        call.classText = QStringLiteral("Noise");
        if (!isNoise(proposal, f, lowest < 8.0)) {
            const double left = blob.firstFrame * ((100 - o) / 100) * windowSize / sampleRate;
            const double right = (blob.lastFrame + 1) * ((100 - o) / 100) * windowSize / sampleRate;
            const double bottom = blob.lowestBin * kiloHertzPerBin;
            const double top = (blob.highestBin + 1) * kiloHertzPerBin;
            call = {start,
                    end,
                    f.maxFreq * kiloHertzPerBin,
                    lowest,
                    f.centroid * kiloHertzPerBin,
                    f.switchCount,
                    f.zeroCount,
                    f.posHist,
                    f.negHist,
                    duration,
                    classText(proposal),
                    QRectF(left, bottom, right - left, top - bottom)};
        }
        classes << call.classText;
        calls << call;
    }
}
