#ifndef SONAVIA_EVALUATION_MYQWTZOOMER10_H
#define SONAVIA_EVALUATION_MYQWTZOOMER10_H

#include "evaluation/ActivityZoomer.h"

/// Lets the valid hours of the plot over the time of day follow its zoom.
class MyQwtZoomer10 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer10(QWidget* canvas) : ActivityZoomer(ActivityKind::Time, Axes::Right, canvas) {}
};

#endif
