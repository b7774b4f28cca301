#ifndef SONAVIA_VIEWER_MYQWTZOOMER_H
#define SONAVIA_VIEWER_MYQWTZOOMER_H

#include "viewer/ClampedZoomer.h"

/// Zooms the spectrogram: it tells time and frequency.
class MyQwtZoomer : public ClampedZoomer
{
    Q_OBJECT

public:
    explicit MyQwtZoomer(QWidget* canvas);
};

#endif
