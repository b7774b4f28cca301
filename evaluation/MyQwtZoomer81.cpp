#include "evaluation/MyQwtZoomer81.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer81::MyQwtZoomer81(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xTop, QwtPlot::yRight, canvas, ActivityPositionText::precipitation)
{
    setTrackerMode(AlwaysOff);
    setRubberBand(NoRubberBand);
}

QSizeF MyQwtZoomer81::minZoomSize() const
{
    return {1.0, QwtPlotZoomer::minZoomSize().height()};
}
