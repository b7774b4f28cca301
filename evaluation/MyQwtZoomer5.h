#ifndef SONAVIA_EVALUATION_MYQWTZOOMER5_H
#define SONAVIA_EVALUATION_MYQWTZOOMER5_H

#include "viewer/ClampedZoomer.h"

/// Zooms the plot over months: it tells position and activity.
/// The shortest stretch of the axis is a month.
class MyQwtZoomer5 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer5(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
