#include "evaluation/core/SunTimes.h"

#include <QtTest>

#include <algorithm>
#include <cmath>

namespace {

constexpr double degrees = 180.0 / 3.14159265358979323846;

/// The sun's altitude in degrees at `hours` of UT, by the low-precision series of J. Meeus, Astronomical
/// Algorithms, 2nd edition, chapters 12, 13 and 25 (good to 0.01 degrees).
double sunAltitude(const QDate& date, double hours, const GeoPosition& position)
{
    const double days = static_cast<double>(date.toJulianDay()) - 0.5 + hours / 24.0 - 2451545.0;
    const double t = days / 36525.0;
    const double anomaly = (357.52911 + 35999.05029 * t) / degrees;
    const double centre = (1.914602 - 0.004817 * t) * std::sin(anomaly) + 0.019993 * std::sin(2 * anomaly) +
                          0.000289 * std::sin(3 * anomaly);
    const double node = (125.04 - 1934.136 * t) / degrees;
    const double longitude =
        (280.46646 + 36000.76983 * t + centre - 0.00569 - 0.00478 * std::sin(node)) / degrees;
    const double obliquity = (23.4392911 - 0.0130042 * t + 0.00256 * std::cos(node)) / degrees;
    const double ascension =
        std::atan2(std::cos(obliquity) * std::sin(longitude), std::cos(longitude)) * degrees;
    const double declination = std::asin(std::sin(obliquity) * std::sin(longitude));
    const double sidereal = 280.46061837 + 360.98564736629 * days;
    const double hourAngle = (sidereal + position.longitude - ascension) / degrees;
    const double latitude = position.latitude / degrees;
    return std::asin(std::sin(latitude) * std::sin(declination) +
                     std::cos(latitude) * std::cos(declination) * std::cos(hourAngle)) *
           degrees;
}

/// The UT hour between `low` and `high` at which the sun crosses `altitude`, once.
double crossing(const QDate& date, const GeoPosition& position, double altitude, double low, double high)
{
    const bool rising = sunAltitude(date, high, position) > altitude;
    for (int i = 0; i < 18; ++i) { // to 0.3 s
        const double middle = (low + high) / 2.0;
        ((sunAltitude(date, middle, position) > altitude) == rising ? high : low) = middle;
    }
    return low;
}

/// Minutes by which the worse of both times is off.
double error(const QDate& date, const GeoPosition& place, int offset)
{
    const double altitude = SunTimes::horizonAltitude;
    const double noon = 12.0 - place.longitude / 15.0;
    const SunTimes::Day day = SunTimes::day(date, place, altitude, offset - 1, 1);
    if (!day.sunrise || !day.sunset)
        return 1440.0;
    const auto minutes = [&](qint64 seconds, double hours) {
        return std::abs(static_cast<double>(seconds) / 60.0 - (hours + offset) * 60.0);
    };
    return std::max(minutes(*day.sunrise, crossing(date, place, altitude, noon - 12.0, noon)),
                    minutes(*day.sunset, crossing(date, place, altitude, noon, noon + 12.0)));
}

} // namespace

class tst_SunTimes : public QObject
{
    Q_OBJECT

private slots:
    /// Malta, Denver, Kassel, Oslo and Fairbanks, where the sun of June sets after midnight, over four turns
    /// of leap years. The day of the year says least about the sun in the year after one.
    void agreesWithAnotherAlgorithm()
    {
        const struct
        {
            GeoPosition place;
            int offset; // h
            double minutes;
            double afterLeapYears;
        } cases[] = {{{35.9, 14.5}, 2, 0.75, 1.0},
                     {{39.7, -105.0}, -6, 0.75, 1.1},
                     {{51.3, 9.5}, 2, 1.0, 1.5},
                     {{59.9, 10.75}, 2, 1.3, 2.0},
                     {{64.8, -147.7}, -8, 1.9, 2.75}};
        for (const auto& each : cases) {
            for (QDate date(2015, 1, 1); date.year() <= 2030; date = date.addDays(1)) {
                const double minutes = error(date, each.place, each.offset);
                const bool isAfterLeapYear = QDate::isLeapYear(date.year() - 1);
                QVERIFY2(minutes <= (isAfterLeapYear ? each.afterLeapYears : each.minutes),
                         qPrintable(date.toString(Qt::ISODate)));
            }
        }
    }

    /// The algorithm's own example: a morning at 40.9 N, 74.3 W, by UT and by clocks of that day and the
    /// next.
    void publishedExample()
    {
        const auto hours = [](int offset, int summerHours) {
            return SunTimes::clockHours(SunTimes::Event::Sunrise, QDate(1990, 6, 25), {40.9, -74.3},
                                        -50.0 / 60.0, offset, summerHours);
        };
        QVERIFY2(std::abs(hours(0, 0) - 9.441) < 0.0006, qPrintable(QString::number(hours(0, 0))));
        QVERIFY(std::abs(hours(-5, 1) - 5.441) < 0.0006);
        QVERIFY(std::abs(hours(14, 1) - 0.441) < 0.0006);
    }

    /// Deeper twilights end later in the evening and begin earlier in the morning.
    void twilightsShortenTheNight()
    {
        qint64 last = 0;
        for (const char* name : {"None", "Civil twilight", "Nautical twilight", "Astronomical twilight"}) {
            const double altitude = SunTimes::altitudeOf(QLatin1String(name));
            const SunTimes::Day day = SunTimes::day(QDate(2016, 4, 10), {51.0, 9.0}, altitude, 1, 1);
            QVERIFY2(*day.sunset - *day.sunrise > last + 3600, name);
            last = *day.sunset - *day.sunrise;
        }
        QCOMPARE(SunTimes::altitudeOf(QStringLiteral("Vantor twilight (15%)")), -0.833);
    }

    void noEvent()
    {
        const struct
        {
            double latitude;
            int month;
            double altitude;
        } cases[] = {{70.0, 6, -0.833}, {70.0, 12, -0.833}, {90.0, 3, -0.833}, {51.0, 6, -18.0}};
        for (const auto& [latitude, month, altitude] : cases) {
            const GeoPosition position{latitude, 9.0};
            const QDate date(2016, month, 20);
            for (const auto event : {SunTimes::Event::Sunrise, SunTimes::Event::Sunset})
                QCOMPARE(SunTimes::clockHours(event, date, position, altitude, 1, 0), -1.0);
            const SunTimes::Day day = SunTimes::day(date, position, altitude, 1, 0);
            QVERIFY(!day.sunrise && !day.sunset);
        }
    }
};

QTEST_GUILESS_MAIN(tst_SunTimes)
#include "tst_SunTimes.moc"
