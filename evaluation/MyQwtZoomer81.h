#ifndef SONAVIA_EVALUATION_MYQWTZOOMER81_H
#define SONAVIA_EVALUATION_MYQWTZOOMER81_H

#include "viewer/ClampedZoomer.h"

/// Lets the valid hours of the plot over precipitation follow its zoom.
/// It zooms the right axis and shows nothing of its own; the shortest stretch is a bin.
class MyQwtZoomer81 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer81(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
