#ifndef SONAVIA_EVALUATION_MYQWTZOOMER3_H
#define SONAVIA_EVALUATION_MYQWTZOOMER3_H

#include "evaluation/ActivityZoomer.h"

/// Zooms the plot over the time of day and tells position and activity.
class MyQwtZoomer3 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer3(QWidget* canvas) : ActivityZoomer(ActivityKind::Time, Axes::Left, canvas) {}
};

#endif
