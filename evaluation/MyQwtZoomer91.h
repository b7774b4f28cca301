#ifndef SONAVIA_EVALUATION_MYQWTZOOMER91_H
#define SONAVIA_EVALUATION_MYQWTZOOMER91_H

#include "viewer/ClampedZoomer.h"

/// Lets the valid hours of the plot over wind speed follow its zoom.
/// It zooms the right axis and shows nothing of its own; the shortest stretch is a bin.
class MyQwtZoomer91 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer91(QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;
};

#endif
