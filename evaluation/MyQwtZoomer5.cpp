#include "evaluation/MyQwtZoomer5.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer5::MyQwtZoomer5(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, ActivityPositionText::months)
{}

QSizeF MyQwtZoomer5::minZoomSize() const
{
    return {1.0, QwtPlotZoomer::minZoomSize().height()};
}
