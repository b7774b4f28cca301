#ifndef SONAVIA_EVALUATION_ACTIVITYZOOMER_H
#define SONAVIA_EVALUATION_ACTIVITYZOOMER_H

#include "evaluation/core/ActivityTable.h"
#include "viewer/ClampedZoomer.h"

/// The zoomer of which all those of the activity plots are made. It zooms down to one bin and no further (on
/// the axis of the time of day to half an hour).
class ActivityZoomer : public ClampedZoomer
{
    Q_OBJECT

public:
    enum class Axes {
        Left, ///< bottom and left; tells position and activity beside the pointer
        Right ///< top and right; shows nothing of its own
    };

    ActivityZoomer(ActivityKind kind, Axes axes, QWidget* canvas);

protected:
    QSizeF minZoomSize() const override;

private:
    double m_leastWidth; ///< in units of the horizontal axis, see ActivityRules
};

#endif
