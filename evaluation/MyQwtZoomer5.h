#ifndef SONAVIA_EVALUATION_MYQWTZOOMER5_H
#define SONAVIA_EVALUATION_MYQWTZOOMER5_H

#include "evaluation/ActivityZoomer.h"

/// Zooms the plot over months and tells position and activity.
class MyQwtZoomer5 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer5(QWidget* canvas) : ActivityZoomer(ActivityKind::Months, Axes::Left, canvas) {}
};

#endif
