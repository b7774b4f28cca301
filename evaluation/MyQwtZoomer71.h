#ifndef SONAVIA_EVALUATION_MYQWTZOOMER71_H
#define SONAVIA_EVALUATION_MYQWTZOOMER71_H

#include "viewer/ClampedZoomer.h"

/// Lets the valid hours of the plot over temperature follow its zoom.
/// It zooms the right axis and shows nothing of its own; the shortest stretch is two degrees.
class MyQwtZoomer71 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer71(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
