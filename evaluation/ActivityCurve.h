#ifndef SONAVIA_EVALUATION_ACTIVITYCURVE_H
#define SONAVIA_EVALUATION_ACTIVITYCURVE_H

#include <qwt_plot_curve.h>

#include <vector>

/// A curve over bins that is interrupted where there are no values. The plot owns it once it is attached.
class ActivityCurve : public QwtPlotCurve
{
public:
    explicit ActivityCurve(const QString& name);

    /// Draws the points with a value. On a logarithmic axis only values above 0 have a place.
    void setPoints(const QVector<double>& positions, const std::vector<double>& values, bool isLogarithmic);

protected:
    void drawSeries(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                    const QRectF& canvasRect, int from, int to) const override;

private:
    void drawDot(QPainter* painter, const QPointF& position) const;

    std::vector<int> m_runEnds; ///< index of the last sample of each run
};

#endif
