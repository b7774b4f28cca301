#ifndef SONAVIA_EVALUATION_MYQWTZOOMER91_H
#define SONAVIA_EVALUATION_MYQWTZOOMER91_H

#include "evaluation/ActivityZoomer.h"

/// Lets the valid hours of the plot over wind speed follow its zoom.
class MyQwtZoomer91 : public ActivityZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer91(QWidget* canvas) : ActivityZoomer(ActivityKind::WindSpeed, Axes::Right, canvas) {}
};

#endif
