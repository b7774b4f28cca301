#include "tests/support/DetectionResult.h"

#include <array>
#include <cstring>

namespace {

std::array<double, 14> numbers(const MyBatCall& call)
{
    return {call.startFreq,
            call.endFreq,
            call.maxFreq,
            call.minFreq,
            call.centroid,
            call.duration,
            double(call.switchCount),
            double(call.zeroCount),
            double(call.posHist),
            double(call.negHist),
            call.rectangle.x(),
            call.rectangle.y(),
            call.rectangle.width(),
            call.rectangle.height()};
}

} // namespace

bool sameBlob(const Blob& a, const Blob& b)
{
    return a.pixelCount == b.pixelCount && a.firstFrame == b.firstFrame && a.lastFrame == b.lastFrame &&
           a.lowestBin == b.lowestBin && a.highestBin == b.highestBin && a.score == b.score;
}

QString difference(const DetectionResult& a, const DetectionResult& b)
{
    if (a.blobs.size() != b.blobs.size())
        return QStringLiteral("%1 regions against %2").arg(a.blobs.size()).arg(b.blobs.size());
    for (const auto& [label, blob] : a.blobs) {
        const auto other = b.blobs.find(label);
        if (other == b.blobs.end() || !sameBlob(blob, other->second))
            return QStringLiteral("region %1").arg(label);
    }
    if (a.classes != b.classes)
        return a.classes.join(QLatin1Char(' ')) + QStringLiteral(" against ") +
               b.classes.join(QLatin1Char(' '));
    if (a.calls.size() != b.calls.size())
        return QStringLiteral("%1 calls against %2").arg(a.calls.size()).arg(b.calls.size());
    for (int i = 0; i < a.calls.size(); ++i) {
        if (numbers(a.calls[i]) != numbers(b.calls[i]) || a.calls[i].classText != b.calls[i].classText)
            return QStringLiteral("call %1").arg(i);
    }
    return {};
}

quint64 digest(const AmplitudeImage& image)
{
    quint64 sum = 0;
    for (int frame = 0; frame < image.frames(); ++frame) {
        const float* row = image.row(frame);
        for (int bin = 0; bin < image.bins(); ++bin) {
            quint32 bits = 0;
            std::memcpy(&bits, row + bin, sizeof bits);
            sum = (sum ^ bits) * 0x9e3779b97f4a7c15U;
        }
    }
    return sum;
}
