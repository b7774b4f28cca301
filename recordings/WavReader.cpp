#include "recordings/WavReader.h"

#include "recordings/RecordingsLog.h"
#include "recordings/RiffChunks.h"
#include "recordings/SampleConversion.h"
#include "recordings/ShortDate.h"

#include <QFileInfo>

#include <algorithm>

namespace {

/// Longer texts are cut: nobody reads a coding history of this size, and a file of gigabytes can claim one.
constexpr qint64 longestText = 1 << 20;

enum class Charset { Latin1, SignedBytes };

/// The next `width` bytes without the zero bytes. Leaves `text` alone and returns false when they are not
/// there.
bool readText(RiffChunks& chunk, qint64 width, QString* text, Charset charset = Charset::Latin1)
{
    if (width > chunk.available())
        return false;
    const qint64 kept = std::min(width, longestText);
    QByteArray bytes(static_cast<int>(kept), Qt::Uninitialized);
    if (!chunk.read(bytes.data(), kept) || !chunk.skip(width - kept))
        return false;
    bytes.resize(static_cast<int>(std::remove(bytes.begin(), bytes.end(), '\0') - bytes.begin()));
    if (charset == Charset::Latin1) {
        *text = QString::fromLatin1(bytes);
        return true;
    }
    text->resize(bytes.size());
    std::transform(bytes.cbegin(), bytes.cend(), text->begin(),
                   [](char byte) { return QChar(static_cast<ushort>(static_cast<signed char>(byte))); });
    return true;
}

bool readWord(RiffChunks& chunk, quint32* number)
{
    quint16 word = 0;
    if (!chunk.readNumber(&word))
        return false;
    *number = word;
    return true;
}

} // namespace

void WavReader::load(const QString& path, bool headerOnly)
{
    clear();
    // A folder, a pipe or a device is not a recording; opening a pipe would wait for its other end.
    file.setFileName(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        fail(QStringLiteral("Cannot open file '") + path + QLatin1Char('\''));
        return;
    }
    parse(file, headerOnly);
    file.close();
}

void WavReader::load(QIODevice& device, bool headerOnly)
{
    clear();
    parse(device, headerOnly);
}

void WavReader::clear()
{
    static_cast<WavFields&>(*this) = WavFields();
}

void WavReader::parse(QIODevice& device, bool headerOnly)
{
    RiffChunks chunks(device);
    if (!readOpening(chunks))
        return;
    RiffChunks::Step step = chunks.next();
    while (step == RiffChunks::Step::Chunk) {
        if (!readChunk(chunks, device, headerOnly)) {
            readDescriptionBehind(chunks);
            return;
        }
        step = chunks.next();
    }
    if (step == RiffChunks::Step::PartialId)
        errorText.clear(); // a stray byte, often the padding of an odd chunk, is not worth a word
    else if (step == RiffChunks::Step::PartialSize)
        fail(QStringLiteral("Error while reading a chunk header size."));
    qCDebug(lcRecordings, "End of read. \n");
}

/// A recording that cannot be read further, in stereo for instance, may still carry a class record, and that
/// can be written: what a write would replace has to be known.
void WavReader::readDescriptionBehind(RiffChunks& chunks)
{
    if (bextFound || chunks.id() == fourCC("bext"))
        return;
    while (chunks.next() == RiffChunks::Step::Chunk)
        if (chunks.id() == fourCC("bext")) {
            readText(chunks, 256, &bextDescription, Charset::SignedBytes);
            return;
        }
}

bool WavReader::readOpening(RiffChunks& chunks)
{
    const RiffChunks::Opening opening = chunks.readOpening();
    if (opening.riffTag != fourCC("RIFF"))
        return fail(QStringLiteral("File is not a RIFF-WAV."));
    riffFound = true;
    riffSize = opening.riffSize.value_or(0);
    if (qint64(riffSize) + 8 != chunks.fileSize()) {
        errorText = QStringLiteral("File size in header not identical to real file size.");
        qCDebug(lcRecordings, "%s", qUtf8Printable(errorText));
    }
    if (opening.formTag != fourCC("WAVE"))
        return fail(QStringLiteral("File is not a WAVE file."));
    return true;
}

bool WavReader::readChunk(RiffChunks& chunks, QIODevice& device, bool headerOnly)
{
    switch (chunks.id()) {
    case fourCC("fmt "):
        return readFmt(chunks);
    case fourCC("data"):
        return readData(chunks, device, headerOnly);
    case fourCC("TIME"):
        return readTime(chunks);
    case fourCC("bext"):
        return readBext(chunks);
    case fourCC("SPL "):
        return readSpl(chunks);
    case fourCC("wamd"):
        return readWamd(chunks);
    default:
        qCDebug(lcRecordings, "Unknown Chunk. Throw warning");
        return true;
    }
}

bool WavReader::readFmt(RiffChunks& chunk)
{
    if (fmtFound)
        return fail(QStringLiteral("More then one FMT chunks."));
    const QString cut = QStringLiteral("WAV file read error in FMT chunk.");
    fmtSize = chunk.size();
    if (fmtSize > 16)
        return fail(QStringLiteral("FMT format not supported."));
    if (!readWord(chunk, &compressionCode))
        return fail(cut);
    if (compressionCode != 1)
        return fail(QStringLiteral("Compression format not supported."));
    if (!readWord(chunk, &channels))
        return fail(cut);
    if (channels != 1)
        return fail(QStringLiteral("Not more than 1 channel supported."));
    if (!chunk.readNumber(&sampleRate) || !chunk.readNumber(&bytesPerSecond) ||
        !readWord(chunk, &blockAlign) || !readWord(chunk, &bitsPerSample))
        return fail(cut);
    bytesPerSample = bitsPerSample / 8;
    fmtFound = true;
    qCDebug(lcRecordings, "Found FMT chunk");
    qCDebug(lcRecordings, "Sample rate: %u", sampleRate);
    return true;
}

bool WavReader::readData(RiffChunks& chunk, QIODevice& device, bool headerOnly)
{
    if (dataFound)
        return fail(QStringLiteral("Not more than one DATA chunk supported."));
    const QString cut = QStringLiteral("WAV file read error in DATA chunk.");
    dataSize = chunk.size();
    if (chunk.available() < dataSize)
        return fail(cut);
    dataFound = true;
    qCDebug(lcRecordings, "Found DATA chunk");
    if (headerOnly)
        return true;
    if (!convertible())
        return fail(QStringLiteral("Data format not supported."));
    if (!device.seek(chunk.position()) ||
        !readSamples(device, dataSize, static_cast<int>(bytesPerSample), &samples)) {
        dataFound = false;
        return fail(cut);
    }
    valid = true;
    return true;
}

bool WavReader::readTime(RiffChunks& chunk)
{
    if (timeFound)
        return fail(QStringLiteral("Not more than one TIME chunk supported."));
    const QString cut = QStringLiteral("WAV file read error in TIME chunk.");
    timeSize = chunk.size();
    if (!readText(chunk, 4, &timeChar1) || !chunk.readNumber(&timeNumber1) ||
        !readText(chunk, 8, &timeRecDate))
        return fail(cut);
    timeRecDate = shortDateFromMonthFirst(timeRecDate);
    if (!chunk.skip(1) || !readText(chunk, 8, &timeDate) || !chunk.skip(3))
        return fail(cut);
    if (!readText(chunk, 4, &timeChar2) || !chunk.readNumber(&timeNumber2) ||
        !readText(chunk, 8, &timeSecDate) || !chunk.skip(1) || !readText(chunk, 8, &timeSecTime) ||
        !chunk.skip(3))
        return fail(cut);
    if (!readText(chunk, qint64(timeSize) - 56, &timeChar3))
        return fail(cut);
    timeFound = true;
    qCDebug(lcRecordings, "Found TIME chunk: %s %s", qUtf8Printable(timeRecDate), qUtf8Printable(timeDate));
    return true;
}

bool WavReader::readBext(RiffChunks& chunk)
{
    if (bextFound) {
        qCDebug(lcRecordings, "more then 1 bext chunk. not supported. \n");
        return fail(QStringLiteral("Not more than one BEXT chunk supported."));
    }
    const QString cut = QStringLiteral("WAV file read error in BEXT chunk.");
    const Charset charset = Charset::SignedBytes;
    bextSize = chunk.size();
    if (!readText(chunk, 256, &bextDescription, charset) || !readText(chunk, 32, &bextOriginator, charset) ||
        !readText(chunk, 32, &bextReference, charset) || !readText(chunk, 10, &bextDate, charset) ||
        !readText(chunk, 8, &bextTime, charset))
        return fail(cut);
    // Time reference, version, UMID, loudness and reserved bytes mean nothing to us.
    const qint64 behindTexts = qint64(bextSize) - 338;
    const qint64 skipped = std::min<qint64>(behindTexts, 264);
    if (!chunk.skip(skipped) || !readText(chunk, behindTexts - skipped, &bextCodingHistory, charset))
        return fail(cut);
    bextFound = true;
    for (const QString* text :
         {&bextDescription, &bextOriginator, &bextReference, &bextDate, &bextTime, &bextCodingHistory})
        qCDebug(lcRecordings, "Found BEXT chunk: %s", qUtf8Printable(*text));
    return true;
}

bool WavReader::readSpl(RiffChunks& chunk)
{
    if (splFound)
        return fail(QStringLiteral("Not more than one SPL chunk supported."));
    splSize = chunk.size();
    // Passed over like an unknown chunk: where it breaks off there is simply no more to read.
    if (!readText(chunk, std::min<qint64>(8, chunk.available()), &splValue))
        return true;
    splValue = splValue.trimmed();
    splFound = true;
    qCDebug(lcRecordings, "Found SPL chunk: %s", qUtf8Printable(splValue));
    return true;
}

bool WavReader::readWamd(RiffChunks& chunk)
{
    if (wamdFound)
        return fail(QStringLiteral("Not more than one WAMD chunk supported."));
    const QString cut = QStringLiteral("WAV file read error in WAMD chunk.");
    wamdSize = chunk.size();
    if (!chunk.skip(67) || !readText(chunk, 10, &wamdDate) || !chunk.skip(1) ||
        !readText(chunk, 8, &wamdTime) || !chunk.skip(qint64(wamdSize) - 86))
        return fail(cut);
    wamdFound = true;
    qCDebug(lcRecordings, "Found WAMD chunk: %s %s", qUtf8Printable(wamdDate), qUtf8Printable(wamdTime));
    return true;
}

bool WavReader::convertible() const
{
    return fmtFound && compressionCode == 1 &&
           (bitsPerSample == 8 || bitsPerSample == 16 || bitsPerSample == 24 || bitsPerSample == 32);
}

bool WavReader::fail(const QString& text)
{
    valid = false;
    errorText = text;
    qCDebug(lcRecordings, "%s", qUtf8Printable(text));
    return false;
}
