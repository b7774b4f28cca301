#include "viewer/AlignedPlotLayout.h"

#include <QtMath>
#include <qwt_plot.h>

AlignedPlotLayout::AlignedPlotLayout(const QwtPlotLayout& like, std::function<void()> naturalMarginsChanged)
    : m_naturalMarginsChanged(std::move(naturalMarginsChanged))
{
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        setCanvasMargin(like.canvasMargin(axis), axis);
        setAlignCanvasToScale(axis, like.alignCanvasToScale(axis));
    }
    setSpacing(like.spacing());
}

bool AlignedPlotLayout::setLeastMargins(const QMargins& margins)
{
    if (margins == m_least)
        return false;
    m_least = margins;
    return true;
}

void AlignedPlotLayout::activate(const QwtPlot* plot, const QRectF& plotRect, Options options)
{
    QwtPlotLayout::activate(plot, plotRect, options);
    if (options.testFlag(IgnoreScrollbars))
        return; // a document is laid out, not the widget

    const QRectF own = canvasRect();
    const QMargins natural(qCeil(own.left() - plotRect.left()), qCeil(own.top() - plotRect.top()),
                           qCeil(plotRect.right() - own.right()), qCeil(plotRect.bottom() - own.bottom()));
    const QRectF aligned =
        plotRect.adjusted(qMax(natural.left(), m_least.left()), qMax(natural.top(), m_least.top()),
                          -qMax(natural.right(), m_least.right()), -qMax(natural.bottom(), m_least.bottom()));
    if (aligned.isValid())
        moveCanvas(aligned);
    if (natural != m_natural) {
        m_natural = natural;
        m_naturalMarginsChanged();
    }
}

void AlignedPlotLayout::moveCanvas(const QRectF& canvas)
{
    const QRectF before = canvasRect();
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        QRectF scale = scaleRect(axis);
        if (!scale.isValid())
            continue;
        // Along the canvas, the ends of the scale keep their distance from the ends of the canvas.
        if (axis == QwtPlot::xBottom || axis == QwtPlot::xTop) {
            scale.setLeft(scale.left() + canvas.left() - before.left());
            scale.setRight(scale.right() + canvas.right() - before.right());
        } else {
            scale.setTop(scale.top() + canvas.top() - before.top());
            scale.setBottom(scale.bottom() + canvas.bottom() - before.bottom());
        }
        switch (axis) {
        case QwtPlot::yLeft:
            scale.setRight(canvas.left());
            break;
        case QwtPlot::yRight:
            scale.setLeft(canvas.right());
            break;
        case QwtPlot::xTop:
            scale.setBottom(canvas.top());
            break;
        default:
            scale.setTop(canvas.bottom());
            break;
        }
        setScaleRect(axis, scale);
    }
    setCanvasRect(canvas);
}
