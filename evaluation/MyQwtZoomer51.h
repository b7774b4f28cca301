#ifndef SONAVIA_EVALUATION_MYQWTZOOMER51_H
#define SONAVIA_EVALUATION_MYQWTZOOMER51_H

#include "evaluation/ActivityZoomer.h"

/// Lets the valid hours of the plot over months follow its zoom.
class MyQwtZoomer51 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer51(QWidget* canvas) : ActivityZoomer(ActivityKind::Months, Axes::Right, canvas) {}
};

#endif
