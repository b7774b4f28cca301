#include "viewer/AxisPlotStyle.h"

#include <qwt_plot.h>

void AxisPlotStyle::wrapTitle(QwtPlot& plot, int axis)
{
    QwtText title = plot.axisTitle(axis);
    title.setRenderFlags(Qt::AlignHCenter | Qt::TextWordWrap);
    plot.setAxisTitle(axis, title);
}
