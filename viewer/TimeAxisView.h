#ifndef SONAVIA_VIEWER_TIMEAXISVIEW_H
#define SONAVIA_VIEWER_TIMEAXISVIEW_H

#include "viewer/core/AxisLimits.h"
#include "viewer/core/TimeCurve.h"

#include <qwt_plot.h>

#include <array>

class MyQwtZoomer2;
class OverlayMarker;
class QwtPlotCurve;
class QwtPlotGrid;
class QwtPlotMarker;
class QwtPlotScaleItem;
class RangeMarker;

/// The time-axis plot: amplitude or level over the time in seconds, with a zoom of its own. Knows no
/// settings.
///
/// Setters do not replot: call replot() after the last one. Exceptions are the play cursor and the range
/// markers, which show at once and cost no replot. GUI thread only.
class TimeAxisView : public QwtPlot
{
    Q_OBJECT

public:
    explicit TimeAxisView(QWidget* parent = nullptr);

    void setAmplitudeTitle(const QString& title);

    /// The whole of what can be seen, and sees it: both axes, in s and in the unit of the curve. Forgets the
    /// plot's own zoom.
    void setView(const AxisLimits& time, const AxisLimits& amplitude);
    /// What is seen of it at the plot's own zoom.
    AxisLimits timeLimits() const;

    /// Empty series are not drawn. The areas between curves and `baseline` are filled.
    void showCurve(const TimeCurve& curve, double baseline);

    void setGridVisible(bool on);
    /// Where the scale on the canvas stands (s).
    void setScaleItemPosition(double seconds);
    double scaleItemPosition() const;

    /// The play cursor, titled "amplitudePlotMarker".
    OverlayMarker& cursor() { return *m_cursor; }
    /// The selected range of time.
    RangeMarker& selectedRange() { return *m_selectedRange; }
    /// The range of time that the spectrogram shows.
    RangeMarker& visibleRange() { return *m_visibleRange; }
    MyQwtZoomer2& zoomer() { return *m_zoomer; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    void createAxes();
    void createCurves();
    void createItems();

    // All owned by the plot.
    std::array<QwtPlotCurve*, 4> m_curves; ///< maximum, minimum, +RMS, -RMS
    QwtPlotGrid* m_grid;
    QwtPlotScaleItem* m_scaleItem;
    QwtPlotMarker* m_baseline;
    OverlayMarker* m_cursor;
    RangeMarker* m_selectedRange;
    RangeMarker* m_visibleRange;
    MyQwtZoomer2* m_zoomer;
};

#endif
