#ifndef SONAVIA_TOOLS_WAVBYTES_H
#define SONAVIA_TOOLS_WAVBYTES_H

#include <QByteArray>

#include <cstdint>
#include <vector>

/// Puts the bytes of a RIFF/WAVE file together, good or broken, for tests and for the demonstration
/// recordings.
///
/// Chunks stand in the order of the calls; nothing is checked, so any order, any number and any lie is
/// possible:
///
///     const QByteArray good = WavBytes().fmt(384000).data({1, -2, 3}).bytes();
///     const QByteArray cut = good.chopped(3);
///     const QByteArray liar = WavBytes().fmt(384000).chunkClaiming("data", 0xFFFFFFFF, "abc").bytes();
///
/// All numbers are stored little-endian. No pad byte follows a chunk of odd size; add it with raw() where a
/// test wants one. A plain value: copy a half-built file to make variants of it.
class WavBytes
{
public:
    /// The fields of a format chunk. Those left at -1 are stored as PCM arithmetic demands.
    struct Format
    {
        std::uint32_t sampleRate = 500000; ///< Hz
        std::uint16_t bitsPerSample = 16;
        std::uint16_t channels = 1;
        std::uint16_t compressionCode = 1; ///< 1 is PCM
        std::int64_t bytesPerSecond = -1;
        std::int32_t blockAlign = -1; ///< bytes of one frame
        QByteArray extension;         ///< bytes after the 16 of PCM; the chunk's size grows with them
    };

    /// The fields of a broadcast extension chunk (EBU Tech 3285). Texts are cut or zero-filled to their
    /// width.
    struct Bext
    {
        QByteArray description;         ///< 256 bytes
        QByteArray originator;          ///< 32 bytes
        QByteArray originatorReference; ///< 32 bytes
        QByteArray originationDate;     ///< 10 bytes, "yyyy-MM-dd"
        QByteArray originationTime;     ///< 8 bytes, "hh:mm:ss"
        QByteArray codingHistory;       ///< any length, stands after the 602 fixed bytes

        /// All fields filled, of 1 May 2024, 22:10:30.
        static Bext ofRecorder(const QByteArray& description);
    };

    /// The fields of a "TIME" chunk: two runs of 28 bytes and a tail. Texts are cut or zero-filled.
    struct Time
    {
        QByteArray char1; ///< 4 bytes
        std::int32_t number1 = 0;
        QByteArray recDate; ///< 8 bytes, "MM/dd/yy"
        QByteArray date;    ///< 8 bytes, the time of day "hh:mm:ss"
        QByteArray char2;   ///< 4 bytes
        std::int32_t number2 = 0;
        QByteArray secDate; ///< 8 bytes
        QByteArray secTime; ///< 8 bytes
        QByteArray char3;   ///< any length

        /// All fields filled, of 14 March 2024, 18:10:00.
        static Time ofRecorder();
    };

    /// A PCM format chunk of 16 bytes.
    WavBytes& fmt(std::uint32_t sampleRate, std::uint16_t bitsPerSample = 16, std::uint16_t channels = 1);
    WavBytes& fmt(const Format& format);

    /// A data chunk of 16-bit samples (of interleaved frames where there are several channels).
    WavBytes& data(const std::vector<std::int16_t>& samples);
    /// A data chunk of these bytes as they stand, for any sample width.
    WavBytes& dataBytes(const QByteArray& rawSamples);

    WavBytes& bext(const Bext& fields);
    WavBytes& time(const Time& fields);
    /// Date ("yyyy-MM-dd") and time ("hh:mm:ss") behind 67 bytes of 'x' and before `tail`.
    WavBytes& wamd(const QByteArray& date, const QByteArray& timeOfDay,
                   const QByteArray& tail = QByteArray());
    WavBytes& spl(const QByteArray& text);

    /// Any chunk: the first four bytes of `id`, the true size, the payload.
    WavBytes& chunk(const QByteArray& id, const QByteArray& payload);
    /// A chunk whose size field says `claimedSize`, whatever the payload.
    WavBytes& chunkClaiming(const QByteArray& id, std::uint32_t claimedSize, const QByteArray& payload);
    /// Bytes that are no chunk: padding, rubbish, half a chunk header.
    WavBytes& raw(const QByteArray& rubbish);

    /// A RIFF size other than the true one (file size - 8).
    WavBytes& riffSize(std::uint32_t size);
    /// Tags other than "RIFF" and "WAVE", four bytes each.
    WavBytes& tags(const QByteArray& riff, const QByteArray& wave);

    /// The whole file. Cut it with QByteArray::left() or chopped() for a truncated one.
    QByteArray bytes() const;

    /// The payloads alone, to be damaged and handed to chunk().
    static QByteArray fmtPayload(const Format& format);
    static QByteArray bextPayload(const Bext& fields);
    static QByteArray timePayload(const Time& fields);
    static QByteArray wamdPayload(const QByteArray& date, const QByteArray& timeOfDay,
                                  const QByteArray& tail = QByteArray());

private:
    QByteArray m_riffTag = QByteArrayLiteral("RIFF");
    QByteArray m_waveTag = QByteArrayLiteral("WAVE");
    std::int64_t m_riffSize = -1; ///< -1: the true one
    QByteArray m_chunks;
};

#endif
