#include "tools/WavBytes.h"

#include <QtEndian>

namespace {

template <typename T>
void appendNumber(QByteArray& bytes, T value)
{
    char stored[sizeof(T)];
    qToLittleEndian(value, stored);
    bytes.append(stored, sizeof(T));
}

void appendText(QByteArray& bytes, const QByteArray& text, int width)
{
    bytes.append(text.left(width));
    bytes.append(qMax(0, width - text.size()), '\0');
}

} // namespace

WavBytes::Bext WavBytes::Bext::ofRecorder(const QByteArray& description)
{
    return {description, "a recorder", "reference", "2024-05-01", "22:10:30", "A=PCM"};
}

WavBytes::Time WavBytes::Time::ofRecorder()
{
    return {"one\xE9", -5, "03/14/24", "18:10:00", "two", 7, "03/15/24", "18:11:39", "the tail"};
}

WavBytes& WavBytes::fmt(std::uint32_t sampleRate, std::uint16_t bitsPerSample, std::uint16_t channels)
{
    Format format;
    format.sampleRate = sampleRate;
    format.bitsPerSample = bitsPerSample;
    format.channels = channels;
    return fmt(format);
}

WavBytes& WavBytes::fmt(const Format& format)
{
    return chunk("fmt ", fmtPayload(format));
}

WavBytes& WavBytes::data(const std::vector<std::int16_t>& samples)
{
    QByteArray stored(static_cast<int>(samples.size() * sizeof(std::int16_t)), Qt::Uninitialized);
    qToLittleEndian<std::int16_t>(samples.data(), static_cast<qsizetype>(samples.size()), stored.data());
    return dataBytes(stored);
}

WavBytes& WavBytes::dataBytes(const QByteArray& rawSamples)
{
    return chunk("data", rawSamples);
}

WavBytes& WavBytes::bext(const Bext& fields)
{
    return chunk("bext", bextPayload(fields));
}

WavBytes& WavBytes::time(const Time& fields)
{
    return chunk("TIME", timePayload(fields));
}

WavBytes& WavBytes::wamd(const QByteArray& date, const QByteArray& timeOfDay, const QByteArray& tail)
{
    return chunk("wamd", wamdPayload(date, timeOfDay, tail));
}

WavBytes& WavBytes::spl(const QByteArray& text)
{
    return chunk("SPL ", text);
}

WavBytes& WavBytes::chunk(const QByteArray& id, const QByteArray& payload)
{
    return chunkClaiming(id, static_cast<std::uint32_t>(payload.size()), payload);
}

WavBytes& WavBytes::chunkClaiming(const QByteArray& id, std::uint32_t claimedSize, const QByteArray& payload)
{
    appendText(m_chunks, id, 4);
    appendNumber(m_chunks, claimedSize);
    return raw(payload);
}

WavBytes& WavBytes::raw(const QByteArray& rubbish)
{
    m_chunks.append(rubbish);
    return *this;
}

WavBytes& WavBytes::riffSize(std::uint32_t size)
{
    m_riffSize = size;
    return *this;
}

WavBytes& WavBytes::tags(const QByteArray& riff, const QByteArray& wave)
{
    m_riffTag = riff;
    m_waveTag = wave;
    return *this;
}

QByteArray WavBytes::bytes() const
{
    QByteArray file;
    file.reserve(12 + m_chunks.size());
    appendText(file, m_riffTag, 4);
    appendNumber(file, static_cast<std::uint32_t>(m_riffSize >= 0 ? m_riffSize : 4 + m_chunks.size()));
    appendText(file, m_waveTag, 4);
    return file.append(m_chunks);
}

QByteArray WavBytes::fmtPayload(const Format& format)
{
    const int frameBytes =
        format.blockAlign >= 0 ? format.blockAlign : format.channels * format.bitsPerSample / 8;
    const std::int64_t rate = format.bytesPerSecond >= 0
                                  ? format.bytesPerSecond
                                  : static_cast<std::int64_t>(format.sampleRate) * frameBytes;
    QByteArray payload;
    appendNumber(payload, format.compressionCode);
    appendNumber(payload, format.channels);
    appendNumber(payload, format.sampleRate);
    appendNumber(payload, static_cast<std::uint32_t>(rate));
    appendNumber(payload, static_cast<std::uint16_t>(frameBytes));
    appendNumber(payload, format.bitsPerSample);
    return payload.append(format.extension);
}

QByteArray WavBytes::bextPayload(const Bext& fields)
{
    QByteArray payload;
    appendText(payload, fields.description, 256);
    appendText(payload, fields.originator, 32);
    appendText(payload, fields.originatorReference, 32);
    appendText(payload, fields.originationDate, 10);
    appendText(payload, fields.originationTime, 8);
    payload.append(264, '\0'); // time reference, version, UMID, loudness, reserved
    return payload.append(fields.codingHistory);
}

QByteArray WavBytes::timePayload(const Time& fields)
{
    QByteArray payload;
    appendText(payload, fields.char1, 4);
    appendNumber(payload, fields.number1);
    appendText(payload, fields.recDate, 8);
    appendText(payload, QByteArray(), 1);
    appendText(payload, fields.date, 8);
    appendText(payload, QByteArray(), 3);
    appendText(payload, fields.char2, 4);
    appendNumber(payload, fields.number2);
    appendText(payload, fields.secDate, 8);
    appendText(payload, QByteArray(), 1);
    appendText(payload, fields.secTime, 8);
    appendText(payload, QByteArray(), 3);
    return payload.append(fields.char3);
}

QByteArray WavBytes::wamdPayload(const QByteArray& date, const QByteArray& timeOfDay, const QByteArray& tail)
{
    QByteArray payload(67, 'x');
    appendText(payload, date, 10);
    payload.append('\0');
    appendText(payload, timeOfDay, 8);
    return payload.append(tail);
}
