#include "recordings/writeBextDescription.h"

#include "recordings/RecordingsLog.h"
#include "recordings/RiffChunks.h"

#include <QFile>

#include <limits>

namespace {

constexpr quint32 newChunkSize = 858; ///< the 602 fixed bytes and 256 of coding history
constexpr int chunkHeaderSize = 8;
constexpr qint64 riffSizeOffset = 4;

bool refuse(const char* reason)
{
    qCDebug(lcRecordings, "%s", reason);
    return false;
}

bool readError()
{
    return refuse("WAV file read error in write description in bext chunk");
}

bool writeError()
{
    return refuse("WAV file write error in write description in bext chunk");
}

bool writeAt(QFileDevice& file, qint64 offset, const QByteArray& bytes)
{
    return file.seek(offset) && file.write(bytes) == bytes.size();
}

bool holdsAt(QFileDevice& file, qint64 offset, const QByteArray& bytes)
{
    QByteArray found(bytes.size(), Qt::Uninitialized);
    return file.seek(offset) && file.read(found.data(), found.size()) == found.size() && found == bytes;
}

/// One write over `before`, which stands at `offset`; read back, and undone where that shows another text.
bool replaceAt(QFileDevice& file, qint64 offset, const QByteArray& before, const QByteArray& after)
{
    if (writeAt(file, offset, after) && file.flush() && holdsAt(file, offset, after))
        return true;
    writeAt(file, offset, before);
    return writeError();
}

QByteArray littleEndian(quint32 number)
{
    QByteArray bytes(sizeof number, Qt::Uninitialized);
    qToLittleEndian(number, bytes.data());
    return bytes;
}

/// The walk stands at the payload of the chunk.
bool replaceDescription(QFileDevice& file, RiffChunks& bext, const QByteArray& text)
{
    const QByteArray after = text.leftJustified(bextDescriptionSize, '\0');
    if (after.size() > qMin<qint64>(bext.size(), bext.available()))
        return refuse("Description does not fit into the bext chunk");
    const qint64 offset = bext.position();
    QByteArray before(after.size(), Qt::Uninitialized);
    if (!bext.read(before.data(), before.size()))
        return readError();
    return before == after || replaceAt(file, offset, before, after);
}

/// The chunk comes first and the RIFF size last: until then no other program looks at the new bytes.
bool appendChunk(QFileDevice& file, quint32 oldRiffSize, qint64 oldFileSize, const QByteArray& text)
{
    const qint64 newRiffSize = oldFileSize + newChunkSize;
    if (text.size() > static_cast<int>(newChunkSize) || newRiffSize > std::numeric_limits<quint32>::max())
        return refuse("Description or file too large for a new bext chunk");
    const QByteArray chunk = QByteArrayLiteral("bext") + littleEndian(newChunkSize) +
                             text.leftJustified(static_cast<int>(newChunkSize), '\0');
    Q_ASSERT(chunk.size() == chunkHeaderSize + static_cast<int>(newChunkSize));
    const bool written =
        (writeAt(file, oldFileSize, chunk) && file.flush() && holdsAt(file, oldFileSize, chunk)) ||
        writeError();
    if (written && replaceAt(file, riffSizeOffset, littleEndian(oldRiffSize),
                             littleEndian(static_cast<quint32>(newRiffSize))))
        return true;
    file.resize(oldFileSize);
    return false;
}

/// False unless the file begins as every WAV file does.
bool readOpening(RiffChunks& chunks, quint32* riffSize)
{
    const RiffChunks::Opening opening = chunks.readOpening();
    if (opening.riffTag != fourCC("RIFF"))
        return refuse("Not a RIFF-WAV file to write description in bext chunk");
    if (!opening.riffSize)
        return readError();
    *riffSize = *opening.riffSize;
    if (*riffSize != chunks.fileSize())
        qCDebug(lcRecordings, "File size in header not identical to real file size.");
    return opening.formTag == fourCC("WAVE") || readError();
}

} // namespace

bool writeBextDescription(const QString& wavFileName, const QString& description)
{
    QFile file(wavFileName);
    // A file that went away meanwhile must not come back as an empty one; a pipe or a device is no recording.
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) ||
        file.isSequential())
        return refuse("Cannot open Wav file to write description in bext chunk");
    if (!writeBextDescription(file, description))
        return false;
    file.close();
    return file.error() == QFileDevice::NoError || writeError();
}

bool writeBextDescription(QFileDevice& file, const QString& description)
{
    RiffChunks chunks(file);
    quint32 riffSize = 0;
    if (!readOpening(chunks, &riffSize))
        return false;
    const QByteArray text = description.toUtf8();
    RiffChunks::Step step = chunks.next();
    for (; step == RiffChunks::Step::Chunk; step = chunks.next()) {
        if (chunks.id() == fourCC("bext"))
            return replaceDescription(file, chunks, text);
        qCDebug(lcRecordings, "Unknown Chunk. Throw warning");
    }
    if (step == RiffChunks::Step::PartialId)
        return refuse("Error while reading a chunk header descriptor in writing bext chunk description");
    if (step != RiffChunks::Step::End)
        return readError();
    qCDebug(lcRecordings, "No Bext chunk exists");
    return appendChunk(file, riffSize, chunks.fileSize(), text);
}
