#ifndef SONAVIA_VIEWER_MYRECTCALLSMARKER_H
#define SONAVIA_VIEWER_MYRECTCALLSMARKER_H

#include "dsp/MyBatCall.h"

#include <QColor>
#include <QList>
#include <qwt_plot_item.h>

/// Draws a frame around each detected call on the spectrogram and below it a label with the call's duration
/// and end frequency, where there is room for it. The class text stands beside the frame, in a marker of its
/// own. Attached to a plot, which then owns it.
class MyRectCallsMarker : public QwtPlotItem
{
public:
    /// Calls with an empty rectangle (noise) are not drawn.
    MyRectCallsMarker(QList<MyBatCall> calls, const QColor& colour);

    const QList<MyBatCall>& calls() const { return m_calls; }
    void setColour(const QColor& colour);

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;

    /// "4.2 ms, 45.3 kHz", in the decimals of the user's locale.
    static QString labelOf(const MyBatCall& call);

private:
    QList<MyBatCall> m_calls;
    QColor m_colour;
};

#endif
