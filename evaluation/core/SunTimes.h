#ifndef SONAVIA_EVALUATION_CORE_SUNTIMES_H
#define SONAVIA_EVALUATION_CORE_SUNTIMES_H

#include <QDate>
#include <QString>

#include <optional>

/// A place on the earth, in degrees; north and east are positive.
struct GeoPosition
{
    double latitude = 51.0;
    double longitude = 9.0;
};

/// Sunrise, sunset and twilight by the sunrise/sunset algorithm of the Almanac for Computers, Nautical
/// Almanac Office, United States Naval Observatory, 1990.
///
/// It knows the day of the year but not where in the four years between leap days it lies, and is furthest
/// off in the year after one. From 2015 to 2030 it keeps two minutes up to 60 degrees of latitude; at 65
/// degrees it is up to 1.9 minutes off, in the years after a leap year (2017, 2021, ...) up to 2.8.
namespace SunTimes {

enum class Event { Sunrise, Sunset };

inline constexpr double horizonAltitude = -0.833; ///< degrees: the sun's upper edge, with refraction

/// The sun's altitude in degrees that "Civil twilight", "Nautical twilight" or "Astronomical twilight" ends
/// at; that of sunset itself for every other name.
double altitudeOf(const QString& twilightName);

inline constexpr double noEvent = -1.0;

/// The hour, 0 to 24, that a clock `offsetHours` + `daylightHours` ahead of UT shows as the sun passes
/// `altitude`; noEvent when it does not on that day.
double clockHours(Event event, const QDate& date, const GeoPosition& position, double altitude,
                  double offsetHours, int daylightHours);

/// The sun's day around the noon of a date: seconds from 0:00 of that date on the clock, rounded. A sunset
/// after midnight has more than 86400, a sunrise before it is negative; there may be none.
struct Day
{
    std::optional<qint64> sunrise;
    std::optional<qint64> sunset;
};

Day day(const QDate& date, const GeoPosition& position, double altitude, double offsetHours,
        int daylightHours);

} // namespace SunTimes

#endif
