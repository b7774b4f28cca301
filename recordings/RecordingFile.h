#ifndef SONAVIA_RECORDINGS_RECORDINGFILE_H
#define SONAVIA_RECORDINGS_RECORDINGFILE_H

#include "recordings/RawReader.h"
#include "recordings/WavReader.h"

/// A recording of either format, chosen by the suffix of its name: what the rest of the program works with.
///
/// Keeps one reader per format and reuses them; everything is that of the last load(). Not thread-safe.
class RecordingFile
{
public:
    enum class Kind {
        Unsupported, ///< neither suffix
        Wav,         ///< ".wav" in any case
        Raw,         ///< ".raw" in any case
    };

    static Kind kindOf(const QString& path);

    /// Loads the file; with `headerOnly` everything but the samples. What cannot be loaded leaves no samples
    /// and an errorText(); what could be read of the header stays.
    void load(const QString& path, bool headerOnly = false);

    Kind kind() const { return m_kind; }

    /// One value per sample, signed; empty when the file could not be loaded.
    const std::vector<int>& samples() const;
    /// Hands the samples over; samples() is empty afterwards.
    std::vector<int> takeSamples();

    /// Count of samples: those loaded or, after a header-only load, those that the file claims to hold.
    int sampleSize() const { return m_sampleSize; }
    int bitsPerSample() const { return m_bitsPerSample; }
    int sampleRate() const { return m_sampleRate; } ///< Hz; 0 where a WAV file says so
    const QString& date() const { return m_date; }  ///< "dd/MM/yy" or empty
    const QString& time() const { return m_time; }  ///< as stored, usually "hh:mm:ss", or empty

    /// The reader's message; together with samples it is a warning.
    const QString& errorText() const { return m_errorText; }

    /// All fields of the WAV file; those of nothing unless kind() is Wav.
    const WavFields& wav() const { return m_wavReader; }

private:
    void loadWav(const QString& path, bool headerOnly);
    void loadRaw(const QString& path, bool headerOnly);

    WavReader m_wavReader;
    RawReader m_rawReader;
    Kind m_kind = Kind::Unsupported;
    int m_sampleSize = 0;
    int m_bitsPerSample = 0;
    int m_sampleRate = 0;
    QString m_date;
    QString m_time;
    QString m_errorText;
};

#endif
