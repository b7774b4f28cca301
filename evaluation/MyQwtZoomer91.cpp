#include "evaluation/MyQwtZoomer91.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer91::MyQwtZoomer91(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xTop, QwtPlot::yRight, canvas, ActivityPositionText::windSpeed)
{
    setTrackerMode(AlwaysOff);
    setRubberBand(NoRubberBand);
}

QSizeF MyQwtZoomer91::minZoomSize() const
{
    return {1.0, QwtPlotZoomer::minZoomSize().height()};
}
