#include "evaluation/MyQwtZoomer71.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer71::MyQwtZoomer71(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xTop, QwtPlot::yRight, canvas, ActivityPositionText::temperature)
{
    setTrackerMode(AlwaysOff);
    setRubberBand(NoRubberBand);
}

QSizeF MyQwtZoomer71::minZoomSize() const
{
    return {2.0, QwtPlotZoomer::minZoomSize().height()};
}
