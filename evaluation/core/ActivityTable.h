#ifndef SONAVIA_EVALUATION_CORE_ACTIVITYTABLE_H
#define SONAVIA_EVALUATION_CORE_ACTIVITYTABLE_H

#include "evaluation/core/ActivityCounter.h"

/// The plots of the activity dialog, in the order of its tabs.
enum class ActivityKind { Time, Days, Months, NightTime, Temperature, Precipitation, WindSpeed };

/// What one plot shows, ready to be drawn or written down.
struct ActivityTable
{
    ActivityKind kind = ActivityKind::Time;
    int year = 2015;
    ActivityBins bins;
    QStringList curveNames;
    ActivityCurves curves;

    /// The data export: a header and a line for each bin, separated by semicolons, lines ended by "\r\n".
    /// `isShown` has "Valid Hours" first and then the curves; columns that are not shown are left out. Curves
    /// have an empty field where there are no valid hours.
    QString text(const std::vector<bool>& isShown) const;
};

/// "Activity over Time", for example: the plot's name on its tab.
QString activityTitle(ActivityKind kind);

/// The first field of an exported table: "Temperatures in 2016 [°C]", for example.
QString activityQuantityText(ActivityKind kind, int year);

/// The title of the plot's horizontal axis, with the year in its second line.
QString activityAxisTitle(ActivityKind kind, int year);

#endif
