#include "recordings/RecordingFile.h"

#include "recordings/ShortDate.h"

#include <QDateTime>
#include <QFileInfo>

#include <limits>

namespace {

int clampedToInt(quint32 number)
{
    return static_cast<int>(qMin<quint32>(number, std::numeric_limits<int>::max()));
}

} // namespace

RecordingFile::Kind RecordingFile::kindOf(const QString& path)
{
    if (path.endsWith(QLatin1String(".wav"), Qt::CaseInsensitive))
        return Kind::Wav;
    if (path.endsWith(QLatin1String(".raw"), Qt::CaseInsensitive))
        return Kind::Raw;
    return Kind::Unsupported;
}

void RecordingFile::load(const QString& path, bool headerOnly)
{
    m_wavReader.clear();
    m_rawReader.clear();
    m_sampleSize = m_bitsPerSample = m_sampleRate = 0;
    m_date.clear();
    m_time.clear();
    m_kind = kindOf(path);
    if (m_kind == Kind::Wav)
        loadWav(path, headerOnly);
    else if (m_kind == Kind::Raw)
        loadRaw(path, headerOnly);
    else
        m_errorText = QStringLiteral("File format not supported");
}

void RecordingFile::loadWav(const QString& path, bool headerOnly)
{
    WavReader& wav = m_wavReader;
    wav.load(path, headerOnly);
    m_sampleSize = headerOnly ? clampedToInt(wav.frameCount()) : static_cast<int>(wav.samples.size());
    m_bitsPerSample = clampedToInt(wav.bitsPerSample);
    m_sampleRate = clampedToInt(wav.sampleRate);
    m_date = wav.timeRecDate.isEmpty() ? shortDateFromIso(wav.wamdDate) : wav.timeRecDate;
    m_time = wav.timeDate.isEmpty() ? wav.wamdTime : wav.timeDate;
    m_errorText = wav.errorText;
}

void RecordingFile::loadRaw(const QString& path, bool headerOnly)
{
    m_rawReader.load(path, headerOnly);
    m_sampleSize = clampedToInt(m_rawReader.fileSize / m_rawReader.bytesPerSample);
    m_bitsPerSample = RawReader::bitsPerSample;
    m_sampleRate = RawReader::sampleRate;
    const QDateTime modified = QFileInfo(path).lastModified();
    m_date = modified.toString(QStringLiteral("dd/MM/yy"));
    m_time = modified.toString(QStringLiteral("hh:mm:ss"));
    m_errorText = m_rawReader.errorText;
}

const std::vector<int>& RecordingFile::samples() const
{
    return m_kind == Kind::Raw ? m_rawReader.samples : m_wavReader.samples;
}

std::vector<int> RecordingFile::takeSamples()
{
    std::vector<int>& samples = m_kind == Kind::Raw ? m_rawReader.samples : m_wavReader.samples;
    std::vector<int> taken = std::move(samples);
    samples.clear();
    return taken;
}
