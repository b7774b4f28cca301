#ifndef SONAVIA_EVALUATION_MYQWTZOOMER3_H
#define SONAVIA_EVALUATION_MYQWTZOOMER3_H

#include "viewer/ClampedZoomer.h"

/// Zooms the plot over the time of day: it tells position and activity.
/// The shortest stretch of the axis is half an hour.
class MyQwtZoomer3 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer3(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
