#include "evaluation/MyQwtZoomer9.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer9::MyQwtZoomer9(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, ActivityPositionText::windSpeed)
{}

QSizeF MyQwtZoomer9::minZoomSize() const
{
    return {1.0, QwtPlotZoomer::minZoomSize().height()};
}
