#ifndef SONAVIA_EVALUATION_MYQWTZOOMER81_H
#define SONAVIA_EVALUATION_MYQWTZOOMER81_H

#include "evaluation/ActivityZoomer.h"

/// Lets the valid hours of the plot over precipitation follow its zoom.
class MyQwtZoomer81 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer81(QWidget* canvas) : ActivityZoomer(ActivityKind::Precipitation, Axes::Right, canvas)
    {}
};

#endif
