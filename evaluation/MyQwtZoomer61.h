#ifndef SONAVIA_EVALUATION_MYQWTZOOMER61_H
#define SONAVIA_EVALUATION_MYQWTZOOMER61_H

#include "viewer/ClampedZoomer.h"

/// Lets the valid hours of the plot over night time follow its zoom.
/// It zooms the right axis and shows nothing of its own; the shortest stretch is a tenth of the night.
class MyQwtZoomer61 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer61(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
