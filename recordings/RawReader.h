#ifndef SONAVIA_RECORDINGS_RAWREADER_H
#define SONAVIA_RECORDINGS_RAWREADER_H

#include <QIODevice>
#include <QString>

#include <vector>

/// Reads headerless recordings: 16-bit samples, little-endian, one channel, taken to be at 500 kHz.
///
/// Never throws; without samples `errorText` says why. One reader may load any number of files. Not
/// thread-safe.
class RawReader
{
public:
    static constexpr int sampleRate = 500000; ///< Hz
    static constexpr int bitsPerSample = 16;

    /// Loads the file at `path`. With `headerOnly` only `fileSize` is found out.
    void load(const QString& path, bool headerOnly);

    /// The same from a random-access device that is open for reading; `path` is for the message.
    void load(QIODevice& device, const QString& path, bool headerOnly);

    /// Forgets everything, as before the first load.
    void clear();

    quint32 bytesPerSample = 2;
    quint32 fileSize = 0;     ///< bytes; files of 4 GB and more are refused as unreadable
    std::vector<int> samples; ///< fileSize / 2 values in -32768 ... 32767; take them with std::move()
    QString errorText;        ///< empty when all is well
};

#endif
