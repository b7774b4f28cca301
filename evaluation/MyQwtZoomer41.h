#ifndef SONAVIA_EVALUATION_MYQWTZOOMER41_H
#define SONAVIA_EVALUATION_MYQWTZOOMER41_H

#include "evaluation/ActivityZoomer.h"

/// Lets the valid hours of the plot over days follow its zoom.
class MyQwtZoomer41 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer41(QWidget* canvas) : ActivityZoomer(ActivityKind::Days, Axes::Right, canvas) {}
};

#endif
