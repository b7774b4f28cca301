#ifndef SONAVIA_VIEWER_SPECTROGRAMVIEW_H
#define SONAVIA_VIEWER_SPECTROGRAMVIEW_H

#include "viewer/core/AxisLimits.h"
#include "viewer/core/ColourScheme.h"

#include <qwt_plot.h>

class MatrixSpectrogram;
class QwtPlotGrid;
class QwtPlotScaleItem;

/// The spectrogram plot: time in seconds to the right, frequency in kHz upwards, levels in dBFS as colours
/// with a colour bar on the right axis. Without a recording it shows empty axes.
///
/// It holds the picture, its axes and its colours, and knows no settings: which limits and scheme apply is
/// for the caller to say. Markers, zoomers and pickers are laid over it by other classes, which take their
/// pens from colourScheme() and follow colourSchemeChanged(). Every function replots at most once and paints
/// later, so that several calls in a row cost one painting. GUI thread only.
class SpectrogramView : public QwtPlot
{
    Q_OBJECT

public:
    explicit SpectrogramView(QWidget* parent = nullptr);

    /// Shows a result and sets the time axis to 0..`durationSeconds`. The matrix is shared, not copied: one
    /// row per frequency from 0 to `nyquist` kHz, `columns` frames per row, levels in dBFS. The whole
    /// frequency range is shown until setFrequencyLimits(). An empty matrix gives an empty plot with these
    /// axes.
    void showResult(const QVector<double>& matrix, int columns, double durationSeconds, int nyquist);

    /// Empties the plot: no picture, no detection marks, time axis 0..1 s, frequency axis as given (kHz).
    void clear(const AxisLimits& frequency = AxisLimits::emptyFrequency());

    /// Takes picture and detection marks away and frees the matrix; the axes stay as they are.
    void removePicture();

    /// The visible frequencies in kHz. Where the limits leave nothing to see, all of the recording's are
    /// shown.
    void setFrequencyLimits(const AxisLimits& limits);
    AxisLimits frequencyLimits() const;
    /// The visible part of the recording in seconds.
    AxisLimits timeLimits() const;

    /// Levels (dBFS) of the first and last colour. Without valid limits no picture is drawn; the colour bar
    /// then keeps its last scale.
    void setAmplitudeLimits(const AxisLimits& limits);
    AxisLimits amplitudeLimits() const { return m_amplitude; }

    /// Interpolates between cells.
    void setSmoothing(bool on);

    void setGridVisible(bool on);

    /// Where the scale on the canvas stands: the time (s) at the left edge of what is shown.
    void setScaleItemPosition(double seconds);
    double scaleItemPosition() const;
    /// Notes where the canvas was dragged to (pixels) in the debug log.
    void logPanned(int x, int y) const;

    /// Takes the scheme of setting "colormap"; an unknown index leaves the current one.
    void applyColourScheme(int index);
    const ColourScheme& colourScheme() const { return m_scheme; }

    /// Removes and deletes the marks of the last detection: all items titled "Blob" or "categorizeMarker".
    void removeDetectionMarks();

    /// The picture itself. Belongs to the plot; its colours and limits are set through the functions above.
    const MatrixSpectrogram& spectrogram() const { return *m_spectrogram; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// After the canvas, the colour bar, the grid and the labels titled "Blob" have taken the new colours.
    void colourSchemeChanged(const ColourScheme& scheme);

private:
    void createAxes();
    void createItems();
    void useColours();
    void showColourBar();

    ColourScheme m_scheme;
    AxisLimits m_amplitude;
    AxisLimits m_wholeTime = AxisLimits::emptyTime();
    AxisLimits m_wholeFrequency = AxisLimits::emptyFrequency();
    MatrixSpectrogram* m_spectrogram; // like the other items owned by the plot
    QwtPlotGrid* m_grid;
    QwtPlotScaleItem* m_scaleItem;
};

#endif
