#include "evaluation/MyQwtZoomer7.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer7::MyQwtZoomer7(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, ActivityPositionText::temperature)
{}

QSizeF MyQwtZoomer7::minZoomSize() const
{
    return {2.0, QwtPlotZoomer::minZoomSize().height()};
}
