#ifndef SONAVIA_VIEWER_AXISPLOTSPRESENTER_H
#define SONAVIA_VIEWER_AXISPLOTSPRESENTER_H

#include "viewer/core/AxisLimits.h"
#include "viewer/core/MatrixMaxima.h"
#include "viewer/core/SampleRange.h"

#include <QObject>
#include <QPointF>
#include <QTimer>
#include <QVector>

#include <optional>
#include <vector>

class FrequencyAxisView;
class QRectF;
class SettingsStore;
class SpectrogramView;
class TimeAxisView;

/// Shows in the two axis plots what the settings choose, and follows the spectrogram's zoom.
///
/// Time-axis plot, "timePlotMode": 0 the amplitude envelope of the samples; 1 the levels of the spectrogram
/// row at the cursor; 2 the largest level of each column. Frequency-axis plot, "frequencyPlotMode": 0 the
/// power spectral density of the samples; 1 the levels of the column at the cursor; 2 the largest level of
/// each row. The cursor is where the pointer was last over the spectrogram; playing moves its time. With
/// "timePlotZoom" or "frequencyPlotZoom" a plot shows what the spectrogram shows, otherwise all of the
/// recording with the rest dimmed.
///
/// Curves are computed once per turn of the event loop, and only those that changed. GUI thread only.
class AxisPlotsPresenter : public QObject
{
    Q_OBJECT

public:
    /// Sets the axis titles of the stored modes. Owns nothing.
    AxisPlotsPresenter(SpectrogramView& spectrogram, TimeAxisView& time, FrequencyAxisView& frequency,
                       const SettingsStore& settings, QObject* parent = nullptr);

    /// A recording was loaded: shows what can be drawn without its spectrogram. The samples are not owned and
    /// only read; they must not change or go before clear() or the next setRecording(). Samples per second.
    void setRecording(const std::vector<int>* samples, int sampleRate, int bitsPerSample);

    /// The spectrogram shows the result for this recording, all of it. The matrix (dBFS, row-major by
    /// frequency, from 0 kHz to half the sample rate) is shared, not copied.
    void setResult(const QVector<double>& matrix, int columns);

    /// There is no recording: lets go of samples and matrix.
    void clear();

    /// 1.1 x the largest amplitude of the recording, relative to full scale; 0 without one or for silence.
    double displayPeak() const { return m_displayPeak; }

    void setGridVisible(bool on);

    // What the main window forwards.
    void spectroZoomed(const QRectF& rect); ///< s and kHz; the new view of the spectrogram
    void slotTimePlotChanged();
    void slotFrequencyPlotChanged();

    /// The spectrogram has other levels (dBFS), or frequencies (kHz, before any zoom), on its axes.
    void amplitudeScaleChanged();
    void frequencyScaleChanged();

    void setCursor(const QPointF& position); ///< s and kHz
    void setCursorTime(double seconds);

signals:
    /// The spectrogram was zoomed to these times (s).
    void timeRangeShown(double start, double end);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    enum Change : unsigned { TimeView = 1, TimeCurveChange = 2, LevelChange = 4 };
    enum Mode { FromSamples, AtCursor, Largest };

    void schedule(unsigned changes);
    void update();
    void updateTimeView();
    void updateTimeCurve();
    void updateFrequencyPlot();
    AxisLimits timesOfLevels() const;
    QVector<QPointF> levels(Mode mode, const AxisLimits& times);
    AxisLimits levelLimits(Mode mode, const QVector<QPointF>& curve, const AxisLimits& frequency) const;
    void showTitles(bool atStart);

    static Mode modeOf(int setting);
    double duration() const;
    double nyquist() const;
    DecibelMatrix matrix() const;
    ColumnRange columnsOf(const AxisLimits& times) const;
    int cursorRow() const;
    int cursorColumn() const;
    const MatrixMaxima& maxima();
    int plotWidth() const;

    SpectrogramView& m_spectrogram;
    TimeAxisView& m_time;
    FrequencyAxisView& m_frequency;
    const SettingsStore& m_settings;

    const std::vector<int>* m_samples = nullptr;
    int m_sampleRate = 0;
    int m_bitsPerSample = 0;
    double m_displayPeak = 0;
    QVector<double> m_matrix;
    int m_columns = 0;
    std::optional<MatrixMaxima> m_maxima; ///< of m_matrix, once it was needed
    AxisLimits m_wholeFrequency;          ///< of the spectrogram before any zoom, kHz
    QPointF m_cursor;

    unsigned m_changes = 0;
    int m_curveWidth = 0; ///< pixels that the time curve was made for
    QTimer m_resizeTimer;
};

#endif
