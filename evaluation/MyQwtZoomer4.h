#ifndef SONAVIA_EVALUATION_MYQWTZOOMER4_H
#define SONAVIA_EVALUATION_MYQWTZOOMER4_H

#include "viewer/ClampedZoomer.h"

/// Zooms the plot over days: it tells position and activity.
/// The shortest stretch of the axis is a day.
class MyQwtZoomer4 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer4(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
