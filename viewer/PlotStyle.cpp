#include "viewer/PlotStyle.h"

#include <QFrame>
#include <QString>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_widget.h>

namespace PlotStyle {

void apply(QwtPlot& plot)
{
    // The library's own policy takes the size hint for the least size.
    plot.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        plot.setAxisFont(axis, plot.font());
        plot.axisWidget(axis)->setMargin(0);
        plot.axisWidget(axis)->setSpacing(4);
    }
    plot.plotLayout()->setCanvasMargin(0);
    plot.plotLayout()->setAlignCanvasToScales(true);
    if (auto* canvas = qobject_cast<QwtPlotCanvas*>(plot.canvas()))
        canvas->setFrameStyle(QFrame::NoFrame);
}

void setAxisTitle(QwtPlot& plot, int axis, const QString& title)
{
    QwtText text(title);
    text.setFont(plot.font());
    text.setRenderFlags(Qt::AlignHCenter | Qt::TextWordWrap); // in a low window two lines, or it would be cut
    plot.setAxisTitle(axis, text);
}

} // namespace PlotStyle
