#include "evaluation/core/SunTimes.h"

#include <cmath>

namespace {

constexpr double degrees = 180.0 / 3.14159265358979323846;

double sine(double angle)
{
    return std::sin(angle / degrees);
}

double cosine(double angle)
{
    return std::cos(angle / degrees);
}

/// Into 0 (inclusive) to `range` (exclusive).
double broughtInto(double value, double range)
{
    const double rest = std::fmod(value, range);
    if (rest >= 0.0)
        return rest;
    return rest + range < range ? rest + range : 0.0;
}

/// Right ascension in hours of the sun at the true longitude `longitude`, in the same quadrant.
double rightAscension(double longitude)
{
    const double angle = broughtInto(std::atan(0.91764 * std::tan(longitude / degrees)) * degrees, 360.0);
    const double quadrants = std::floor(longitude / 90.0) - std::floor(angle / 90.0);
    return (angle + quadrants * 90.0) / 15.0;
}

/// Hours of UT, 0 to 24.
std::optional<double> universalTime(SunTimes::Event event, const QDate& date, const GeoPosition& position,
                                    double altitude)
{
    const bool rising = event == SunTimes::Event::Sunrise;
    const double longitudeHours = position.longitude / 15.0;
    const double time = date.dayOfYear() + ((rising ? 6.0 : 18.0) - longitudeHours) / 24.0;
    const double anomaly = 0.9856 * time - 3.289;
    const double sun =
        broughtInto(anomaly + 1.916 * sine(anomaly) + 0.020 * sine(2.0 * anomaly) + 282.634, 360.0);
    const double sineDeclination = 0.39782 * sine(sun);
    const double cosineDeclination = std::sqrt(1.0 - sineDeclination * sineDeclination);
    const double cosineHourAngle = (sine(altitude) - sineDeclination * sine(position.latitude)) /
                                   (cosineDeclination * cosine(position.latitude));
    if (!(std::abs(cosineHourAngle) <= 1.0))
        return std::nullopt;
    const double angle = std::acos(cosineHourAngle) * degrees;
    const double hourAngle = (rising ? 360.0 - angle : angle) / 15.0;
    const double localTime = hourAngle + rightAscension(sun) - 0.06571 * time - 6.622;
    return broughtInto(localTime - longitudeHours, 24.0);
}

} // namespace

double SunTimes::altitudeOf(const QString& twilightName)
{
    if (twilightName == QLatin1String("Civil twilight"))
        return -6.0;
    if (twilightName == QLatin1String("Nautical twilight"))
        return -12.0;
    if (twilightName == QLatin1String("Astronomical twilight"))
        return -18.0;
    return horizonAltitude;
}

double SunTimes::clockHours(Event event, const QDate& date, const GeoPosition& position, double altitude,
                            double offsetHours, int daylightHours)
{
    const std::optional<double> hours = universalTime(event, date, position, altitude);
    return hours ? broughtInto(*hours + offsetHours + daylightHours, 24.0) : noEvent;
}

SunTimes::Day SunTimes::day(const QDate& date, const GeoPosition& position, double altitude,
                            double offsetHours, int daylightHours)
{
    // A clock that is put forward must not move the noon to another day.
    const double noon = broughtInto(12.0 - position.longitude / 15.0 + offsetHours, 24.0) + daylightHours;
    const auto seconds = [&](Event event, double earliest) -> std::optional<qint64> {
        const double hours = clockHours(event, date, position, altitude, offsetHours, daylightHours);
        if (hours < 0.0)
            return std::nullopt;
        return std::llround((earliest + broughtInto(hours - earliest, 24.0)) * 3600.0);
    };
    // The equation of time moves the true noon by a quarter of an hour at most.
    constexpr double leeway = 0.5;
    return {seconds(Event::Sunrise, noon - 12.0 - leeway), seconds(Event::Sunset, noon - leeway)};
}
