#ifndef SONAVIA_EVALUATION_MYQWTZOOMER71_H
#define SONAVIA_EVALUATION_MYQWTZOOMER71_H

#include "evaluation/ActivityZoomer.h"

/// Lets the valid hours of the plot over temperature follow its zoom.
class MyQwtZoomer71 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer71(QWidget* canvas) : ActivityZoomer(ActivityKind::Temperature, Axes::Right, canvas)
    {}
};

#endif
