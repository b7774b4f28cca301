#ifndef SONAVIA_VIEWER_MYQWTZOOMER2_H
#define SONAVIA_VIEWER_MYQWTZOOMER2_H

#include "viewer/ClampedZoomer.h"

/// Zooms the time-axis plot: it tells time and amplitude.
class MyQwtZoomer2 : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer2(QWidget* canvas);
};

#endif
