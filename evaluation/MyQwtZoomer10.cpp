#include "evaluation/MyQwtZoomer10.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer10::MyQwtZoomer10(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xTop, QwtPlot::yRight, canvas, ActivityPositionText::timeOfDay)
{
    setTrackerMode(AlwaysOff);
    setRubberBand(NoRubberBand);
}

QSizeF MyQwtZoomer10::minZoomSize() const
{
    return {1800.0, QwtPlotZoomer::minZoomSize().height()};
}
