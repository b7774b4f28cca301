#include "viewer/MyQwtZoomer2.h"

#include "viewer/PositionText.h"

#include <qwt_plot.h>

MyQwtZoomer2::MyQwtZoomer2(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, PositionText::timeAndAmplitude)
{}
