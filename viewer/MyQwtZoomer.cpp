#include "viewer/MyQwtZoomer.h"

#include "viewer/PositionText.h"

#include <qwt_plot.h>

MyQwtZoomer::MyQwtZoomer(QWidget* canvas)
    : ClampedZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, PositionText::timeAndFrequency)
{}
