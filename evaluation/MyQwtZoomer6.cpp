#include "evaluation/MyQwtZoomer6.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer6::MyQwtZoomer6(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, ActivityPositionText::night)
{}

QSizeF MyQwtZoomer6::minZoomSize() const
{
    return {0.1, QwtPlotZoomer::minZoomSize().height()};
}
