#ifndef SONAVIA_EVALUATION_MYQWTZOOMER6_H
#define SONAVIA_EVALUATION_MYQWTZOOMER6_H

#include "viewer/ClampedZoomer.h"

/// Zooms the plot over night time: it tells position and activity.
/// The shortest stretch of the axis is a tenth of the night.
class MyQwtZoomer6 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer6(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
