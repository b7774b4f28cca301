#ifndef SONAVIA_TESTS_SUPPORT_DRAWCOUNTER_H
#define SONAVIA_TESTS_SUPPORT_DRAWCOUNTER_H

#include <qwt_plot_item.h>

/// Counts how often its plot, which owns it, is drawn.
class DrawCounter : public QwtPlotItem
{
public:
    explicit DrawCounter(QwtPlot* plot) { attach(plot); }
    void draw(QPainter* /*painter*/, const QwtScaleMap& /*xMap*/, const QwtScaleMap& /*yMap*/,
              const QRectF& /*canvasRect*/) const override
    {
        ++count;
    }
    mutable int count = 0;
};

#endif
