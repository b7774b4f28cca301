#include "evaluation/MyQwtZoomer51.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer51::MyQwtZoomer51(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xTop, QwtPlot::yRight, canvas, ActivityPositionText::months)
{
    setTrackerMode(AlwaysOff);
    setRubberBand(NoRubberBand);
}

QSizeF MyQwtZoomer51::minZoomSize() const
{
    return {1.0, QwtPlotZoomer::minZoomSize().height()};
}
