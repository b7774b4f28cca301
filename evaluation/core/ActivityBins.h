#ifndef SONAVIA_EVALUATION_CORE_ACTIVITYBINS_H
#define SONAVIA_EVALUATION_CORE_ACTIVITYBINS_H

#include "evaluation/core/MonitoringCalendar.h"
#include "evaluation/core/WeatherFile.h"

#include <QString>

/// One bin of an activity plot: a class of times at which the recorder was listening.
struct ActivityBin
{
    QString label;   ///< of its row in a table; the same in every locale
    double position; ///< of its middle on the plot's axis
    double width;    ///< on that axis
    TimeSpans spans; ///< UTC seconds: the monitored times that belong to it
};

using ActivityBins = std::vector<ActivityBin>;

/// The rules by which the plots divide time. Bins stand in the order of the axis. An instant at the boundary
/// of two bins belongs to both. All are linear in the days and, those of the weather, in the samples.
namespace ActivityRules {

/// 144 bins of 10 minutes; the axis counts the seconds from 0:00, from 43200 to 129600 where the night is in
/// the middle, else from 0 to 86400.
ActivityBins timeOfDay(const MonitoringCalendar& calendar, bool centerNight);

/// One for each day's own window. The axis has milliseconds since the epoch, 0:00 UTC of a date for 0:00 of
/// the clock, as date scales have them.
ActivityBins days(const MonitoringCalendar& calendar);

/// One for each month: the windows that begin in it. The axis counts months: 12 x year + month - 1.
ActivityBins months(const MonitoringCalendar& calendar);

/// 11 bins: 15 % of the night's length before sunset, then tenths of the night. The axis runs from 0 at
/// sunset to 1 at sunrise.
ActivityBins night(const MonitoringCalendar& calendar);

/// The bins of one quantity of the weather, with its value as the axis. `samples` are in UTC and in order.
/// Each stands for ten minutes, or until the next one where that comes earlier; values outside of all bins
/// are left out.
ActivityBins temperature(const MonitoringCalendar& calendar, const WeatherSamples& samples);
ActivityBins precipitation(const MonitoringCalendar& calendar, const WeatherSamples& samples);
ActivityBins windSpeed(const MonitoringCalendar& calendar, const WeatherSamples& samples);

} // namespace ActivityRules

/// What the clock showed on average of all nights at the limits of twilight, as seconds from 0:00 of the
/// evening's date (more than 86400 after midnight).
struct TwilightTimes
{
    bool isValid = false; ///< whether twilight began and ended in any night
    double sunset = 0.0;
    double sunrise = 0.0;
    double eveningTwilight = 0.0; ///< the one of the two limits of the evening that is not sunset
    double morningTwilight = 0.0;
};

/// For the nights from begin to end. "Vantor twilight (15%)" means 15 % of the night before sunset and after
/// sunrise.
TwilightTimes averageTwilight(const MonitoringCalendar& calendar, const QString& twilightName);

#endif
