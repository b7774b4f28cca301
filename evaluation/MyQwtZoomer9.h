#ifndef SONAVIA_EVALUATION_MYQWTZOOMER9_H
#define SONAVIA_EVALUATION_MYQWTZOOMER9_H

#include "evaluation/ActivityZoomer.h"

/// Zooms the plot over wind speed and tells position and activity.
class MyQwtZoomer9 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer9(QWidget* canvas) : ActivityZoomer(ActivityKind::WindSpeed, Axes::Left, canvas) {}
};

#endif
