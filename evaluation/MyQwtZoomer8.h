#ifndef SONAVIA_EVALUATION_MYQWTZOOMER8_H
#define SONAVIA_EVALUATION_MYQWTZOOMER8_H

#include "viewer/ClampedZoomer.h"

/// Zooms the plot over precipitation: it tells position and activity.
/// The shortest stretch of the axis is a bin.
class MyQwtZoomer8 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer8(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
