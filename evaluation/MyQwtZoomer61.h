#ifndef SONAVIA_EVALUATION_MYQWTZOOMER61_H
#define SONAVIA_EVALUATION_MYQWTZOOMER61_H

#include "evaluation/ActivityZoomer.h"

/// Lets the valid hours of the plot over night time follow its zoom.
class MyQwtZoomer61 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer61(QWidget* canvas) : ActivityZoomer(ActivityKind::NightTime, Axes::Right, canvas) {}
};

#endif
