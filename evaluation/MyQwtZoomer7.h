#ifndef SONAVIA_EVALUATION_MYQWTZOOMER7_H
#define SONAVIA_EVALUATION_MYQWTZOOMER7_H

#include "viewer/ClampedZoomer.h"

/// Zooms the plot over temperature: it tells position and activity.
/// The shortest stretch of the axis is two degrees.
class MyQwtZoomer7 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer7(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
