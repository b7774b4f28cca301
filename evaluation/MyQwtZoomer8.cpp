#include "evaluation/MyQwtZoomer8.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer8::MyQwtZoomer8(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, ActivityPositionText::precipitation)
{}

QSizeF MyQwtZoomer8::minZoomSize() const
{
    return {1.0, QwtPlotZoomer::minZoomSize().height()};
}
