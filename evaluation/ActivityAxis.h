#ifndef SONAVIA_EVALUATION_ACTIVITYAXIS_H
#define SONAVIA_EVALUATION_ACTIVITYAXIS_H

#include "evaluation/core/ActivityTable.h"

class QwtPlot;

/// The horizontal axis of the activity plots: its labels and ticks, legible at any zoom.
namespace ActivityAxis {

/// Gives the bottom axis of `plot` the labels of plots of this kind.
void install(QwtPlot& plot, ActivityKind kind);

/// The whole axis of a table: all bins, for the weather those with valid hours. From first to second.
std::pair<double, double> range(const ActivityTable& table);

/// Shows `low` to `high` with ticks that suit the width of the canvas. The invisible top axis follows.
void divide(QwtPlot& plot, const ActivityTable& table, double low, double high);

} // namespace ActivityAxis

#endif
