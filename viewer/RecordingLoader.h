#ifndef SONAVIA_VIEWER_RECORDINGLOADER_H
#define SONAVIA_VIEWER_RECORDINGLOADER_H

#include "viewer/core/AxisLimits.h"

#include <QObject>
#include <QString>

#include <vector>

class RecordingFile;
class SettingsStore;
class UserPrompts;
struct RecordingSession;

/// What happens before a computation: clears the window, reads the recording, applies the matrix limit and
/// asks for the spectrogram. Reads the file in the calling (GUI) thread.
class RecordingLoader : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing.
    RecordingLoader(RecordingSession& session, RecordingFile& file, SettingsStore& settings,
                    UserPrompts& prompts, QObject* parent = nullptr);

    /// Loads the recording at `path` and requests its spectrogram. While one is computed nothing is touched;
    /// if `path` is that very recording, it is loaded again when the computation has ended.
    void load(const QString& path);

    /// The same for a wish that must not be lost: the first recording of a folder that had to wait for
    /// another list to stop loading. While a spectrogram is computed the last such wish waits for its end.
    void loadWhenIdle(const QString& path);

    /// Loads the current recording again, if there is one, with the settings as they are now.
    void reload();

    /// The computation has ended: catches up on a load() that came meanwhile.
    void computationEnded();

signals:
    /// Take away what is shown of the last recording.
    void clearing();
    /// The recording cannot be shown; `frequency` (kHz) is what the empty axes show.
    void unreadable(const AxisLimits& frequency);
    /// The recording is loaded, samples per second as given.
    void loaded(int sampleRate);
    /// The settings of the computation were changed by the matrix limit.
    void calculationSettingsChanged();
    /// The request to the worker; the samples stay untouched until it has answered.
    void signalCalcSpektrogramm(int sampleSize, int bitsPerSample, int windowSize, float frameSize,
                                QString window, double overlap, std::vector<int>* timedata, int sampleRate,
                                bool categorize);

private:
    bool readRecording(const QString& path);
    bool readWav(const QString& path);
    bool readRaw(const QString& path);
    void takeRecording();
    void requestSpectrogram();

    RecordingSession& m_session;
    RecordingFile& m_file;
    SettingsStore& m_settings;
    UserPrompts& m_prompts;
    QString m_waitingPath;
};

#endif
