#ifndef SONAVIA_EVALUATION_MYQWTZOOMER9_H
#define SONAVIA_EVALUATION_MYQWTZOOMER9_H

#include "viewer/ClampedZoomer.h"

/// Zooms the plot over wind speed: it tells position and activity.
/// The shortest stretch of the axis is a bin.
class MyQwtZoomer9 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer9(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
