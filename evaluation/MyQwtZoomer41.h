#ifndef SONAVIA_EVALUATION_MYQWTZOOMER41_H
#define SONAVIA_EVALUATION_MYQWTZOOMER41_H

#include "viewer/ClampedZoomer.h"

/// Lets the valid hours of the plot over days follow its zoom.
/// It zooms the right axis and shows nothing of its own; the shortest stretch is a day.
class MyQwtZoomer41 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer41(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
