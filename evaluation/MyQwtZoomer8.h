#ifndef SONAVIA_EVALUATION_MYQWTZOOMER8_H
#define SONAVIA_EVALUATION_MYQWTZOOMER8_H

#include "evaluation/ActivityZoomer.h"

/// Zooms the plot over precipitation and tells position and activity.
class MyQwtZoomer8 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer8(QWidget* canvas) : ActivityZoomer(ActivityKind::Precipitation, Axes::Left, canvas)
    {}
};

#endif
