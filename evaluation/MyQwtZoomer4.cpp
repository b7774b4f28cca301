#include "evaluation/MyQwtZoomer4.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer4::MyQwtZoomer4(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, ActivityPositionText::days)
{}

QSizeF MyQwtZoomer4::minZoomSize() const
{
    return {86400000.0, QwtPlotZoomer::minZoomSize().height()};
}
