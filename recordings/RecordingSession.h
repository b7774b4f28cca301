#ifndef SONAVIA_RECORDINGS_RECORDINGSESSION_H
#define SONAVIA_RECORDINGS_RECORDINGSESSION_H

#include <QString>

#include <vector>

/// What the window is working on, in one place: the mode of its lists, the folder and the loaded recording.
/// A plain value owned by the main window; GUI thread only, except that the spectrogram worker reads
/// `timedata` while `busy` is set.
struct RecordingSession
{
    /// What the lists hold: 0 a single file (or nothing), 1 an opened folder, 2 a folder evaluation, 3 a
    /// Vantor folder evaluation, 4 the review of a recorder's offline analysis.
    int viewMode = 0;
    QString folder; ///< without a trailing slash

    QString path; ///< the current recording
    /// Its samples, signed. Not to be changed or freed while `busy`.
    std::vector<int> timedata;
    int sampleSize = 0; ///< samples
    int bitsPerSample = 0;
    int sampleRate = 0; ///< samples per second
    QString date;       ///< "dd/MM/yy", may be empty
    QString time;       ///< "hh:mm:ss", may be empty

    /// Forgets the loaded recording, except its path, and gives its memory back. Not while `busy`.
    void clearRecording()
    {
        std::vector<int>().swap(timedata);
        sampleSize = bitsPerSample = sampleRate = 0;
        date.clear();
        time.clear();
    }

    /// A spectrogram is being computed: nothing else can be opened.
    bool busy = false;

    /// s; computed in single precision, as the spectrogram's time axis is.
    double duration() const
    {
        return sampleRate > 0
                   ? static_cast<double>(static_cast<float>(sampleSize) / static_cast<float>(sampleRate))
                   : 0.0;
    }
    /// Upper end of the frequency axis in whole kHz.
    int nyquistKHz() const { return sampleRate / 2000; }
};

#endif
