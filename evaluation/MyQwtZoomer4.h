#ifndef SONAVIA_EVALUATION_MYQWTZOOMER4_H
#define SONAVIA_EVALUATION_MYQWTZOOMER4_H

#include "evaluation/ActivityZoomer.h"

/// Zooms the plot over days and tells position and activity.
class MyQwtZoomer4 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer4(QWidget* canvas) : ActivityZoomer(ActivityKind::Days, Axes::Left, canvas) {}
};

#endif
