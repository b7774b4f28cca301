#include "evaluation/MyQwtZoomer61.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer61::MyQwtZoomer61(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xTop, QwtPlot::yRight, canvas, ActivityPositionText::night)
{
    setTrackerMode(AlwaysOff);
    setRubberBand(NoRubberBand);
}

QSizeF MyQwtZoomer61::minZoomSize() const
{
    return {0.1, QwtPlotZoomer::minZoomSize().height()};
}
