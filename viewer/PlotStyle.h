#ifndef SONAVIA_VIEWER_PLOTSTYLE_H
#define SONAVIA_VIEWER_PLOTSTYLE_H

class QString;
class QwtPlot;

/// What all plots of the viewer have in common.
namespace PlotStyle {

/// Fonts, margins and canvas of a new plot. Axis titles and numbers take the plot's own font, which follows
/// the system; the canvas ends exactly at the ends of its axes, so that canvases can be lined up.
void apply(QwtPlot& plot);

/// Sets an axis title in the plot's own font, in regular weight.
void setAxisTitle(QwtPlot& plot, int axis, const QString& title);

} // namespace PlotStyle

#endif
