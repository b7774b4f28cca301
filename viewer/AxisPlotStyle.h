#ifndef SONAVIA_VIEWER_AXISPLOTSTYLE_H
#define SONAVIA_VIEWER_AXISPLOTSTYLE_H

#include <QColor>

class QwtPlot;

/// How the axis plots look, beside what all plots have in common. They do not follow the colours of the
/// spectrogram.
namespace AxisPlotStyle {

inline const QColor canvas(255, 255, 255);
inline const QColor curve(122, 184, 0);
inline const QColor rms(70, 108, 0);
inline const QColor grid(0, 0, 0, 50);
inline const QColor baseline(110, 110, 110);
inline const QColor cursor(206, 60, 0);
inline const QColor selection(0, 90, 200);
inline const QColor outside(150, 150, 150); ///< what the spectrogram does not show

/// Lets the title of an axis take a second line where the plot is too small for it.
void wrapTitle(QwtPlot& plot, int axis);

} // namespace AxisPlotStyle

#endif
