#ifndef SONAVIA_EVALUATION_MYQWTZOOMER10_H
#define SONAVIA_EVALUATION_MYQWTZOOMER10_H

#include "viewer/ClampedZoomer.h"

/// Lets the valid hours of the plot over the time of day follow its zoom.
/// It zooms the right axis and shows nothing of its own; the shortest stretch is half an hour.
class MyQwtZoomer10 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer10(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
