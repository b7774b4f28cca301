#include "evaluation/ActivityZoomer.h"

#include "evaluation/ActivityPositionText.h"

#include <qwt_plot.h>

namespace {

struct Scale
{
    ClampedZoomer::Formatter positionText;
    double leastWidth;
};

const Scale& scaleOf(ActivityKind kind)
{
    static constexpr Scale scales[] = {
        {ActivityPositionText::timeOfDay, 1800.0}, {ActivityPositionText::days, 86400000.0},
        {ActivityPositionText::months, 1.0},       {ActivityPositionText::night, 0.1},
        {ActivityPositionText::temperature, 2.0},  {ActivityPositionText::precipitation, 1.0},
        {ActivityPositionText::windSpeed, 1.0}};
    return scales[static_cast<int>(kind)];
}

} // namespace

ActivityZoomer::ActivityZoomer(ActivityKind kind, Axes axes, QWidget* canvas)
    : ClampedZoomer(axes == Axes::Left ? QwtPlot::xBottom : QwtPlot::xTop,
                    axes == Axes::Left ? QwtPlot::yLeft : QwtPlot::yRight, canvas,
                    scaleOf(kind).positionText),
      m_leastWidth(scaleOf(kind).leastWidth)
{
    if (axes == Axes::Left)
        return;
    setTrackerMode(AlwaysOff);
    setRubberBand(NoRubberBand);
}

QSizeF ActivityZoomer::minZoomSize() const
{
    return {m_leastWidth, QwtPlotZoomer::minZoomSize().height()};
}
