#include "viewer/core/PlaybackWav.h"

#include "dsp/FreshMemory.h"
#include "viewer/core/FullScale.h"
#include "viewer/core/SampleKernels.h"
#include "viewer/core/SampleRange.h"

#include <QDataStream>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr int headerBytes = 44;
constexpr int bytesPerSample = 2;
constexpr double playedFullScale = 32767.0;
constexpr double playedPeak = 0.8;
constexpr double displayHeadroom = 1.1;
// What a QByteArray can hold besides the header.
constexpr std::size_t mostSamples = (std::numeric_limits<int>::max() - 4096) / bytesPerSample;

template <std::size_t size>
int listed(const std::array<int, size>& list, int index)
{
    return index >= 0 && index < static_cast<int>(size) ? list[static_cast<std::size_t>(index)] : list[0];
}

/// The shown range in indices of the decimated samples; an even number of them.
SampleRange decimatedRange(const PlaybackWav::Source& source, double start, double end, int factor)
{
    const std::size_t count = source.samples != nullptr ? source.samples->size() : 0;
    const int decimatedRate = source.sampleRate / factor;
    const std::size_t decimatedCount = (count + factor - 1) / factor;
    SampleRange range = SampleRange::between(start, end, decimatedRate, decimatedCount);
    const std::size_t even = std::min(range.count(), mostSamples) / 2 * 2;
    range.end = range.first + even;
    return range;
}

/// From a sample value of the recording to one of the WAV.
double playbackGain(const PlaybackWav::Source& source)
{
    const double gain = playedPeak / (source.displayPeak / displayHeadroom) *
                        (playedFullScale / fullScale(source.bitsPerSample));
    // Silence has no peak and stays silence.
    return source.displayPeak > 0 && std::isfinite(gain) ? gain : 0.0;
}

QByteArray header(quint32 declaredRate, int channels, quint32 dataBytes)
{
    const int blockAlign = bytesPerSample * channels;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    const auto text = [&stream](const char* tag) {
        stream.writeRawData(tag, static_cast<int>(std::strlen(tag)));
    };
    text("RIFF");
    stream << static_cast<quint32>(headerBytes - 8 + dataBytes);
    text("WAVEfmt ");
    stream << quint32(16) << quint16(1) << static_cast<quint16>(channels);
    stream << declaredRate << static_cast<quint32>(declaredRate * blockAlign);
    stream << static_cast<quint16>(blockAlign) << static_cast<quint16>(bytesPerSample * 8);
    text("data");
    stream << dataBytes;
    return bytes;
}

} // namespace

int PlaybackWav::factorAt(int index)
{
    return listed(factors, index);
}

int PlaybackWav::ratePerMilleAt(int index)
{
    return listed(ratesPerMille, index);
}

PlaybackWav PlaybackWav::make(const Source& source, double startSeconds, double endSeconds, int factorIndex,
                              int rateIndex)
{
    const int factor = factorAt(factorIndex);
    const int decimatedRate = std::max(source.sampleRate, 0) / factor;
    const SampleRange range = decimatedRange(source, startSeconds, endSeconds, factor);
    const double rate = ratePerMilleAt(rateIndex) / 1000.0;

    PlaybackWav wav;
    const int dataBytes = static_cast<int>(range.count()) * bytesPerSample;
    wav.bytes = QByteArray(headerBytes + dataBytes, Qt::Uninitialized);
    preferLargePages(wav.bytes.data(), static_cast<std::size_t>(wav.bytes.size()));
    const QByteArray head =
        header(static_cast<quint32>(decimatedRate * rate), source.channels, static_cast<quint32>(dataBytes));
    std::copy(head.cbegin(), head.cend(), wav.bytes.begin());
    if (range.count() == 0)
        return wav;

    SampleKernels::toSixteenBits(source.samples->data() + range.first * factor, factor, range.count(),
                                 playbackGain(source),
                                 reinterpret_cast<qint16*>(wav.bytes.data() + headerBytes));
    wav.durationMs = static_cast<double>(range.count()) * 1000.0 / decimatedRate;
    return wav;
}
