#ifndef SONAVIA_EVALUATION_MYQWTZOOMER6_H
#define SONAVIA_EVALUATION_MYQWTZOOMER6_H

#include "evaluation/ActivityZoomer.h"

/// Zooms the plot over night time and tells position and activity.
class MyQwtZoomer6 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer6(QWidget* canvas) : ActivityZoomer(ActivityKind::NightTime, Axes::Left, canvas) {}
};

#endif
