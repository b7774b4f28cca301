#include "viewer/MyRectCallsMarker.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <qwt_scale_map.h>

MyRectCallsMarker::MyRectCallsMarker(QList<MyBatCall> calls, const QColor& colour)
    : m_calls(std::move(calls)), m_colour(colour)
{
    setZ(50.0);
}

void MyRectCallsMarker::setColour(const QColor& colour)
{
    m_colour = colour;
    itemChanged();
}

QString MyRectCallsMarker::labelOf(const MyBatCall& call)
{
    const QLocale locale;
    return QStringLiteral("%1 ms, %2 kHz")
        .arg(locale.toString(call.duration * 1000.0, 'f', 1), locale.toString(call.endFreq, 'f', 1));
}

void MyRectCallsMarker::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                             const QRectF& canvasRect) const
{
    painter->setPen(m_colour);
    painter->setBrush(Qt::NoBrush);
    const QFontMetricsF metrics(painter->font(), painter->device());
    // Calls come in the order of their time, so a label can only meet the ones shortly before it.
    QRectF lastLabel;
    for (const MyBatCall& call : m_calls) {
        if (call.rectangle.isEmpty())
            continue;
        const QRectF frame(
            QPointF(xMap.transform(call.rectangle.left()), yMap.transform(call.rectangle.bottom())),
            QPointF(xMap.transform(call.rectangle.right()), yMap.transform(call.rectangle.top())));
        if (!frame.intersects(canvasRect))
            continue;
        painter->drawRect(frame);

        const QString label = labelOf(call);
        const QRectF place(frame.left(), frame.bottom() + 1.0, metrics.horizontalAdvance(label),
                           metrics.height());
        if (!canvasRect.contains(place) ||
            place.adjusted(-metrics.averageCharWidth(), 0, 0, 0).intersects(lastLabel))
            continue;
        painter->drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, label);
        lastLabel = place;
    }
}
