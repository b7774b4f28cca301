#ifndef SONAVIA_VIEWER_FREQUENCYAXISVIEW_H
#define SONAVIA_VIEWER_FREQUENCYAXISVIEW_H

#include "viewer/core/AxisLimits.h"

#include <QPointF>
#include <QVector>
#include <qwt_plot.h>

class OverlayMarker;
class QwtPlotCurve;
class QwtPlotGrid;
class RangeMarker;

/// The frequency-axis plot: level over frequency, turned by a quarter, so that the frequency in kHz runs up
/// like that of the spectrogram and the level grows from right to left, towards it. Knows no settings.
///
/// Setters do not replot: call replot() after the last one. Exceptions are the marker and the range marker,
/// which show at once and cost no replot. GUI thread only.
class FrequencyAxisView : public QwtPlot
{
    Q_OBJECT

public:
    explicit FrequencyAxisView(QWidget* parent = nullptr);

    void setLevelTitle(const QString& title);

    /// The axes: kHz and the unit of the curve. Ranges that are not valid leave the axis as it is.
    void setFrequencyLimits(const AxisLimits& limits);
    void setLevelLimits(const AxisLimits& limits);

    /// x is the level, y the frequency in kHz, rising. The area between the curve and the right end of the
    /// level axis is filled, down to the lower end of the frequency axis; so set the axes first.
    void showCurve(const QVector<QPointF>& curve);

    void setGridVisible(bool on);

    /// A line across the plot at the frequency of the pointer, titled "frequencyPlotMarker".
    OverlayMarker& marker() { return *m_marker; }
    /// The range of frequencies that the spectrogram shows.
    RangeMarker& visibleRange() { return *m_visibleRange; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    // All owned by the plot.
    QwtPlotCurve* m_curve;
    QwtPlotGrid* m_grid;
    OverlayMarker* m_marker;
    RangeMarker* m_visibleRange;
};

#endif
