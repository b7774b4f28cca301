#ifndef SONAVIA_EVALUATION_MYQWTZOOMER51_H
#define SONAVIA_EVALUATION_MYQWTZOOMER51_H

#include "viewer/ClampedZoomer.h"

/// Lets the valid hours of the plot over months follow its zoom.
/// It zooms the right axis and shows nothing of its own; the shortest stretch is a month.
class MyQwtZoomer51 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer51(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
