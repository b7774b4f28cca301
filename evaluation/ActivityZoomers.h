#ifndef SONAVIA_EVALUATION_ACTIVITYZOOMERS_H
#define SONAVIA_EVALUATION_ACTIVITYZOOMERS_H

#include "evaluation/core/ActivityTable.h"

class ClampedZoomer;
class QWidget;

/// The two zoomers of an activity plot, which act together; they belong to the canvas.
struct ActivityZoomers
{
    ClampedZoomer* left;  ///< of the bottom and left axes; tells the coordinates
    ClampedZoomer* right; ///< of the top and right axes

    static ActivityZoomers make(ActivityKind kind, QWidget* canvas);
};

#endif
