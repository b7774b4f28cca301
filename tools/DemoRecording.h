#ifndef SONAVIA_TOOLS_DEMORECORDING_H
#define SONAVIA_TOOLS_DEMORECORDING_H

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <cstdint>
#include <vector>

class Soundscape;

/// One recording of the demo night: what is heard in it, and the file that it becomes.
struct DemoRecording
{
    enum class Container {
        Wav,            ///< with a broadcast extension chunk that tells date, time and class record
        WavWithoutBext, ///< format and samples only
        Raw             ///< samples only; always at 500 kHz
    };

    QDateTime start; ///< local time
    int sampleRate;  ///< Hz
    double length;   ///< s
    Container container;
    QByteArray classRecord; ///< empty: not classified yet
    void (*scene)(Soundscape&);
    std::uint32_t seed;
    /// Of the recorder's own analysis, those behind date and time; none for a recording that it left out.
    QList<QByteArray> analysis;

    /// "yyyyMMdd_hhmmss" of the start, with ".wav" or ".raw".
    QString fileName() const;

    /// The line of the recorder's result file, with its end; empty for a recording that it left out.
    QByteArray resultLine() const;

    /// The samples of the scene over the microphone's noise. Takes up to a few hundred ms.
    std::vector<std::int16_t> samples() const;

    /// The whole file.
    QByteArray bytes() const;

    /// Number of bytes() without making them.
    std::int64_t size() const;

private:
    QByteArray fileOf(const std::vector<std::int16_t>& samples) const;
};

#endif
