#ifndef SONAVIA_VIEWER_VIEWERPRESENTER_H
#define SONAVIA_VIEWER_VIEWERPRESENTER_H

#include "dsp/Blob.h"
#include "dsp/MyBatCall.h"
#include "viewer/core/AxisLimits.h"

#include <QObject>
#include <QStringList>
#include <QVector>

#include <unordered_map>

class SettingsStore;
class SpectrogramView;
class UserPrompts;
struct RecordingSession;

/// What happens after a computation and when a display setting changes: installs the result in the
/// spectrogram and keeps its scales and colours as the settings say. Reads every setting when it needs it.
/// GUI thread.
class ViewerPresenter : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing.
    ViewerPresenter(SpectrogramView& spectrogram, RecordingSession& session, SettingsStore& settings,
                    UserPrompts& prompts, QObject* parent = nullptr);

    /// Takes the marks and the picture of the last recording away; the axes stay until the next one is shown.
    void clear();
    /// There is no recording: empty axes, the frequency axis over `frequency` (kHz).
    void showEmpty(const AxisLimits& frequency);

    // The named slots of the main window, which forwards to them.
    void spectrogramCalculated(const QVector<double>& data, int numberOfFfts, double minValue,
                               double maxValue, const std::unordered_map<int, Blob>& blobs,
                               const QStringList& classes, const QList<MyBatCall>& calls);
    void computationFailed(const QString& text);
    // Both store their setting, too.
    void setGridVisible(bool visible);
    void setDetectionShown(bool shown);

    void slotColormapChanged();
    void slotAmplitudeScaleChanged();
    void slotFrequencyScaleChanged();

    /// The matrix on the screen, row-major by frequency; empty when there is none.
    const QVector<double>& matrix() const { return m_matrix; }
    int columns() const { return m_columns; }

signals:
    /// The worker has answered, with a result or an error; the window is idle again.
    void computationEnded();
    /// The result is about to be installed.
    void resultArrived();
    /// The result stands in the plot; painting follows.
    void resultShown();
    /// What was detected, one entry per region, in the same order; follows resultShown().
    void callsDetected(const QStringList& classes, const QList<MyBatCall>& calls);
    void detectionShown(bool shown);
    void gridShown(bool shown);
    /// The scale has other limits; not told for those of a new result.
    void frequencyScaleChanged();
    void amplitudeScaleChanged();
    /// The limits of the amplitude scale were written to the store.
    void scaleLimitsStored();
    void windowTitleChanged(const QString& title);
    void fileInfoChanged(const QString& text);
    void durationChanged(const QString& text);

private:
    AxisLimits frequencyLimits(double storedUpper) const;
    AxisLimits amplitudeLimits(double storedUpper);
    void describeRecording();

    SpectrogramView& m_spectrogram;
    RecordingSession& m_session;
    SettingsStore& m_settings;
    UserPrompts& m_prompts;

    QVector<double> m_matrix;
    int m_columns = 0;
    AxisLimits m_levels; // least and greatest level of the result, dBFS; not valid for silent recordings
};

#endif
