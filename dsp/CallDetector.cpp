#include "dsp/CallDetector.h"

#include "dsp/AmplitudeImage.h"
#include "dsp/CallFeatures.h"
#include "dsp/ClassProposal.h"
#include "dsp/ImageConditioning.h"
#include "dsp/RegionLabelling.h"
#include "dsp/RegionSelection.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::size_t mostCells = std::size_t{1} << 32; // of the region labels

/// What turns frames and bins into seconds and kilohertz.
struct Scale
{
    double overlap; // percent
    double windowSize;
    double sampleRate; // Hz
    double kiloHertzPerBin;

    double seconds(int frames) const { return frames * ((100 - overlap) / 100) * windowSize / sampleRate; }
};

/// Conditions the image and labels what is left, each block of rows while it is in the cache.
void labelRegions(AmplitudeImage& image, int sampleRate, RegionLabelling& labelling)
{
    ImageConditioning conditioning(image.bins(), sampleRate);
    const std::size_t words = conditioning.words();
    std::vector<std::uint64_t> nonZero(words * ImageConditioning::mostRows);
    for (int frame = 0; frame < image.frames(); frame += ImageConditioning::mostRows) {
        const int rows = std::min(ImageConditioning::mostRows, image.frames() - frame);
        conditioning.condition(image.row(frame), rows, nonZero.data());
        for (int i = 0; i < rows; ++i) {
            float* row = image.row(frame + i);
            std::uint64_t* bits = nonZero.data() + i * words;
            // The border of the image belongs to no region. At its low and high end nothing is left anyway.
            if (frame + i == 0 || frame + i == image.frames() - 1) {
                std::fill_n(row, image.bins(), 0.0F);
                std::fill_n(bits, words, 0);
            }
            labelling.addRow(row, bits, words);
        }
    }
}

/// 20 regions per started second of the recording, those with the largest scores.
std::vector<int> strongestRegions(const std::vector<float>& scores, int sampleRate, int sampleSize)
{
    // There are regions only at 2 kHz and more, so this neither divides by zero nor overflows.
    const int seconds = sampleSize / sampleRate;
    const int limit = static_cast<int>((static_cast<double>(static_cast<float>(seconds)) + 1.0) * 20.0);
    RegionSelection selection(std::min(static_cast<std::size_t>(std::max(limit, 0)), scores.size()));
    for (std::size_t i = 0; i < scores.size(); ++i)
        selection.offer(scores[i], static_cast<int>(i) + 1);
    return selection.labels();
}

MyBatCall measureCall(const AmplitudeImage& image, const RegionLabelling::Region& region, const Scale& scale)
{
    const Blob& blob = region.blob;
    const CallFeatures features = measureFeatures(image, region.runs);
    MyBatCall call;
    call.duration = scale.seconds(blob.lastFrame - blob.firstFrame + 1);
    call.centroid = features.centroid * scale.kiloHertzPerBin;
    call.maxFreq = features.maxFreq * scale.kiloHertzPerBin;
    call.minFreq = features.minFreq * scale.kiloHertzPerBin;
    call.startFreq = features.startFreq * scale.kiloHertzPerBin;
    call.endFreq = features.endFreq * scale.kiloHertzPerBin;
    call.switchCount = features.switchCount;
    call.zeroCount = features.zeroCount;
    call.posHist = features.posHist;
    call.negHist = features.negHist;

    const QStringList proposal = classify(call.duration, call.startFreq, call.endFreq);
    if (isNoise(proposal, features, call.minFreq < 8.0)) {
        MyBatCall noise;
        noise.classText = QStringLiteral("Noise");
        return noise;
    }
    call.classText = classText(proposal);
    const double left = scale.seconds(blob.firstFrame);
    const double bottom = blob.lowestBin * scale.kiloHertzPerBin;
    call.rectangle = QRectF(left, bottom, scale.seconds(blob.lastFrame + 1) - left,
                            (blob.highestBin + 1) * scale.kiloHertzPerBin - bottom);
    return call;
}

} // namespace

void CallDetector::detect(AmplitudeImage& image, float overlap, int sampleRate, int sampleSize,
                          std::unordered_map<int, Blob>& blobs, QStringList& classes, QList<MyBatCall>& calls)
{
    blobs.clear();
    classes.clear();
    calls.clear();
    if (image.isNull() || image.cells() == 0 || image.cells() > mostCells)
        return;

    RegionLabelling labelling;
    labelRegions(image, sampleRate, labelling);
    const std::vector<float> scores = labelling.finish();
    if (scores.empty())
        return;

    const auto percent = static_cast<double>(overlap);
    const double kiloHertzPerBin = sampleRate / 2000.0 / image.bins();
    const Scale scale{percent, 2.0 * (image.bins() + 1), static_cast<double>(sampleRate), kiloHertzPerBin};
    // More overlap packs more frames into the same time.
    const double mostSpecks = 0.9 / (4.0 - percent * 0.04) * 40.0;
    for (const auto& region : labelling.regions(strongestRegions(scores, sampleRate, sampleSize))) {
        if (static_cast<double>(region.blob.pixelCount) <= mostSpecks)
            continue;
        const MyBatCall call = measureCall(image, region, scale);
        blobs.emplace(region.label, region.blob);
        classes << call.classText;
        calls << call;
    }
}
