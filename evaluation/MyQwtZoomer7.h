#ifndef SONAVIA_EVALUATION_MYQWTZOOMER7_H
#define SONAVIA_EVALUATION_MYQWTZOOMER7_H

#include "evaluation/ActivityZoomer.h"

/// Zooms the plot over temperature and tells position and activity.
class MyQwtZoomer7 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer7(QWidget* canvas) : ActivityZoomer(ActivityKind::Temperature, Axes::Left, canvas) {}
};

#endif
