#include "evaluation/MyQwtZoomer3.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer3::MyQwtZoomer3(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, ActivityPositionText::timeOfDay)
{}

QSizeF MyQwtZoomer3::minZoomSize() const
{
    return {1800.0, QwtPlotZoomer::minZoomSize().height()};
}
