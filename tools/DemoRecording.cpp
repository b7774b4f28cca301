#include "tools/DemoRecording.h"

#include "tools/Soundscape.h"
#include "tools/WavBytes.h"

#include <QLocale>

#include <cmath>

namespace {

constexpr double noiseFloor = -65.0; // dB of full scale

QString formatted(const QDateTime& time, const char* format)
{
    return QLocale::c().toString(time, QString::fromLatin1(format));
}

QByteArray rawBytes(const std::vector<std::int16_t>& samples)
{
    QByteArray bytes(static_cast<int>(samples.size() * 2), Qt::Uninitialized);
    char* next = bytes.data();
    for (const std::int16_t sample : samples) {
        const auto bits = static_cast<std::uint16_t>(sample);
        *next++ = static_cast<char>(bits & 0xffU);
        *next++ = static_cast<char>(bits >> 8);
    }
    return bytes;
}

} // namespace

QString DemoRecording::fileName() const
{
    return formatted(start, "yyyyMMdd_HHmmss") + QLatin1String(container == Container::Raw ? ".raw" : ".wav");
}

QByteArray DemoRecording::resultLine() const
{
    if (analysis.isEmpty())
        return {};
    const QList<QByteArray> begin{fileName().toUtf8(), formatted(start, "yyyy-MM-dd HH:mm:ss").toUtf8()};
    return (begin + analysis).join('\t') + "\r\n";
}

std::vector<std::int16_t> DemoRecording::samples() const
{
    Soundscape soundscape(sampleRate, length, seed);
    soundscape.addNoiseFloor(noiseFloor);
    scene(soundscape);
    return soundscape.toPcm();
}

QByteArray DemoRecording::bytes() const
{
    return fileOf(samples());
}

std::int64_t DemoRecording::size() const
{
    const std::vector<std::int16_t> oneSample(1);
    return fileOf(oneSample).size() + 2 * (static_cast<std::int64_t>(std::lround(length * sampleRate)) - 1);
}

QByteArray DemoRecording::fileOf(const std::vector<std::int16_t>& samples) const
{
    if (container == Container::Raw) {
        return rawBytes(samples);
    }
    WavBytes wav;
    wav.fmt(static_cast<std::uint32_t>(sampleRate));
    if (container == Container::Wav) {
        WavBytes::Bext bext;
        bext.description = classRecord;
        bext.originator = "Sonavia demo";
        bext.originationDate = formatted(start, "yyyy-MM-dd").toLatin1();
        bext.originationTime = formatted(start, "HH:mm:ss").toLatin1();
        bext.codingHistory = "A=PCM,F=" + QByteArray::number(sampleRate) + ",W=16,M=mono,T=Sonavia demo\r\n";
        bext.codingHistory.append(QByteArray(256 - bext.codingHistory.size(), '\0'));
        wav.bext(bext);
    }
    return wav.data(samples).bytes();
}
