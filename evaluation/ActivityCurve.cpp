#include "evaluation/ActivityCurve.h"

#include <cmath>

ActivityCurve::ActivityCurve(const QString& name) : QwtPlotCurve(name)
{
    setRenderHint(QwtPlotItem::RenderAntialiased);
    setLegendAttribute(QwtPlotCurve::LegendShowLine);
    setLegendAttribute(QwtPlotCurve::LegendShowSymbol);
}

void ActivityCurve::setPoints(const QVector<double>& positions, const std::vector<double>& values,
                              bool isLogarithmic)
{
    QVector<QPointF> points;
    points.reserve(positions.size());
    m_runEnds.clear();
    bool isInRun = false;
    for (int i = 0; i < positions.size(); ++i) {
        const double value = values[i];
        const bool hasPlace = std::isfinite(value) && (!isLogarithmic || value > 0.0);
        if (isInRun && !hasPlace)
            m_runEnds.push_back(points.size() - 1);
        if (hasPlace)
            points.append({positions.at(i), value});
        isInRun = hasPlace;
    }
    if (isInRun)
        m_runEnds.push_back(points.size() - 1);
    setSamples(points);
}

void ActivityCurve::drawSeries(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                               const QRectF& canvasRect, int from, int to) const
{
    if (to < 0)
        to = static_cast<int>(dataSize()) - 1;
    int start = 0;
    for (const int end : m_runEnds) {
        if (end >= from && start <= to)
            QwtPlotCurve::drawSeries(painter, xMap, yMap, canvasRect, qMax(start, from), qMin(end, to));
        start = end + 1;
    }
}
