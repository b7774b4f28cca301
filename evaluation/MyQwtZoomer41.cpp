#include "evaluation/MyQwtZoomer41.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

MyQwtZoomer41::MyQwtZoomer41(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xTop, QwtPlot::yRight, canvas, ActivityPositionText::days)
{
    setTrackerMode(AlwaysOff);
    setRubberBand(NoRubberBand);
}

QSizeF MyQwtZoomer41::minZoomSize() const
{
    return {86400000.0, QwtPlotZoomer::minZoomSize().height()};
}
