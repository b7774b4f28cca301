#ifndef SONAVIA_RECORDINGS_RIFFCHUNKS_H
#define SONAVIA_RECORDINGS_RIFFCHUNKS_H

#include <QIODevice>
#include <QtEndian>

#include <array>
#include <optional>

/// A chunk id or form tag as a number, to be compared with RiffChunks::id(): fourCC("data").
constexpr quint32 fourCC(const char (&text)[5])
{
    quint32 code = 0;
    for (int i = 3; i >= 0; --i)
        code = code << 8 | static_cast<quint8>(text[i]);
    return code;
}

/// The walk over the chunks of a RIFF file, the only one in the program: readers and writers agree on where a
/// chunk begins because they share it.
///
/// A chunk takes exactly the bytes that its size field says; no pad byte is looked for after an odd size.
/// Sizes are believed only as far as the file reaches: every request is compared with the bytes that are
/// left, so a lying header can neither lead out of the file nor cost memory.
///
///     RiffChunks chunks(file);
///     const RiffChunks::Opening opening = chunks.readOpening();
///     while (chunks.next() == RiffChunks::Step::Chunk)
///         if (chunks.id() == fourCC("fmt "))
///             chunks.readNumber(&code);
///
/// Small reads are served from a window of 4 KB. Open files unbuffered and a header costs two reads, one at
/// the start and one behind the samples. Not thread-safe.
class RiffChunks
{
public:
    /// The twelve bytes before the first chunk; what the file is too short for is 0 or missing.
    struct Opening
    {
        quint32 riffTag = 0;
        std::optional<quint32> riffSize;
        quint32 formTag = 0;
    };

    enum class Step {
        Chunk,       ///< stands at the payload of a further chunk
        End,         ///< the file ends where the last chunk does
        CutShort,    ///< the chunk just left claims more bytes than the file has
        PartialId,   ///< one to three bytes are left, or they cannot be read
        PartialSize, ///< an id, but not four bytes of a size
        TooMany,     ///< more chunks than any recording has; the file is rubbish
    };

    static constexpr int maxChunks = 65536;

    /// Walks over `device`, which is open for reading, random-access, and outlives the walk. Its size is
    /// taken once, now. The walk seeks before each of its reads, so that a caller may move the device's
    /// position.
    explicit RiffChunks(QIODevice& device);

    qint64 fileSize() const { return m_fileSize; }

    /// Reads the start of the file; once, before the first next().
    Opening readOpening();

    /// Leaves the present chunk, however much of it was read, and enters the one behind it.
    Step next();

    quint32 id() const { return m_id; }
    /// The size that the chunk claims, in bytes.
    quint32 size() const { return m_size; }
    /// Offset in the file of the next byte to be read; right after next() that of the payload.
    qint64 position() const { return m_position; }
    /// Bytes of the chunk that are not yet read and that the file really has.
    qint64 available() const { return qMin(m_end, m_fileSize) - m_position; }

    // Reading the payload. False when the chunk or the file has fewer bytes than that, or the device fails.
    bool read(char* bytes, qint64 count) { return count <= available() && fetch(bytes, count); }
    bool skip(qint64 count);
    /// A little-endian number of the size of T.
    template <typename T>
    bool readNumber(T* number)
    {
        char bytes[sizeof(T)];
        if (!read(bytes, sizeof(T)))
            return false;
        *number = qFromLittleEndian<T>(bytes);
        return true;
    }

private:
    bool fetch(char* bytes, qint64 count);
    bool fillWindow();

    QIODevice& m_device;
    qint64 m_fileSize;
    qint64 m_position = 0;
    qint64 m_end = 0; ///< where the present chunk claims to end
    quint32 m_id = 0;
    quint32 m_size = 0;
    int m_count = 0;
    std::array<char, 4096> m_window;
    qint64 m_windowStart = 0;
    qint64 m_windowSize = 0;
};

#endif
