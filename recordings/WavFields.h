#ifndef SONAVIA_RECORDINGS_WAVFIELDS_H
#define SONAVIA_RECORDINGS_WAVFIELDS_H

#include <QString>

#include <vector>

/// Everything that a WAV file says, as it stood in the file; a fresh object is what "nothing read" looks
/// like.
///
/// A `…Found` flag is set when the chunk was read whole. The texts of a chunk that broke off are those that
/// could still be read. Zero bytes are left out of every text, wherever they stand.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): grouped by chunk, to be read by people.
struct WavFields
{
    bool riffFound = false;
    quint32 riffSize = 0; ///< file size - 8, if the file tells the truth

    bool fmtFound = false;
    quint32 fmtSize = 1000;
    quint32 compressionCode = 0; ///< 1 is PCM
    quint32 channels = 0;
    quint32 sampleRate = 0;     ///< Hz; not validated, 0 is possible
    quint32 bytesPerSecond = 0; ///< not validated
    quint32 blockAlign = 0;     ///< not validated
    quint32 bitsPerSample = 0;
    quint32 bytesPerSample = 0;

    bool dataFound = false;
    quint32 dataSize = 0;   ///< bytes of samples, as the chunk claims
    quint32 dataOffset = 0; ///< bytes before the first sample in the chunk

    bool timeFound = false;
    quint32 timeSize = 0;
    QString timeChar1;
    qint32 timeNumber1 = 0;
    QString timeRecDate; ///< "dd/MM/yy"; empty when the chunk holds no date
    QString timeDate;    ///< time of day, "hh:mm:ss"
    QString timeChar2;
    qint32 timeNumber2 = 0;
    QString timeSecDate;
    QString timeSecTime;
    QString timeChar3;

    // Texts of the broadcast extension (EBU Tech 3285). Bytes from 0x80 come out as U+FF80 to U+FFFF; in the
    // texts of all other chunks they are Latin-1.
    bool bextFound = false;
    quint32 bextSize = 0;
    QString bextDescription; ///< the class record; known also where a chunk before it could not be read
    QString bextOriginator;
    QString bextReference;
    QString bextDate; ///< "yyyy-MM-dd" where the recorder keeps to the standard
    QString bextTime; ///< "hh:mm:ss" likewise
    QString bextCodingHistory;

    bool wamdFound = false;
    quint32 wamdSize = 0;
    QString wamdDate; ///< "yyyy-MM-dd"
    QString wamdTime; ///< "hh:mm:ss"

    bool splFound = false;
    quint32 splSize = 0;
    QString splValue; ///< sound pressure level, trimmed

    std::vector<int> samples; ///< signed, full scale is 2^(bitsPerSample - 1)
    QString errorText;        ///< last message; empty when there is none
    bool valid = false;       ///< samples were converted and nothing failed afterwards

    /// Samples that the data chunk claims to hold; 0 while format or data are unknown. After a load with
    /// samples the same as samples.size().
    quint32 frameCount() const
    {
        const quint64 frameBytes = quint64(bytesPerSample) * channels;
        return frameBytes == 0 ? 0 : static_cast<quint32>(dataSize / frameBytes);
    }
};

#endif
