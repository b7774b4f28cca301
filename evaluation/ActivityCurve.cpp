#include "evaluation/ActivityCurve.h"

#include <QPainter>
#include <qwt_painter.h>
#include <qwt_scale_map.h>

#include <cmath>

ActivityCurve::ActivityCurve(const QString& name)
    : QwtPlotCurve(QwtText(name, QwtText::PlainText)) // a class may have any name
{
    setRenderHint(QwtPlotItem::RenderAntialiased);
    setLegendAttribute(QwtPlotCurve::LegendShowLine);
    setLegendAttribute(QwtPlotCurve::LegendShowSymbol);
    setLegendIconSize(QSize(26, 10)); // room for a dash and a symbol
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
        if (start == end && symbol() == nullptr)
            drawDot(painter, QPointF(xMap.transform(sample(start).x()), yMap.transform(sample(start).y())));
        start = end + 1;
    }
}

/// A value without neighbours, of which no line would tell.
void ActivityCurve::drawDot(QPainter* painter, const QPointF& position) const
{
    painter->setPen(QPen(pen().color(), 4.0, Qt::SolidLine, Qt::RoundCap));
    QwtPainter::drawPoint(painter, position);
}
